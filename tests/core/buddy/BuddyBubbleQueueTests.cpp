#include "core/buddy/BuddyBubbleQueue.h"
#include "core/buddy/BuddyInbox.h"
#include "tests/Matchers.h"
#include "tests/core/buddy/Notices.h"

namespace ambrel {
namespace {

using enum BuddyRule;

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
