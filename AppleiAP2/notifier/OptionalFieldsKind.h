// Events that are a row of optional fields: call state and communications.
#pragma once

#include <accessory/AppleiAP2Types.h>

#include <array>
#include <cstdint>
#include <tuple>

#include "common/Kinds.h"

namespace accessory::wire::iap2_notifier {

/// Where a received field's value is kept while its pointer is handed out.
union FieldValue {
    int64_t i64;
    int32_t i32;
    uint8_t u8;
    bool flag;
};

/// One write and one read for each type of field: a presence word, and the value when there is one.
void writeOptional(Writer& out, const char* field);
void writeOptional(Writer& out, const int32_t* field);
void writeOptional(Writer& out, const int64_t* field);
void writeOptional(Writer& out, const uint8_t* field);
void writeOptional(Writer& out, const bool* field);
void readOptional(Reader& in, FieldValue* value, const char** field);
void readOptional(Reader& in, FieldValue* value, const int32_t** field);
void readOptional(Reader& in, FieldValue* value, const int64_t** field);
void readOptional(Reader& in, FieldValue* value, const uint8_t** field);
void readOptional(Reader& in, FieldValue* value, const bool** field);

inline constexpr auto kCallStateFields = std::tuple(
    &CallStateUpdateParam::field1, &CallStateUpdateParam::field2, &CallStateUpdateParam::field3,
    &CallStateUpdateParam::field4, &CallStateUpdateParam::field5, &CallStateUpdateParam::field6,
    &CallStateUpdateParam::field7, &CallStateUpdateParam::field8, &CallStateUpdateParam::field9,
    &CallStateUpdateParam::field10, &CallStateUpdateParam::field11, &CallStateUpdateParam::field12);

inline constexpr auto kCommunicationsFields =
    std::tuple(&CommunicationsUpdateParam::field1, &CommunicationsUpdateParam::field2,
               &CommunicationsUpdateParam::field3, &CommunicationsUpdateParam::field4,
               &CommunicationsUpdateParam::field5, &CommunicationsUpdateParam::field6,
               &CommunicationsUpdateParam::field7, &CommunicationsUpdateParam::field8,
               &CommunicationsUpdateParam::field9, &CommunicationsUpdateParam::field10,
               &CommunicationsUpdateParam::field11, &CommunicationsUpdateParam::field12,
               &CommunicationsUpdateParam::field13, &CommunicationsUpdateParam::field14,
               &CommunicationsUpdateParam::field15, &CommunicationsUpdateParam::field16,
               &CommunicationsUpdateParam::field17);

/// A structure of optional fields, @p kFields in the order in which they travel.
template <typename Param, const auto& kFields>
struct OptionalFields {
    static constexpr size_t kCount = std::tuple_size_v<std::decay_t<decltype(kFields)>>;

    static void write(Writer& out, const Param& param) {
        std::apply([&](auto... field) { (writeOptional(out, param.*field), ...); }, kFields);
    }

    Param param;
    std::array<FieldValue, kCount> values{};

    void read(Reader& in) {
        FieldValue* value = values.data();
        std::apply([&](auto... field) { (readOptional(in, value++, &(param.*field)), ...); }, kFields);
    }
};

struct CallState {
    static constexpr const char* kKind = "call state";
    using Arguments = std::tuple<CallStateUpdateParam&>;
    using Fields = OptionalFields<CallStateUpdateParam, kCallStateFields>;

    const char* name = nullptr;

    static void write(Writer& out, const CallStateUpdateParam& param) { Fields::write(out, param); }

    struct Slot : Fields {
        GiveUp read(Reader& in) {
            Fields::read(in);
            return kGoOn;
        }
        Arguments arguments() { return {param}; }
    };
};

struct Communications {
    static constexpr const char* kKind = "communications";
    using Arguments = std::tuple<CommunicationsUpdateParam*>;
    using Fields = OptionalFields<CommunicationsUpdateParam, kCommunicationsFields>;

    const char* name = nullptr;

    /// A null structure cannot be written: that is reported, and all fields travel as absent.
    static void write(Writer& out, const CommunicationsUpdateParam* param) {
        if (param == nullptr) out.step(android::BAD_VALUE);
        Fields::write(out, param != nullptr ? *param : CommunicationsUpdateParam());
    }

    struct Slot : Fields {
        GiveUp read(Reader& in) {
            Fields::read(in);
            return kGoOn;
        }
        Arguments arguments() { return {&param}; }
    };
};

constexpr CallState callState(const char* name) { return {name}; }
constexpr Communications communications(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_notifier
