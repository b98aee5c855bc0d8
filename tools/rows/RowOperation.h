// RowOperation: an Operation made from a row.
#pragma once

#include <stdexcept>
#include <type_traits>
#include <utility>

#include "common/RowInfo.h"
#include "common/Rows.h"
#include "tools/rows/FieldCodec.h"
#include "tools/rows/Operation.h"

namespace accessory::tools {

inline Json::Value resultToJson(int result) { return result; }
inline Json::Value resultToJson(const char* result) { return textToJson(result); }
inline Json::Value resultToJson(const android::String8& result) { return textToJson(result.string()); }

/// The part that needs no types.
class DescribedOperation : public Operation {
  protected:
    DescribedOperation(const wire::OperationInfo& info, const wire::Manners& manners,
                       const android::String16& descriptor);

    void describeField(FieldDescription described, const wire::FieldInfo& info);
    /// Refuses what is no field of the request, and what is missing.
    void checkNames(const Json::Value& arguments) const;
    void skipRequestHeader(const android::Parcel& request) const;
    void skipReplyHeader(const android::Parcel& reply) const;
    /// Throws when @p reply has no words left for the result.
    static void checkResult(const android::Parcel& reply);
    [[noreturn]] static void giveUp(const char* field, android::status_t status);

    const wire::Manners& mManners;
    const android::String16& mDescriptor;
};

template <typename Row>
class RowOperation;

template <typename Pointer, typename Result, typename ReplyKind, typename... Fields>
class RowOperation<wire::Row<Pointer, Result, ReplyKind, Fields...>> final : public DescribedOperation {
  public:
    using Row = wire::Row<Pointer, Result, ReplyKind, Fields...>;

    RowOperation(const Row& row, const wire::Manners& manners, const android::String16& descriptor)
        : DescribedOperation(wire::describe(row), manners, descriptor), mRow(row) {
        result = std::is_same_v<Result, int> ? "a number" : "a text";
        const wire::OperationInfo info = wire::describe(row);
        forFields([&](const auto& field) {
            const auto position = static_cast<unsigned>(fields.size());
            describeField(Codec<decltype(field)>::describe(field, position), info.fields[position]);
        });
    }

    void encode(const Json::Value& arguments, android::Parcel* request) const override {
        checkNames(arguments);
        Keeper keeper;
        Writer out(mManners, mRow.name, *request);
        out.step(request->writeInterfaceToken(mDescriptor));
        forFields([&](const auto& field) {
            if constexpr (!wire::isInReply<decltype(field)>) {
                Codec<decltype(field)>::write(field, out, arguments[field.name], &keeper);
            }
        });
    }

    Json::Value decodeRequest(const android::Parcel& request) const override {
        skipRequestHeader(request);
        Reader in(mManners, mRow.name, request);
        Json::Value named(Json::objectValue);
        std::tuple<typename Fields::Slot...> slots;
        try {
            readSlots(in, &slots, &named, std::index_sequence_for<Fields...>());
        } catch (const std::logic_error& error) {  // leaves a stub as well, when a std::string is missing
            throw UndecodableParcel(error.what(), android::UNKNOWN_ERROR);
        }
        return named;
    }

    Json::Value decodeReply(const android::Parcel& reply) const override {
        skipReplyHeader(reply);
        Reader in(mManners, mRow.name, reply);
        Json::Value named(Json::objectValue);
        forFields([&](const auto& field) {
            if constexpr (wire::isInReply<decltype(field)>) {
                named[field.name] = Codec<decltype(field)>::readReply(field, in);
            }
        });
        if constexpr (!std::is_same_v<Result, const char*>) checkResult(reply);
        named["result"] = resultToJson(ReplyKind::read(in));
        return named;
    }

  private:
    template <typename Field>
    using Codec = FieldCodec<std::decay_t<Field>>;

    template <typename Use>
    void forFields(const Use& use) const {
        std::apply([&use](const auto&... field) { (use(field), ...); }, mRow.fields);
    }

    template <size_t... Index>
    void readSlots([[maybe_unused]] Reader& in, [[maybe_unused]] std::tuple<typename Fields::Slot...>* slots,
                   [[maybe_unused]] Json::Value* named, std::index_sequence<Index...> /*fields*/) const {
        (readSlot(in, std::get<Index>(mRow.fields), std::get<Index>(*slots), named), ...);
    }

    template <typename Field>
    static void readSlot(Reader& in, const Field& field, typename Field::Slot& slot, Json::Value* named) {
        if constexpr (!wire::isInReply<Field>) {
            Codec<Field>::guard(in);
            if (const wire::GiveUp given = slot.read(in); given.has_value()) giveUp(field.name, *given);
            const auto show = [](auto&&... argument) { return Codec<Field>::show(argument...); };
            (*named)[field.name] = std::apply(show, slot.arguments());
        }
    }

    const Row mRow;
};

/// Appends an operation for every row.
template <typename... Rows>
void addOperations(Interface* interface, const std::tuple<Rows...>& rows, const wire::Manners& manners,
                   const android::String16& descriptor) {
    const auto add = [&](const auto& row) {
        interface->operations.push_back(
            std::make_unique<RowOperation<std::decay_t<decltype(row)>>>(row, manners, descriptor));
    };
    std::apply([&add](const auto&... row) { (add(row), ...); }, rows);
}

template <typename... Rows>
Interface makeInterface(const char* name, bool isNotifier, const std::tuple<Rows...>& rows,
                        const wire::Manners& manners, const android::String16& descriptor) {
    Interface made;
    made.name = name;
    made.descriptor = android::String8(descriptor).string();
    made.isNotifier = isNotifier;
    made.replyHasHeader = manners.replyHasHeader;
    addOperations(&made, rows, manners, descriptor);
    return made;
}

}  // namespace accessory::tools
