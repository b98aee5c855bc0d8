// One row per transaction: its code, name, operation and fields stand here once, and the proxy, the stub, the
// tools and the tests read them.
//
//   inline constexpr auto kGetFeature =
//           request(2, "getFeature", &IAccessoryManager::getFeature, u32("accessoryId"));
//
// call() is the whole of a proxy's operation; dispatch() finds a stub's row and serve() is the whole of its
// case. What is peculiar about a transaction is a kind of its own, whose write() and read() stand next to
// each other.
#pragma once

#include <binder/IBinder.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "common/Kinds.h"
#include "common/Marshal.h"

namespace accessory::wire {

/// @tparam ReplyKind how the result travels; see Answer in Kinds.h.
template <typename Operation, typename Returned, typename ReplyKind, typename... Fields>
struct Row {
    using Result = Returned;
    using Reply = ReplyKind;

    uint32_t code = 0;
    const char* name = nullptr;
    Operation operation = nullptr;  ///< a member function of the interface
    std::tuple<Fields...> fields;
    const char* replyCheck =
        nullptr;  ///< names the writing of the result where only named steps are reported

    constexpr Row withReplyCheck(const char* check) const {
        Row row = *this;
        row.replyCheck = check;
        return row;
    }
};

/// A row whose fields carry the operation's parameters one after the other; anything else does not compile.
template <typename ReplyKind, typename Interface, typename Result, typename... Parameters, typename... Fields>
constexpr auto requestWith(uint32_t code, const char* name, Result (Interface::*operation)(Parameters...),
                           Fields... fields) {
    using Carried = decltype(std::tuple_cat(std::declval<typename Fields::Arguments>()...));
    static_assert(std::is_same_v<Carried, std::tuple<Parameters...>>,
                  "the fields of a row must carry exactly the parameters of its operation");
    return Row<decltype(operation), Result, ReplyKind, Fields...>{code, name, operation, {fields...}};
}

/// The usual row, whose result travels as its type says.
template <typename Interface, typename Result, typename... Parameters, typename... Fields>
constexpr auto request(uint32_t code, const char* name, Result (Interface::*operation)(Parameters...),
                       Fields... fields) {
    return requestWith<Answer<Result>>(code, name, operation, fields...);
}

template <size_t First, typename Field, typename Arguments, typename Use, size_t... Offset>
void useField(const Field& field, const Arguments& arguments, const Use& use,
              std::index_sequence<Offset...> /*carried*/) {
    use(field, std::get<First + Offset>(arguments)...);
}

/// Hands every field from number @p Field on to @p use, with its arguments, which begin at number @p First.
template <size_t Field, size_t First, typename... Fields, typename Arguments, typename Use>
void forEachField(const std::tuple<Fields...>& fields, const Arguments& arguments, const Use& use) {
    if constexpr (Field < sizeof...(Fields)) {
        const auto& field = std::get<Field>(fields);
        constexpr size_t kCarried = std::tuple_size_v<typename std::decay_t<decltype(field)>::Arguments>;
        useField<First>(field, arguments, use, std::make_index_sequence<kCarried>{});
        forEachField<Field + 1, First + kCarried>(fields, arguments, use);
    }
}

/// A proxy's operation: sends the row's request to @p remote and returns what the reply holds. Failed steps
/// are reported, and the rest is done regardless, so an empty reply gives 0, null or an empty string.
template <typename Row, typename... Arguments>
typename Row::Result call(const Manners& manners, const Row& row, const android::String16& descriptor,
                          android::IBinder* remote, const Arguments&... arguments) {
    android::Parcel data;
    android::Parcel reply;
    Writer out(manners, row.name, data);
    Reader in(manners, row.name, reply);
    out.step(data.writeInterfaceToken(descriptor));
    forEachField<0, 0>(row.fields, std::tie(arguments...),
                       [&out](const auto& field, const auto&... argument) {
                           if constexpr (!isInReply<decltype(field)>) field.write(out, argument...);
                       });
    out.step(remote->transact(row.code, data, &reply, 0));
    if (manners.replyHasHeader) in.step(reply.readExceptionCode(), "!reply.readExceptionCode()");
    forEachField<0, 0>(row.fields, std::tie(arguments...), [&in](const auto& field, const auto&... argument) {
        if constexpr (isInReply<decltype(field)>) field.readReply(in, argument...);
    });
    return Row::Reply::read(in);
}

template <typename Field>
GiveUp readSlot(Reader& in, typename Field::Slot& slot) {
    if constexpr (isInReply<Field>) {
        return kGoOn;
    } else {
        return slot.read(in);
    }
}

template <typename Field>
void answerFromSlot(Writer& out, typename Field::Slot& slot) {
    if constexpr (isInReply<Field>) slot.writeReply(out);
}

/// A stub's case, after the interface token: reads the fields, calls the stub's own operation, writes its
/// answer.
template <typename Operation, typename Result, typename ReplyKind, typename... Fields, typename Stub>
android::status_t serve(const Manners& manners, const Row<Operation, Result, ReplyKind, Fields...>& row,
                        Stub& stub, const android::Parcel& data, android::Parcel* reply) {
    Reader in(manners, "onTransact", data);
    Writer out(manners, "onTransact", *reply);
    std::tuple<typename Fields::Slot...> slots;
    GiveUp giveUp;
    const auto readAll = [&](auto&... slot) {
        static_cast<void>(((giveUp = readSlot<Fields>(in, slot), !giveUp.has_value()) && ...));
    };
    std::apply(readAll, slots);
    if (giveUp.has_value()) return *giveUp;
    const auto arguments = [](auto&... slot) { return std::tuple_cat(slot.arguments()...); };
    const auto operation = [&](auto&&... argument) -> Result {
        return (stub.*row.operation)(std::forward<decltype(argument)>(argument)...);
    };
    const Result result = std::apply(operation, std::apply(arguments, slots));
    std::apply([&out](auto&... slot) { (answerFromSlot<Fields>(out, slot), ...); }, slots);
    return ReplyKind::write(out, result, row.replyCheck).value_or(android::NO_ERROR);
}

/// What a stub does for one code.
template <typename Stub>
using Case = android::status_t (*)(const Manners& manners, Stub& stub, const android::Parcel& data,
                                   android::Parcel* reply);

/// The case of the row number @p kIndex. The rows are named, not passed: a name with the types of all of them
/// in it would be longer than tools can read.
template <const auto& kRows, size_t kIndex, typename Stub>
android::status_t serveRow(const Manners& manners, Stub& stub, const android::Parcel& data,
                           android::Parcel* reply) {
    constexpr const auto& kRow = std::get<kIndex>(kRows);
    if (!data.checkInterface(&stub)) return android::PERMISSION_DENIED;
    return serve(manners, kRow, stub, data, reply);
}

/// The cases by their codes; null where no row has the code.
template <const auto& kRows, typename Stub, size_t... kIndex>
constexpr auto casesByCode(std::index_sequence<kIndex...> /*rows*/) {
    constexpr uint32_t kHighest = std::max({std::get<kIndex>(kRows).code...});
    std::array<Case<Stub>, kHighest + 1> cases{};
    ((cases[std::get<kIndex>(kRows).code] = &serveRow<kRows, kIndex, Stub>), ...);
    return cases;
}

/// Serves @p code by its row in @p kRows, after checking the interface token.
/// @return nothing when there is no such row; PERMISSION_DENIED for another interface's token.
template <const auto& kRows, typename Stub>
std::optional<android::status_t> dispatch(const Manners& manners, Stub& stub, uint32_t code,
                                          const android::Parcel& data, android::Parcel* reply) {
    constexpr size_t kCount = std::tuple_size_v<std::decay_t<decltype(kRows)>>;
    static constexpr auto kCases = casesByCode<kRows, Stub>(std::make_index_sequence<kCount>{});
    if (code >= kCases.size() || kCases[code] == nullptr) return std::nullopt;
    return kCases[code](manners, stub, data, reply);
}

}  // namespace accessory::wire
