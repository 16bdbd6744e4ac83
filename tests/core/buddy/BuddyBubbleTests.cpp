#include "core/buddy/BuddyBubble.h"
#include "core/buddy/BuddyBubbleQueue.h"
#include "core/buddy/BuddyInbox.h"
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

std::string currentID(const BuddyBubbleQueue& queue) { return queue.current ? queue.current->id : ""; }

TEST(BuddyBubbleQueue, ShowsTheFirstNoticeAndLetsTheOthersWait) {
  BuddyBubbleQueue queue;
  EXPECT_FALSE(queue.offer(notice("a", diskLow)));
  EXPECT_FALSE(queue.offer(notice("b", diskLow)));
  EXPECT_FALSE(queue.offer(notice("c", water)));
  EXPECT_FALSE(queue.offer(notice("d", batteryLow)));
  EXPECT_EQ(currentID(queue), "a");
  EXPECT_THAT(ids(queue.pending), ElementsAre("b", "d", "c"));
}

TEST(BuddyBubbleQueue, GivesWayToWhatIsMoreUrgent) {
  BuddyBubbleQueue queue;
  queue.offer(notice("info", water));
  EXPECT_FALSE(queue.offer(notice("urgent", agentNeedsInput, 0, "s")));
  EXPECT_EQ(currentID(queue), "urgent");
  EXPECT_THAT(ids(queue.pending), ElementsAre("info"));
  queue.offer(notice("also urgent", batteryCritical));
  EXPECT_EQ(currentID(queue), "urgent") << "an equal one waits";
  EXPECT_THAT(ids(queue.pending), ElementsAre("also urgent", "info"));

  BuddyBubbleQueue displaced;
  for (const auto& [id, rule] : {std::pair{"first", diskLow}, {"second", batteryLow}, {"urgent", batteryCritical}})
    displaced.offer(notice(id, rule));
  EXPECT_THAT(ids(displaced.pending), ElementsAre("second", "first")) << "behind its equals";
}

TEST(BuddyBubbleQueue, HoldsFiveAtMostAndDropsTheLeast) {
  BuddyBubbleQueue queue;
  queue.offer(notice("current", agentNeedsInput));
  for (const char* id : {"1", "2", "3", "4", "5", "sixth"}) queue.offer(notice(id, diskLow));
  queue.offer(notice("low", water));
  EXPECT_THAT(ids(queue.pending), ElementsAre("1", "2", "3", "4", "5"));
  queue.offer(notice("urgent", meetingStart));
  EXPECT_THAT(ids(queue.pending), ElementsAre("urgent", "1", "2", "3", "4"));
}

TEST(BuddyBubbleQueue, SpeaksOnceOfASessionWithinHalfAMinute) {
  const std::tuple<double, double, const char*, bool> rows[] = {{0, 0, "s", true},   {0, 30, "s", true},
                                                                {30, 0, "s", true},  {0, 30.001, "s", false},
                                                                {31, 0, "s", false}, {0, 0, "t", false}};
  for (const auto& [first, second, session, isMerged] : rows) {
    BuddyBubbleQueue queue;
    queue.offer(notice("a", agentFinished, first, "s"));
    EXPECT_EQ(queue.offer(notice("b", agentStopped, second, session)), isMerged);
    EXPECT_THAT(queue.pending, SizeIs(isMerged ? 0 : 1));
    EXPECT_EQ(queue.current->detail, isMerged ? "Detail a. Also: Title b." : "Detail a.");
  }
}

TEST(BuddyBubbleQueue, MergesWithWhatWaitsToo) {
  BuddyBubbleQueue queue;
  queue.offer(notice("urgent", batteryCritical));
  queue.offer(notice("other", agentFinished, 0, "t"));
  queue.offer(notice("a", agentFinished, 0, "s"));
  EXPECT_FALSE(queue.offer(notice("b", agentNeedsInput, 20, "s")));
  EXPECT_EQ(currentID(queue), "urgent");
  // What has waited keeps its place, however urgent it has become.
  EXPECT_THAT(ids(queue.pending), ElementsAre("other", "b"));
  EXPECT_EQ(queue.pending[1].detail, "Detail b. Also: Title a.");
}

