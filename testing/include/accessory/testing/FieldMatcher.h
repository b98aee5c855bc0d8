// FieldMatcher: what the matchers of single fields in <accessory/testing/RecordMatchers.h> are made of.
#pragma once

#include <accessory/testing/RecordPrinters.h>
#include <gmock/gmock.h>

#include <optional>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

namespace accessory::testkit {

/// @name Of records
/// @{

/// Which class names the bits of a record's mask. Never defined: only their types are looked at.
iAP2ItemAttributeMask* bitsOf(const iAP2ItemAttribute&);
iAP2MediaPlaybackMask* bitsOf(const iAP2MediaPlayback&);
iAP2PowerUpdateMask* bitsOf(const iAP2PowerUpdate&);
MediaItemMask* bitsOf(const iAP2MediaItem&);
MediaPlaylistMask* bitsOf(const iAP2MediaPlaylist&);
MediaLibDataMask* bitsOf(const iAP2MediaLibData&);
RouteGuidaceUpdateInfo* bitsOf(const RouteGuidaceUpdateInfo&);
RuoteGuidanceManeuverUpdateInfo* bitsOf(const RuoteGuidanceManeuverUpdateInfo&);
LaneGuidanceInfo* bitsOf(const LaneGuidanceInfo&);

/// @}

/// @name What a matcher is given
/// @{

/// Matchers take a record itself, or whatever points to one; null for a null pointer.
template <typename Record>
const Record* recordIn(const android::sp<Record>& record) {
    return record.get();
}
template <typename Record>
const Record* recordIn(const Record& record) {
    return &record;
}

/// @}

/// @name What a field holds
/// @{

/// The value of a field as a matcher gets it: texts as std::string. Nothing for a null text.
template <typename Value>
std::optional<Value> presentValue(Value value) {
    return value;
}
inline std::optional<std::string> presentValue(const char* text) {
    return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
}

/// @}

/// Matches a record in which the field is present and has a value that matches.
/// @tparam Field    a name, and how to get the value and the bit; ACCESSORY_RECORD_FIELD makes them.
/// @tparam Expected a value or a matcher of values.
template <typename Field, typename Expected>
class FieldMatcher {
  public:
    /// @param expected held; copied into every matcher.
    explicit FieldMatcher(Expected expected) : mExpected(std::move(expected)) {}

    /// The matcher of records, or of pointers to them.
    template <typename Given>
    // NOLINTNEXTLINE(google-explicit-constructor): this is how a polymorphic matcher becomes one of a type
    operator testing::Matcher<Given>() const {
        return testing::Matcher<Given>(new Typed<Given>(mExpected));
    }

  private:
    template <typename Given>
    class Typed : public testing::MatcherInterface<Given> {
      public:
        explicit Typed(const Expected& expected) : mValue(testing::SafeMatcherCast<const Value&>(expected)) {}

        bool MatchAndExplain(Given given, testing::MatchResultListener* listener) const override {
            const auto* const record = recordIn(given);
            if (record == nullptr) return *listener << "which is null", false;
            if ((record->getMask() & Field::bitIn(*record)) == 0)
                return *listener << "which has no " << Field::name, false;
            const auto value = Field::valueIn(*record);
            if (!value.has_value()) return *listener << "whose " << Field::name << " is null", false;
            *listener << "whose " << Field::name << " is " << testing::PrintToString(*value);
            return mValue.Matches(*value);
        }

        void DescribeTo(std::ostream* out) const override {
            *out << "has a " << Field::name << " that ";
            mValue.DescribeTo(out);
        }

        void DescribeNegationTo(std::ostream* out) const override {
            *out << "has no " << Field::name << " that ";
            mValue.DescribeTo(out);
        }

      private:
        using Record = std::remove_pointer_t<decltype(recordIn(std::declval<const std::decay_t<Given>&>()))>;
        using Value = typename decltype(Field::valueIn(std::declval<const Record&>()))::value_type;

        const testing::Matcher<const Value&> mValue;
    };

    const Expected mExpected;
};

}  // namespace accessory::testkit
