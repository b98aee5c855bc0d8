// RecordBuilder: makes a record in one expression, where a test needs one.
//
//     notifier.nowPlayingUpdate(1, ItemAttribute().title(name).artist("Clara Holm"), MediaPlayback());
//
// The builders have a function per setter of the record, which sets the value and the bit. Other than the
// records, which borrow their strings, a built one owns them.
#pragma once

#include <accessory/testing/RecordPrinters.h>
#include <utils/RefBase.h>

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace accessory::testkit {

/// A text that a builder takes: a literal, a std::string, or null, which a receiver must expect although the
/// bit is set.
class Text {
  public:
    /// @param text may be null; copied.
    // NOLINTNEXTLINE(google-explicit-constructor): a text is written where a text is expected
    Text(const char* text) {
        if (text != nullptr) mText = text;
    }

    /// @param text copied.
    // NOLINTNEXTLINE(google-explicit-constructor): likewise
    Text(const std::string& text) : mText(text) {}

    const std::optional<std::string>& value() const { return mText; }  ///< nothing for null

  private:
    std::optional<std::string> mText;
};

/// Base of the builders.
/// @tparam Parcelable the record that is built.
template <typename Parcelable>
class RecordBuilder {
  public:
    using Record = Parcelable;  ///< what is built

    /// The record itself; one builder makes one, whatever is set on it later.
    android::sp<Parcelable> build() const { return mRecord; }

    /// A builder stands wherever its record, or the plain record of that, is expected.
    template <typename Plain, typename = std::enable_if_t<std::is_convertible_v<Parcelable*, Plain*>>>
    // NOLINTNEXTLINE(google-explicit-constructor): a builder is written where its record is meant
    operator android::sp<Plain>() const {
        return mRecord;
    }

  protected:
    /// Calls the record's setter. @return @p self.
    template <typename Builder, typename Setter, typename Value>
    Builder& set(Builder* self, Setter setter, const Value& value) {
        (mRecord.get()->*setter)(value);
        return *self;
    }

    /// Calls the setter of an array, which copies it. @return @p self.
    template <typename Builder, typename Setter, typename Entry>
    Builder& setList(Builder* self, Setter setter, const std::vector<Entry>& values) {
        (mRecord.get()->*setter)(values.data(), static_cast<uint32_t>(values.size()));
        return *self;
    }

    /// A copy of @p given that lives as long as the record; null for null.
    const char* text(const Text& given) {
        return given.value() ? mRecord->texts.emplace_back(*given.value()).c_str() : nullptr;
    }

  private:
    struct Owning : Parcelable {
        std::deque<std::string> texts;  ///< never moved once they are there
    };

    const android::sp<Owning> mRecord{new Owning};
};

/// What a client asks for: maskOf<iAP2ItemAttributeMask>(iAP2ItemAttributeMask::kTitle).
template <typename Mask>
android::sp<Mask> maskOf(uint32_t bits) {
    const android::sp<Mask> mask = new Mask;
    mask->mask = bits;
    return mask;
}

}  // namespace accessory::testkit
