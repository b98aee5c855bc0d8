// What holds for the fields of every record with a mask: each bit alone, all, none, bits without a field.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/FieldValues.h"
#include "tests/AppleiAP2/records/MediaLibrarySamples.h"
#include "tests/AppleiAP2/records/NowPlayingSamples.h"
#include "tests/AppleiAP2/records/PowerSamples.h"
#include "tests/AppleiAP2/records/RecordMask.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::Parcel;
using android::sp;

template <typename Sample>
class RecordFields : public testing::Test {
  protected:
    using Table = typename Sample::Table;
    using Record = typename Table::Parcelable;

    const sp<Record> mFilled = Sample::filled();
    const std::vector<FieldWords> mWords = Sample::words();

    /// The bits of all fields.
    uint32_t allBits() const {
        uint32_t bits = 0;
        for (const FieldWords& field : mWords)
            bits |= 1u << field.bit;
        return bits;
    }

    /// The parcel form spelt by hand: @p mask and the words of its fields.
    Words spelt(uint32_t mask) const {
        Words words;
        words.i32(mask);
        for (const FieldWords& field : mWords) {
            if ((mask >> field.bit & 1) != 0) words += field.words;
        }
        return words;
    }

    /// What the filled record becomes in a parcel when its mask is @p mask.
    Words written(uint32_t mask) const {
        maskOf(*mFilled) = mask;
        Parcel parcel;
        writeTo(&parcel, mFilled);
        return wordsOf(parcel);
    }

    static sp<Record> read(const Parcel& parcel) { return Record::FromParcel(parcel); }
};

using Samples = testing::Types<MediaItemSample, MediaPlaylistSample, ItemAttributeSample, MediaPlaybackSample,
                               PowerUpdateSample, RouteGuidanceSample, ManeuverSample, LaneGuidanceSample>;

struct SampleNames {
    template <typename Sample>
    static std::string GetName(int) {
        return Sample::Table::kName;
    }
};

TYPED_TEST_SUITE(RecordFields, Samples, SampleNames);

TYPED_TEST(RecordFields, HaveOneRowForEachSampledBit) {
    const auto rows = describe(TypeParam::Table::kFields);
    ASSERT_EQ(this->mWords.size(), rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(1u << this->mWords[i].bit, rows[i].bit) << rows[i].name;
        EXPECT_STRNE("", rows[i].kind) << rows[i].name;
    }
}

TYPED_TEST(RecordFields, AreAbsentInANewRecord) {
    const sp<typename TestFixture::Record> record = new typename TestFixture::Record;
    EXPECT_EQ(0u, record->getMask());
    EXPECT_TRUE(hasExactly<typename TypeParam::Table>(0, *record, *this->mFilled));
}

TYPED_TEST(RecordFields, AreMarkedPresentByTheirSetters) {
    EXPECT_EQ(this->allBits(), this->mFilled->getMask());
}

TYPED_TEST(RecordFields, AreWrittenAloneAfterTheMask) {
    for (const FieldWords& field : this->mWords) {
        EXPECT_EQ(this->spelt(1u << field.bit), this->written(1u << field.bit)) << "bit " << field.bit;
    }
}

TYPED_TEST(RecordFields, AreWrittenInAscendingBitOrder) {
    EXPECT_EQ(this->spelt(this->allBits()), this->written(this->allBits()));
}

TYPED_TEST(RecordFields, AreNotWrittenWhenTheMaskIsZero) { EXPECT_EQ(Words().i32(0), this->written(0)); }

TYPED_TEST(RecordFields, HaveNoWordsForBitsWithoutAField) {
    for (int bit = 0; bit < 32; ++bit) {
        const uint32_t mask = 1u << bit;
        if ((mask & this->allBits()) != 0) continue;
        EXPECT_EQ(Words().i32(mask), this->written(mask)) << "bit " << bit;
    }
    EXPECT_EQ(this->spelt(~0u), this->written(~0u));
}

TYPED_TEST(RecordFields, AreReadAlone) {
    for (const FieldWords& field : this->mWords) {
        Parcel parcel;
        this->spelt(1u << field.bit).putInto(parcel);
        const auto record = this->read(parcel);
        ASSERT_NE(nullptr, record) << "bit " << field.bit;
        EXPECT_EQ(1u << field.bit, record->getMask());
        EXPECT_TRUE(hasExactly<typename TypeParam::Table>(1u << field.bit, *record, *this->mFilled))
            << "bit " << field.bit << " gave " << toString(*record);
        EXPECT_EQ(0u, parcel.dataAvail()) << "bit " << field.bit;
    }
}

TYPED_TEST(RecordFields, AreReadTogetherAndBitsWithoutAFieldKept) {
    Parcel parcel;
    this->spelt(~0u).putInto(parcel);
    const auto record = this->read(parcel);
    ASSERT_NE(nullptr, record);
    EXPECT_EQ(~0u, record->getMask());
    EXPECT_TRUE(hasExactly<typename TypeParam::Table>(~0u, *record, *this->mFilled)) << toString(*record);
    EXPECT_EQ(0u, parcel.dataAvail());
}

