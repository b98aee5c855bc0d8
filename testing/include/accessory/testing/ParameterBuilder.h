// Parameter: makes an argument structure in one expression, where a test needs one.
//
//     using Call = CallStateUpdateParam;
//     broadcaster->CallStateUpdate(1, Parameter<Call>().with(&Call::field2, "Ben Falk").with(&Call::field3,
//     2));
#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace accessory::testkit {

/// Owns what the structure's pointers point to; the structure is valid as long as this builder.
template <typename Struct>
class Parameter {
  public:
    /// A text, which is copied.
    Parameter& with(const char* Struct::*field, const std::string& text) {
        mStruct.*field = keep(text)->c_str();
        return *this;
    }

    /// A value behind a pointer.
    template <typename Value>
    Parameter& with(const Value* Struct::*field, const std::common_type_t<Value>& value) {
        mStruct.*field = keep(value).get();
        return *this;
    }

    /// A value in the structure itself.
    template <typename Value, typename = std::enable_if_t<!std::is_pointer_v<Value>>>
    Parameter& with(Value Struct::*field, const std::common_type_t<Value>& value) {
        mStruct.*field = value;
        return *this;
    }

    /// For operations that take a reference.
    // NOLINTNEXTLINE(google-explicit-constructor): a builder is written where its structure is meant
    operator Struct&() { return mStruct; }

    /// For operations that take a pointer.
    // NOLINTNEXTLINE(google-explicit-constructor): likewise
    operator Struct*() { return &mStruct; }

  private:
    template <typename Value>
    std::shared_ptr<const Value> keep(const Value& value) {
        auto kept = std::make_shared<const Value>(value);
        mKept.push_back(kept);
        return kept;
    }

    Struct mStruct{};
    std::vector<std::shared_ptr<const void>> mKept;
};

}  // namespace accessory::testkit
