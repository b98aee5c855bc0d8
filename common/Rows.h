// One row per transaction: its code, name, operation and fields stand here once, and the proxy, the stub, the
// tools and the tests read them.
//
//   inline constexpr auto kGetFeature =
//           request(2, "getFeature", &IAccessoryManager::getFeature, u32("accessoryId"));
//
// call() is the whole of a proxy's operation; dispatch() finds a stub's row and serve() is the whole of its
// case. A transaction that departs from that has its row all the same, and one hand-written function per
// side.
#pragma once

#include <binder/IBinder.h>
#include <binder/Parcel.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <tuple>
#include <type_traits>

#include "common/Check.h"
#include "common/Kinds.h"

namespace accessory::wire {

template <typename Operation, typename Returned, typename... Fields>
struct Row {
    using Result = Returned;

    uint32_t code;
    const char* name;
    Operation operation;  ///< a member function of the interface
    std::tuple<Fields...> fields;
    const char* replyCheck = nullptr;  ///< for the result, as Kinds.h tells of a field's check

    constexpr Row withReplyCheck(const char* check) const {
        Row row = *this;
        row.replyCheck = check;
        return row;
    }
};

/// A row whose fields carry the operation's parameters one after the other; anything else does not compile.
template <typename Interface, typename Result, typename... Parameters, typename... Fields>
constexpr auto request(uint32_t code, const char* name, Result (Interface::*operation)(Parameters...),
                       Fields... fields) {
    using Carried = decltype(std::tuple_cat(std::declval<typename Fields::Arguments>()...));
    static_assert(std::is_same_v<Carried, std::tuple<Parameters...>>,
                  "the fields of a row must carry exactly the parameters of its operation");
    return Row<decltype(operation), Result, Fields...>{code, name, operation, {fields...}};
}

/// Which failed marshaling steps an interface reports.
enum class Reports {
    kNamedSteps,  ///< those for which there is a text, in the condition form
    kEveryStep,   ///< all, in the return-value form
};

/// What is true of all transactions of an interface.
struct Manners {
    const Unit& unit;
    Reports reports;
    bool replyHasHeader;  ///< the reply begins with an exception header
};

/// Reports a marshaling step of @p function unless it succeeded.
inline void report(const Manners& manners, const char* function, android::status_t status,
                   const char* check) {
    const Site site{manners.unit, function, __LINE__};
    if (manners.reports == Reports::kEveryStep) {
        succeeded(site, status);
    } else if (check != nullptr) {
        holds(site, status == android::NO_ERROR, check);
    }
}

template <size_t Field, typename Row>
void writeFields(const Manners& /*manners*/, const Row& /*row*/, android::Parcel& /*data*/) {}

/// Writes the fields from number @p Field on; the first of them takes as many of the arguments as it carries.
template <size_t Field, typename Row, typename First, typename... Rest>
void writeFields(const Manners& manners, const Row& row, android::Parcel& data, const First& first,
                 const Rest&... rest) {
    const auto& field = std::get<Field>(row.fields);
    constexpr size_t kCarried = std::tuple_size_v<typename std::decay_t<decltype(field)>::Arguments>;
    static_assert(kCarried == 1, "kinds of several arguments come with the interfaces that need them");
    report(manners, row.name, field.write(data, first), field.check);
    writeFields<Field + 1>(manners, row, data, rest...);
}

/// A proxy's operation: sends the row's request to @p remote and returns what the reply holds. Failed steps
/// are reported, and the rest is done regardless, so an empty reply gives 0 or an empty string.
template <typename Row, typename... Arguments>
typename Row::Result call(const Manners& manners, const Row& row, const android::String16& descriptor,
                          android::IBinder* remote, const Arguments&... arguments) {
    android::Parcel data;
    android::Parcel reply;
    report(manners, row.name, data.writeInterfaceToken(descriptor), nullptr);
    writeFields<0>(manners, row, data, arguments...);
    report(manners, row.name, remote->transact(row.code, data, &reply, 0), nullptr);
    if (manners.replyHasHeader) {
        report(manners, row.name, reply.readExceptionCode(), "!reply.readExceptionCode()");
    }
    return Answer<typename Row::Result>::read(reply);
}

/// A stub's case, after the interface token: reads the fields, calls the stub's own operation, writes its
/// result.
template <typename Operation, typename Result, typename... Fields, typename Stub>
android::status_t serve(const Manners& manners, const Row<Operation, Result, Fields...>& row, Stub& stub,
                        const android::Parcel& data, android::Parcel* reply) {
    std::tuple<typename Fields::Slot...> slots;
    android::status_t status = android::NO_ERROR;
    const auto readAll = [&](auto&... slot) {
        static_cast<void>(((status = slot.read(data), status == android::NO_ERROR) && ...));
    };
    std::apply(readAll, slots);
    if (status != android::NO_ERROR) return status;
    const auto arguments = [](auto&... slot) { return std::tuple_cat(slot.arguments()...); };
    const auto operation = [&](auto&&... argument) { return (stub.*row.operation)(argument...); };
    const Result result = std::apply(operation, std::apply(arguments, slots));
    report(manners, "onTransact", Answer<Result>::write(*reply, result), row.replyCheck);
    return android::NO_ERROR;
}

/// Serves @p code by its row in @p rows, after checking the interface token.
/// @return nothing when there is no such row; PERMISSION_DENIED for another interface's token.
template <typename Stub, typename... Rows>
std::optional<android::status_t> dispatch(const Manners& manners, const std::tuple<Rows...>& rows, Stub& stub,
                                          uint32_t code, const android::Parcel& data,
                                          android::Parcel* reply) {
    std::optional<android::status_t> status;
    const auto serveIf = [&](const auto& row) {
        if (row.code != code) return false;
        status = data.checkInterface(&stub) ? serve(manners, row, stub, data, reply)
                                            : static_cast<android::status_t>(android::PERMISSION_DENIED);
        return true;
    };
    const auto findRow = [&](const auto&... row) { static_cast<void>((serveIf(row) || ...)); };
    std::apply(findRow, rows);
    return status;
}

}  // namespace accessory::wire