TYPED_TEST(RecordFields, AreReadFromTheParcelsPositionAndLeaveItAfterTheRecord) {
    Words words;
    words.i32(77);
    words += this->spelt(this->allBits());
    words.i32(88);
    Parcel parcel;
    words.putInto(parcel);
    parcel.setDataPosition(4);
    ASSERT_NE(nullptr, this->read(parcel));
    EXPECT_EQ(88, parcel.readInt32());
}

TYPED_TEST(RecordFields, ReadAsAbsentFromTheFieldOnAtWhichTheParcelEnds) {
    uint32_t before = 0;
    for (const FieldWords& field : this->mWords) {
        Parcel parcel;
        this->spelt(this->allBits()).putInto(parcel, this->spelt(before).size());
        const auto record = this->read(parcel);
        ASSERT_NE(nullptr, record) << "bit " << field.bit;
        EXPECT_EQ(this->allBits(), record->getMask());
        EXPECT_TRUE(hasExactly<typename TypeParam::Table>(before, *record, *this->mFilled))
            << "cut before bit " << field.bit << " gave " << toString(*record);
        before |= 1u << field.bit;
    }
}

TYPED_TEST(RecordFields, SurviveAParcelCutAtAnyByte) {
    const Words whole = this->spelt(this->allBits());
    for (size_t size = 0; size < whole.size(); ++size) {
        Parcel parcel;
        whole.putInto(parcel, size);
        const auto record = this->read(parcel);
        ASSERT_NE(nullptr, record) << size << " bytes";
        EXPECT_EQ(size < 4 ? 0 : this->allBits(), record->getMask()) << size << " bytes";
        EXPECT_THAT(toString(*record), testing::StartsWith(TypeParam::Table::kName)) << size << " bytes";
        uint32_t before = 0;  // fields that came whole are what they were
        for (const FieldWords& field : this->mWords) {
            if (this->spelt(before | 1u << field.bit).size() > size) break;
            before |= 1u << field.bit;
        }
        everyFieldIn(before, TypeParam::Table::kFields, [&](const auto& row) {
            EXPECT_TRUE(sameValue(std::invoke(row.get, *record), std::invoke(row.get, *this->mFilled)))
                << row.name << " in " << size << " bytes";
            return true;
        });
    }
}

TYPED_TEST(RecordFields, ReadBackAsWrittenForEveryPairOfBits) {
    for (const FieldWords& one : this->mWords) {
        for (const FieldWords& other : this->mWords) {
            const uint32_t mask = 1u << one.bit | 1u << other.bit;
            maskOf(*this->mFilled) = mask;
            Parcel parcel;
            writeTo(&parcel, this->mFilled);
            parcel.setDataPosition(0);
            const auto record = this->read(parcel);
            ASSERT_NE(nullptr, record);
            EXPECT_TRUE(hasExactly<typename TypeParam::Table>(mask, *record, *this->mFilled))
                << std::hex << mask << " gave " << toString(*record);
        }
    }
}

TYPED_TEST(RecordFields, PointIntoTheParcelWhereTheyAreStrings) {
    Parcel parcel;
    this->spelt(this->allBits()).putInto(parcel);
    const auto record = this->read(parcel);
    ASSERT_NE(nullptr, record);
    const auto* begin = reinterpret_cast<const char*>(parcel.data());
    everyFieldIn(~0u, TypeParam::Table::kFields, [&](const auto& row) {
        if constexpr (std::is_same_v<const char*, decltype(std::invoke(row.get, *record))>) {
            const char* string = std::invoke(row.get, *record);
            EXPECT_GE(string, begin) << row.name;
            EXPECT_LT(string, begin + parcel.dataSize()) << row.name;
        }
        return true;
    });
}

TYPED_TEST(RecordFields, AreAskedOfAnyImplementationInTheOrderOfTheVirtualTable) {
    EXPECT_EQ(this->spelt(~0u), writtenApart<TypeParam>(~0u));
    EXPECT_EQ(Words().i32(0), writtenApart<TypeParam>(0));
}

TYPED_TEST(RecordFields, LogEveryWriteThatFailsAndGoOn) {
    Parcel parcel;
    parcel.setError(android::NO_MEMORY);
    const LogCatcher log;
    writeTo(&parcel, this->mFilled);
    constexpr bool kOfManager = std::is_base_of_v<iAP2MediaLibGroupData, typename TestFixture::Record>;
    const char* tag = kOfManager ? "IAppleiAP2Manager" : "IAppleiAP2ManagerNotifier";
    auto lines = log.lines();
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const LogLine& line) { return line.priority < ANDROID_LOG_ERROR; }),
                lines.end());
    EXPECT_EQ(TypeParam::kWrites, lines.size());
    EXPECT_THAT(lines, testing::Each(LoggedStatusCheck(tag, "writeToParcel")));
    EXPECT_EQ(0u, parcel.dataSize());
}

}  // namespace
}  // namespace accessory::test