TEST(BuddyBubbleQueue, MergesUnderTheLeadOfTheFirstUnlessTheSecondIsMoreUrgent) {
  const BuddyNotice a = notice("a", agentFinished, 20, "s", after(100));
  BuddyNotice b = notice("b", agentStopped, 10, "s");
  b.actions = {BuddyActions::OpenAgent{AgentKind::codex}};

  BuddyNotice expected = a;
  expected.detail = "Detail a. Also: Title b.";
  EXPECT_EQ(BuddyBubbleQueue::merged(a, b), expected);

  b.rule = agentNeedsInput;
  expected = b;
  expected.detail = "Detail b. Also: Title a.";
  expected.date = after(20);
  EXPECT_EQ(BuddyBubbleQueue::merged(a, b), expected);

  EXPECT_EQ(BuddyBubbleQueue::merged(b, a), expected) << "the more urgent one leads from either side";
}

TEST(BuddyBubbleQueue, ForgetsWhatWaitedForFiveMinutesOrHasExpired) {
  BuddyBubbleQueue queue;
  queue.offer(notice("current", agentNeedsInput, -9000));
  queue.offer(notice("old", diskLow, 0));
  queue.offer(notice("expiring", meetingSoon, 100, {}, after(300)));
  queue.offer(notice("later", meetingSoon, 100, {}, after(301)));
  queue.offer(notice("new", water, 100));
  queue.prune(after(299));
  EXPECT_THAT(ids(queue.pending), ElementsAre("old", "expiring", "later", "new"));
  queue.prune(after(300));
  EXPECT_THAT(ids(queue.pending), ElementsAre("old", "later", "new"));
  queue.prune(after(300.001));
  EXPECT_THAT(ids(queue.pending), ElementsAre("later", "new"));
  EXPECT_EQ(currentID(queue), "current") << "what is shown stays";
}

TEST(BuddyBubbleQueue, GoesOnToWhatIsStillWorthIt) {
  BuddyBubbleQueue queue;
  queue.offer(notice("current", agentNeedsInput));
  queue.offer(notice("old", diskLow, -400));
  queue.offer(notice("next", batteryLow));
  queue.offer(notice("last", water));
  queue.advance(after(10));
  EXPECT_EQ(currentID(queue), "next");
  EXPECT_THAT(ids(queue.pending), ElementsAre("last"));
  queue.advance(after(20));
  EXPECT_EQ(currentID(queue), "last");
  queue.advance(after(30));
  EXPECT_EQ(currentID(queue), "");
  queue.advance(after(40));
  EXPECT_EQ(queue, BuddyBubbleQueue{});
}

TEST(BuddyBubbleQueue, MovesWithAClockThatIsSet) {
  BuddyBubbleQueue queue;
  queue.offer(notice("current", agentFinished, 0, "s"));
  queue.offer(notice("waiting", diskLow, 0));
  queue.clockMoved(Seconds(86400));
  queue.prune(after(86400 + 299));
  EXPECT_THAT(queue.pending, SizeIs(1));
  EXPECT_TRUE(queue.offer(notice("more", agentStopped, 86400 + 20, "s")));
}

TEST(BuddyInbox, MovesANoticeThatCameBackToTheFrontUnderThePresentTime) {
  BuddyInbox inbox;
  inbox.add({notice("battery.low", batteryLow), notice("disk.low", diskLow)}, after(0));
  inbox.add({notice("battery.low", batteryLow)}, after(900));
  EXPECT_THAT(ids(inbox.recent), ElementsAre("battery.low", "disk.low"));
  EXPECT_EQ(inbox.recent.front().date, after(900));
  inbox.add({notice("battery.low", batteryLow, 3600)}, after(3600));
  EXPECT_THAT(ids(inbox.recent), ElementsAre("battery.low", "battery.low", "disk.low")) << "a new spell is listed too";
  EXPECT_NE(inboxKey(inbox.recent[0]), inboxKey(inbox.recent[1]));
}

}  // namespace
}  // namespace ambrel
