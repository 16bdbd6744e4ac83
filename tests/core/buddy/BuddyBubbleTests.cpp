#include "core/buddy/BuddyBubble.h"
#include "tests/Matchers.h"
#include "tests/core/buddy/Notices.h"

namespace ambrel {
namespace {

using enum BuddyRule;

BuddyBubble offered(const std::vector<BuddyNotice>& notices) {
  BuddyBubble bubble;
  for (const BuddyNotice& one : notices) bubble.offer(one, after(0));
  bubble.present(after(0));
  return bubble;
}

std::string shownID(const BuddyBubble& bubble) { return bubble.isShown ? bubble.shown->id : ""; }

TEST(BuddyBubble, AnUrgentNoticeStaysAndOthersCloseAfterEightSeconds) {
  EXPECT_EQ(offered({notice("a", agentNeedsInput)}).closesAt, std::nullopt);
  BuddyBubble bubble = offered({notice("a", diskLow), notice("b", water)});
  EXPECT_EQ(bubble.closesAt, after(8));
  bubble.tick(after(7.9));
  EXPECT_EQ(shownID(bubble), "a");
  bubble.tick(after(8));
  EXPECT_EQ(shownID(bubble), "b");
  EXPECT_EQ(bubble.closesAt, after(16));
  EXPECT_EQ(bubble.showings, 2);
  bubble.tick(after(16));
  EXPECT_EQ(shownID(bubble), "");
  EXPECT_EQ(bubble.closesAt, std::nullopt);
}

TEST(BuddyBubble, WhatIsShownOrWaitsIsNotSaidTwice) {
  BuddyBubble bubble = offered({notice("a", agentNeedsInput, 0, "s"), notice("b", agentNeedsInput, 0, "t")});
  for (const char* id : {"a", "b"}) bubble.offer(notice(id, agentNeedsInput, 290, std::string(id)), after(290));
  bubble.present(after(290));
  EXPECT_EQ(shownID(bubble), "a");
  EXPECT_EQ(bubble.showings, 1) << "the bar does not come out again";
  EXPECT_EQ(bubble.shown->date, after(290));
  ASSERT_THAT(bubble.queue.pending, SizeIs(1));
  bubble.close(after(320));
  EXPECT_EQ(shownID(bubble), "b") << "it was raised half a minute ago";
}

TEST(BuddyBubble, TheEndOfItsCauseTakesItAwayUnlessTheUserHoldsIt) {
  BuddyBubble bubble = offered({notice("a", agentNeedsInput), notice("b", agentNeedsInput), notice("c", water)});
  bubble.setPointed(true, after(1));
  bubble.withdraw({"a", "c"}, after(10));
  EXPECT_EQ(shownID(bubble), "a");
  EXPECT_THAT(bubble.queue.pending, SizeIs(1));
  bubble.setPointed(false, after(11));
  EXPECT_EQ(bubble.closesAt, after(13)) << "urgent as it was, it has nothing more to say";
  bubble.tick(after(13));
  EXPECT_EQ(shownID(bubble), "b");
  bubble.withdraw({"b"}, after(30));
  EXPECT_EQ(shownID(bubble), "");
}

TEST(BuddyBubble, WhatIsSwitchedOffGoesShownOrWaiting) {
  BuddyBubble bubble = offered({notice("a", agentNeedsInput), notice("b", diskLow), notice("c", water)});
  BuddyPolicy policy;
  policy.categories.erase(BuddyCategory::agents);
  policy.level = BuddyLevel::important;
  bubble.apply(policy, after(5));
  EXPECT_EQ(shownID(bubble), "b");
  EXPECT_THAT(bubble.queue.pending, SizeIs(0));
  policy.level = BuddyLevel::off;
  bubble.apply(policy, after(6));
  EXPECT_EQ(shownID(bubble), "");
  bubble.present(after(7));
  EXPECT_EQ(shownID(bubble), "");
}

TEST(BuddyBubble, TheChoiceStaysWithinWhatIsThere) {
  BuddyBubble bubble = offered({notice("a", batteryCritical), notice("b", water)});
  bubble.setReached(true, after(1));
  bubble.moveChoice(-1);
  ASSERT_THAT(bubble.choices(), SizeIs(3));
  EXPECT_EQ(bubble.choices()[*bubble.choice].kind, BuddyBubble::Choice::Kind::close);
  bubble.withdraw({"b"}, after(2));
  ASSERT_THAT(bubble.choices(), SizeIs(2));
  EXPECT_EQ(bubble.choices()[*bubble.choice].kind, BuddyBubble::Choice::Kind::close);
}

TEST(BuddyBubble, ClosesAfterTheSameTimeWhenTheClockIsSet) {
  BuddyBubble bubble = offered({notice("a", diskLow)});
  bubble.clockMoved(Seconds(-3600));
  bubble.tick(after(-3600 + 7.9));
  EXPECT_EQ(shownID(bubble), "a");
  bubble.tick(after(-3600 + 8));
  EXPECT_EQ(shownID(bubble), "");
}

}  // namespace
}  // namespace ambrel
