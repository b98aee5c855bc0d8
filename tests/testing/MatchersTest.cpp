// The matchers of records: what they match, and what they say when they do not.
#include <accessory/testing/MediaLibraryBuilders.h>
#include <accessory/testing/NowPlayingBuilders.h>
#include <accessory/testing/PowerBuilders.h>
#include <accessory/testing/RecordMatchers.h>
#include <accessory/testing/RouteGuidanceBuilders.h>

namespace accessory::testkit {
namespace {

using android::sp;
using testing::ElementsAre;
using testing::Gt;
using testing::Not;
using testing::StartsWith;

using Item = sp<iAP2ItemAttribute>;

/// What a matcher says of a record that it was given.
template <typename Given, typename Matcher>
std::string explanation(const Matcher& matcher, const Given& given) {
    testing::StringMatchResultListener listener;
    testing::SafeMatcherCast<const Given&>(matcher).MatchAndExplain(given, &listener);
    return listener.str();
}

const Item kSong = ItemAttribute().title("First Light").artist("Clara Holm").durationInMillSec(41000);

TEST(FieldMatchers, MatchTextsAndNumbersByValueOrMatcher) {
    EXPECT_THAT(kSong, HasTitle("First Light"));
    EXPECT_THAT(kSong, HasTitle(StartsWith("First")));
    EXPECT_THAT(kSong, Not(HasTitle("Ring Road")));
    EXPECT_THAT(kSong, HasDurationInMillSec(41000));
    EXPECT_THAT(kSong, HasDurationInMillSec(Gt(40000)));
    EXPECT_THAT(*kSong, HasArtist("Clara Holm"));
}

TEST(FailedMatchers, ShowTheRecordAndNotItsBytes) {
    EXPECT_EQ(testing::PrintToString(kSong),
              "iAP2ItemAttribute{title: \"First Light\", durationInMillSec: 41000, artist: \"Clara Holm\"}");
    EXPECT_EQ(testing::PrintToString(*kSong), testing::PrintToString(kSong));
    const sp<IiAP2PowerUpdate> power = PowerUpdate().chargeLevel(80).build();
    EXPECT_EQ(testing::PrintToString(power), "iAP2PowerUpdate{chargeLevel: 80}");
    EXPECT_EQ(testing::PrintToString(Item()), "null");
}

TEST(FieldMatchers, MatchTheFieldOfThatNameInEveryRecord) {
    const sp<iAP2MediaItem> item = MediaItem().id(7).title("First Light");
    EXPECT_THAT(item, HasTitle("First Light"));
    EXPECT_THAT(item, HasId(7));
    const sp<IiAP2MediaLibData> update = MediaLibUpdate().id("LIB").build();
    EXPECT_THAT(update, HasId("LIB"));
    const sp<iAP2MediaPlayback> playback = MediaPlayback().stats(1);
    EXPECT_THAT(playback, HasStats(1));
}

TEST(FieldMatchers, MatchLists) {
    const sp<RouteGuidaceUpdateInfo> route = RouteGuidance().displayID({1, 2});
    EXPECT_THAT(route, HasDisplayID(ElementsAre(1, 2)));
    EXPECT_THAT(route, Not(HasDisplayID(ElementsAre(2, 1))));
}

TEST(FieldMatchers, DoNotMatchWhatIsNotThere) {
    EXPECT_THAT(kSong, Not(HasGenre("")));
    EXPECT_THAT(kSong, Not(HasIsLiked(0)));
    EXPECT_THAT(Item(), Not(HasTitle("First Light")));
    const sp<IiAP2ItemAttribute> nameless = new IiAP2ItemAttribute;
    nameless->setTitle(nullptr);
    EXPECT_THAT(nameless, Not(HasTitle(testing::_)));
}

TEST(FieldMatchers, SayWhatTheRecordHas) {
    EXPECT_EQ(explanation(HasTitle("Ring Road"), kSong), "whose Title is \"First Light\"");
    EXPECT_EQ(explanation(HasGenre("Folk"), kSong), "which has no Genre");
    EXPECT_EQ(explanation(HasGenre("Folk"), Item()), "which is null");
    const testing::Matcher<Item> matcher = HasTitle("Ring Road");
    EXPECT_EQ(testing::DescribeMatcher<Item>(matcher), "has a Title that is equal to \"Ring Road\"");
    EXPECT_EQ(testing::DescribeMatcher<Item>(Not(matcher)), "has no Title that is equal to \"Ring Road\"");
}

TEST(RecordEquality, HoldsForTheSameFieldsWithTheSameValues) {
    const ItemAttribute same =
        ItemAttribute().artist("Clara Holm").title("First Light").durationInMillSec(41000);
    EXPECT_THAT(kSong, SameRecordAs(same));
    EXPECT_THAT(*kSong, SameRecordAs(kSong));
    EXPECT_THAT(kSong, Not(SameRecordAs(ItemAttribute().title("First Light"))));
    EXPECT_THAT(Item(), Not(SameRecordAs(kSong)));
    EXPECT_THAT(Item(), SameRecordAs(Item()));
}

TEST(RecordEquality, ListsWhatDiffersFieldByField) {
    const Item other = ItemAttribute().title("Ring, {Road} \"2\"").artist("Clara Holm").genre("Folk");
    EXPECT_EQ(explanation(SameRecordAs(kSong), other),
              "durationInMillSec is missing, title is \"Ring, {Road} \\\"2\\\"\" instead of \"First Light\", "
              "genre should not be there (\"Folk\")");
    EXPECT_EQ(explanation(SameRecordAs(kSong), kSong), "");
    EXPECT_EQ(explanation(SameRecordAs(kSong), Item()), "which is null");
}

TEST(RecordEquality, TakesAListForOneField) {
    const sp<RouteGuidaceUpdateInfo> route = RouteGuidance().displayID({1, 2}).currentRoadName("Mill Lane");
    EXPECT_EQ(
        explanation(SameRecordAs(RouteGuidance().displayID({1, 3}).currentRoadName("Mill Lane")), route),
        "displayID is [1, 2] instead of [1, 3]");
}

}  // namespace
}  // namespace accessory::testkit
