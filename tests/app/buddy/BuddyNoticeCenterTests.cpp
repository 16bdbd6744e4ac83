#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "tests/app/buddy/BuddyRoom.h"

namespace ambrel {
namespace {

using enum AgentStatus;
using std::chrono::hours;
using std::chrono::minutes;

AgentSession codex(AgentStatus status, std::string id = "codex:a") {
  return agentSession(std::move(id), AgentKind::codex, status);
}
AgentSession claude(AgentStatus status) {
  return agentSession("claude:a", AgentKind::claudeCode, status, "report-tool");
}

BuddyNotice meeting(const std::string& id, const std::string& url, Instant now) {
  return BuddyNotice(id, BuddyRule::meetingStart, "Stand-up", "Starts now.", now, {BuddyActions::Join{url}});
}

}  // namespace

class BuddyNoticeCenterTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void anUrgentNoticeStaysUntilItIsAnswered();
  void othersGoAfterEightSeconds();
  void theNextOneComesWhenTheFirstGoes();
  void whatHasPassedIsTakenBack();
  void aGlanceAtTheAgentIsNoAnswer();
  void whatIsInFrontIsLookedAtAtEachTick();
  void whatWaitedForTheBreakIsSaidOneAfterTheOther();
  void neverSilencesWhatWaitsToo();
  void heIsPleasedWhenAnAgentFinishes();
  void theBubbleWaitsForOtherPanels();
  void theBubbleStaysWhileItIsPointedAt();
  void theKeyboardChoosesInTheBubble();
  void aWorkingAgentIsForTheInboxAlone();
  void twoNewsOfOneSessionAreOneBubble();
  void aFocusSessionHoldsWhatCanWait();
  void quietHoursLetOnlyWhatIsUrgentThrough();
  void theSettingsAreThePolicy();
  void theAgentInFrontIsNotSpokenOf();
  void whoComesBackHearsWhatTheOthersDid();
  void actionsAreCarriedOut();
  void onlyLinksOfTheWebAreOpened_data();
  void onlyLinksOfTheWebAreOpened();
  void aSnoozedNoticeComesBackAsNew();
  void theInboxKeepsTheNewest();
  void theInboxKnowsWhatIsNew();
  void theDaySummaryComesOnceADay();
  void thePhaseThatEndedIsToldOnce();
  void heFallsAsleepWhenNothingHappens();
  void hisReactionEndsByItself();
  void withoutTheLicenceHeIsSilent();
  void aClockThatIsSetRepeatsNothing();
  void thousandsOfSessionsAreNoFlood();
  void theFootSaysWhenHeIsQuiet();
};

void BuddyNoticeCenterTests::anUrgentNoticeStaysUntilItIsAnswered() {
  BuddyRoom room;
  room.poll({codex(needsInput)});
  room.pass(10);
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  QCOMPARE(room.center->bubbleText().detail, QStringLiteral("Waiting for your answer in web-shop."));
  QCOMPARE(room.center->bubbleText().actions, QStringList{QStringLiteral("Show")});
  QCOMPARE(room.peeks, std::vector<double>{8});
  room.pass(600);
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  QVERIFY(room.isPeeking);
  room.center->closeBubble();
  QCOMPARE(room.bubble(), QString());
  QVERIFY2(!room.isPeeking, "the bar came out for the bubble alone");
  // Closed, it is not said again while it lasts.
  room.pass(600);
  QCOMPARE(room.bubble(), QString());
  QCOMPARE(room.inbox(), QStringList{QStringLiteral("Codex needs you")});
}

void BuddyNoticeCenterTests::othersGoAfterEightSeconds() {
  BuddyRoom room;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Battery 15%"));
  room.pass(7);
  QCOMPARE(room.bubble(), QStringLiteral("Battery 15%"));
  room.pass(1);
  QCOMPARE(room.bubble(), QString());
}

void BuddyNoticeCenterTests::theNextOneComesWhenTheFirstGoes() {
  BuddyRoom room;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.waterDueAt = room.now;
  room.poll({codex(needsInput)});
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  QCOMPARE(room.center->bubbleMore(), 2);
  room.center->closeBubble();
  QCOMPARE(room.bubble(), QStringLiteral("Battery 15%"));
  QCOMPARE(room.center->bubbleMore(), 1);
  QVERIFY(room.isPeeking);
  room.pass(8);
  QCOMPARE(room.bubble(), QStringLiteral("Time for some water"));
  room.pass(8);
  QCOMPARE(room.bubble(), QString());
  QVERIFY(!room.isPeeking);
  // Each of them brings the bar out.
  QCOMPARE(room.peeks.size(), std::size_t(3));
}

void BuddyNoticeCenterTests::whatHasPassedIsTakenBack() {
  BuddyRoom room;
  room.poll({codex(needsInput, "codex:a"), codex(needsInput, "codex:b")});
  room.pass(10);
  QCOMPARE(room.center->bubbleMore(), 1);
  // The user has answered the second one in its own window.
  room.poll({codex(needsInput, "codex:a"), codex(working, "codex:b")});
  room.pass(10);
  QCOMPARE(room.center->bubbleMore(), 0);
  room.poll({codex(working, "codex:a"), codex(working, "codex:b")});
  room.pass(10);
  QCOMPARE(room.bubble(), QString());
  QCOMPARE(room.inbox().size(), 2);
}

void BuddyNoticeCenterTests::aGlanceAtTheAgentIsNoAnswer() {
  BuddyRoom room;
  room.poll({codex(needsInput), claude(needsInput)});
  room.pass(200);
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  // Five seconds at the one, five at the other, and away for good.
  for (const char* glance : {"com.openai.codex", "com.anthropic.claudefordesktop"}) {
    room.workspace.bringToFront({"org.kde.konsole", glance});
    room.pass(5);
  }
  room.workspace.bringToFront({"org.mozilla.firefox"});
  room.pass(300);
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  QCOMPARE(room.center->bubbleMore(), 1);
  QCOMPARE(room.peeks.size(), std::size_t(1));
  room.poll({codex(working), claude(needsInput)});
  room.pass(10);
  QCOMPARE(room.bubble(), QStringLiteral("Claude Code needs you"));
}

void BuddyNoticeCenterTests::whatIsInFrontIsLookedAtAtEachTick() {
  BuddyRoom room;
  // An agent starts in the terminal that has been in front all along, beside another one.
  room.workspace.inFront = {"org.kde.konsole", "com.openai.codex", "com.anthropic.claudefordesktop"};
  room.poll({codex(needsInput), claude(needsInput)});
  room.pass(30);
  QVERIFY(room.inbox().isEmpty());
  // One of them ends there, while the other tool's sessions wait elsewhere.
  room.workspace.inFront = {"org.kde.konsole", "com.anthropic.claudefordesktop"};
  room.pass(40);
  QCOMPARE(room.inbox(), QStringList{QStringLiteral("Codex needs you")});
}

void BuddyNoticeCenterTests::whatWaitedForTheBreakIsSaidOneAfterTheOther() {
  BuddyRoom room;
  room.isFocusRunning = true;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.waterDueAt = room.now;
  room.poll({codex(working)});
  room.tick();
  room.pass(400);
  room.poll({codex(finished)});
  room.pass(1100);
  QVERIFY(!room.center->hasBubble());
  room.isFocusRunning = false;
  room.tick();
  QStringList said;
  for (; room.center->hasBubble(); room.pass(8)) {
    said << room.bubble();
    QVERIFY(room.center->bubble()->date == advanced(room.now, Seconds(-8.0 * static_cast<double>(said.size() - 1))));
  }
  QCOMPARE(said, (QStringList{QStringLiteral("Battery 15%"), QStringLiteral("Codex finished"),
                              QStringLiteral("Time for some water")}));
}

void BuddyNoticeCenterTests::neverSilencesWhatWaitsToo() {
  BuddyRoom room;
  room.isFocusRunning = true;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.poll({codex(needsInput, "codex:a"), codex(needsInput, "codex:b")});
  room.tick();
  QCOMPARE(room.center->bubbleMore(), 1);
  room.settings->set(setting::buddyLevel, BuddyLevel::off);
  QVERIFY(!room.center->hasBubble());
  room.isFocusRunning = false;
  room.pass(60);
  QVERIFY(!room.center->hasBubble());
  QCOMPARE(room.inbox(), (QStringList{QStringLiteral("Codex needs you"), QStringLiteral("Codex needs you")}));
}

void BuddyNoticeCenterTests::heIsPleasedWhenAnAgentFinishes() {
  BuddyRoom room;
  room.pass(400);
  QVERIFY(room.center->buddy()->isAsleep());
  room.center->sessionFinished();
  QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("happy"));
  room.pass(10);
  QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("idle"));
}

void BuddyNoticeCenterTests::theBubbleWaitsForOtherPanels() {
  BuddyRoom room;
  room.isPanelOpen = true;
  room.poll({codex(needsInput)});
  room.pass(30);
  QCOMPARE(room.bubble(), QString());
  QVERIFY(room.peeks.empty());
  room.isPanelOpen = false;
  room.center->panelsChanged();
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  // A panel that opens over it sends it back to wait.
  room.isPanelOpen = true;
  room.center->panelsChanged();
  QCOMPARE(room.bubble(), QString());
  room.isPanelOpen = false;
  room.center->panelsChanged();
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  // What expires meanwhile does not come at all.
  room.center->closeBubble();
  room.isPanelOpen = true;
  room.meetings = {{.id = "m", .title = "Stand-up", .start = advanced(room.now, Seconds(100)), .url = {}}};
  room.tick();
  room.pass(9);
  room.now = advanced(room.now, Seconds(100));
  room.isPanelOpen = false;
  room.center->panelsChanged();
  QCOMPARE(room.bubble(), QString());
}

void BuddyNoticeCenterTests::theBubbleStaysWhileItIsPointedAt() {
  BuddyRoom room;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.tick();
  room.pass(5);
  room.center->setPointed(true);
  room.pass(60);
  QVERIFY(room.center->hasBubble());
  room.center->setPointed(false);
  room.pass(1);
  QVERIFY(room.center->hasBubble());
  room.pass(1);
  QVERIFY(!room.center->hasBubble());
}

void BuddyNoticeCenterTests::theKeyboardChoosesInTheBubble() {
  BuddyRoom room;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.waterDueAt = room.now;
  room.tick();
  QCOMPARE(room.center->choice(), -1);
  room.center->moveChoice(1);
  QCOMPARE(room.center->choice(), -1);
  room.center->setReached(true);
  QCOMPARE(room.center->choice(), 0);
  // Snooze, more, close; and around.
  for (const int expected : {1, 2, 0}) {
    room.center->moveChoice(1);
    QCOMPARE(room.center->choice(), expected);
  }
  room.center->moveChoice(-1);
  QCOMPARE(room.center->choice(), 2);
  room.pass(60);
  QCOMPARE(room.bubble(), QStringLiteral("Battery 15%"));
  room.center->performChoice();
  QCOMPARE(room.bubble(), QStringLiteral("Time for some water"));
  QCOMPARE(room.center->choice(), 0);
  room.center->moveChoice(-1);
  room.center->performChoice();
  QVERIFY(!room.center->hasBubble());
  QCOMPARE(room.center->choice(), -1);
}

void BuddyNoticeCenterTests::aWorkingAgentIsForTheInboxAlone() {
  BuddyRoom room;
  room.poll({codex(working)});
  room.pass(10);
  room.pass(900);
  QCOMPARE(room.inbox(), QStringList{QStringLiteral("Codex still working")});
  QVERIFY(!room.center->hasBubble());
  QVERIFY(room.peeks.empty());
}

void BuddyNoticeCenterTests::twoNewsOfOneSessionAreOneBubble() {
  BuddyRoom room;
  room.poll({codex(working)});
  room.pass(400);
  room.poll({codex(finished)});
  room.pass(10);
  QCOMPARE(room.bubble(), QStringLiteral("Codex finished"));
  room.poll({codex(needsInput)});
  room.pass(5);
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  QVERIFY(room.center->bubbleText().detail.endsWith(QStringLiteral("Also: Codex finished.")));
  // What leads is urgent now.
  room.pass(60);
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
}

void BuddyNoticeCenterTests::aFocusSessionHoldsWhatCanWait() {
  BuddyRoom room;
  room.isFocusRunning = true;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.tick();
  QVERIFY(!room.center->hasBubble());
  QCOMPARE(room.center->quietText(), QStringLiteral("1 note waits for the break"));
  room.poll({codex(needsInput)});
  room.pass(10);
  QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  room.center->closeBubble();
  room.isFocusRunning = false;
  room.center->phaseEnded(BuddySignals::PhaseEnd::focus);
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Battery 15%"));
  QCOMPARE(room.center->bubbleMore(), 1);
  QCOMPARE(room.inbox(), (QStringList{QStringLiteral("Focus session done"), QStringLiteral("Battery 15%"),
                                      QStringLiteral("Codex needs you")}));
}

void BuddyNoticeCenterTests::quietHoursLetOnlyWhatIsUrgentThrough() {
  BuddyRoom room("2026-11-21T23:30:00Z");
  room.settings->set(setting::quietHoursOn, true);
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.tick();
  QVERIFY(!room.center->hasBubble());
  QVERIFY(room.inbox().isEmpty());
  room.battery = BuddySignals::Battery{.percent = 9, .isCharging = false};
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Battery 9%"));
}

void BuddyNoticeCenterTests::theSettingsAreThePolicy() {
  BuddyRoom room;
  QCOMPARE(room.center->policy(),
           (BuddyPolicy{.quietHours = QuietHours{.startHour = 22, .endHour = 8}, .onlyUnfocusedAgents = true}));
  room.settings->set(setting::buddyLevel, BuddyLevel::important);
  room.settings->set(setting::buddyCategories, {BuddyCategory::limits});
  room.settings->set(setting::quietStartHour, 20);
  room.settings->set(setting::quietEndHour, 6);
  room.settings->set(setting::buddyOnlyUnfocusedAgents, false);
  QCOMPARE(room.center->policy(), (BuddyPolicy{.level = BuddyLevel::important,
                                               .categories = {BuddyCategory::limits},
                                               .quietHours = QuietHours{.startHour = 20, .endHour = 6},
                                               .onlyUnfocusedAgents = false}));
  room.settings->set(setting::quietHoursOn, false);
  QVERIFY(!room.center->policy().quietHours);
}

void BuddyNoticeCenterTests::theAgentInFrontIsNotSpokenOf() {
  BuddyRoom room;
  // A terminal in which the agent runs counts as the agent.
  room.workspace.bringToFront({"org.kde.konsole", "com.openai.codex"});
  room.poll({codex(needsInput), claude(needsInput)});
  room.pass(10);
  QCOMPARE(room.bubble(), QStringLiteral("Claude Code needs you"));
  QCOMPARE(room.center->bubbleMore(), 0);
  // In view for 20 seconds after it has left the front.
  room.workspace.bringToFront({"org.mozilla.firefox"});
  room.pass(20);
  QCOMPARE(room.center->bubbleMore(), 0);
  room.pass(10);
  QCOMPARE(room.center->bubbleMore(), 1);
}

void BuddyNoticeCenterTests::whoComesBackHearsWhatTheOthersDid() {
  BuddyRoom room;
  QAbstractItemModelTester tester(room.center->inbox(), QAbstractItemModelTester::FailureReportingMode::QtTest);
  room.poll({codex(working), claude(working)});
  room.workspace.bringToFront({"com.openai.codex"});
  room.pass(10);
  room.workspace.bringToFront({"org.mozilla.firefox"});
  room.pass(60);
  room.poll({codex(working), claude(needsInput)});
  room.pass(60);
  const Instant start = parseISO8601("2026-11-21T09:41:00Z").value();
  room.center->closeBubble();
  room.workspace.bringToFront({"com.openai.codex"});
  QCOMPARE(room.bubble(), QStringLiteral("While you were away"));
  QCOMPARE(room.center->bubbleText().detail, QStringLiteral("Claude Code: Waiting for you"));
  QCOMPARE(room.center->bubbleText().actions, QStringList{QStringLiteral("Open")});
  QVERIFY(room.center->digestSince() == start);
  QCOMPARE(room.center->inbox()->digestSince(), QStringLiteral("09:41"));
  QCOMPARE(room.center->inbox()->digest(),
           (QVariantList{QVariantMap{{QStringLiteral("title"), QStringLiteral("Claude Code in report-tool")},
                                     {QStringLiteral("text"), QStringLiteral("Waiting for you")}}}));
  room.center->performInBubble(0);
  QCOMPARE(room.inboxes, 1);
  QVERIFY(!room.center->hasBubble());
  // What has been told is not told again.
  room.workspace.bringToFront({"org.mozilla.firefox"});
  room.pass(200);
  room.workspace.bringToFront({"com.openai.codex"});
  QVERIFY(!room.center->hasBubble());
  room.center->clearInbox();
  QVERIFY(room.center->inbox()->digest().isEmpty());
  QCOMPARE(room.center->inbox()->count(), 0);
}

void BuddyNoticeCenterTests::actionsAreCarriedOut() {
  BuddyRoom room;
  room.workspace.running = {"com.openai.codex"};
  room.poll({codex(needsInput)});
  room.pass(10);
  room.center->performInBubble(0);
  QCOMPARE(room.workspace.activated, std::vector<std::string>{"com.openai.codex"});
  QVERIFY(!room.center->hasBubble());

  // From the inbox too; an agent without a window is started, and one that is not there is said to be missing.
  const QString key = room.center->inbox()->rows().front().key;
  room.workspace.running.clear();
  room.workspace.installed = {"com.openai.codex"};
  room.center->performInInbox(key, 0);
  QCOMPARE(room.workspace.opened, std::vector<std::string>{"com.openai.codex"});
  room.workspace.installed.clear();
  room.center->performInInbox(key, 0);
  QCOMPARE(room.problems, QStringList{QStringLiteral("Codex has no window")});

  room.center->post(BuddyNotice("disk", BuddyRule::diskLow, "Disk almost full", "", room.now,
                                {BuddyActions::OpenDiskCleanup{}, BuddyActions::Snooze{60}}));
  QCOMPARE(room.bubble(), QStringLiteral("Disk almost full"));
  room.center->answerBubble();
  QCOMPARE(room.cleanups, 1);

  // What is not there is no fault.
  room.center->performInInbox(QStringLiteral("gone"), 0);
  room.center->performInInbox(key, 7);
  room.center->performInBubble(0);
}

void BuddyNoticeCenterTests::onlyLinksOfTheWebAreOpened_data() {
  QTest::addColumn<QString>("url");
  QTest::addColumn<bool>("opens");
  QTest::newRow("https") << "https://meet.example.org/a?b=c" << true;
  QTest::newRow("http") << "HTTP://meet.example.org" << true;
  QTest::newRow("file") << "file:///etc/passwd" << false;
  QTest::newRow("script") << "javascript:alert(1)" << false;
  QTest::newRow("telephone") << "tel:+123456" << false;
  QTest::newRow("no scheme") << "meet.example.org" << false;
  QTest::newRow("no host") << "https:///x" << false;
}

void BuddyNoticeCenterTests::onlyLinksOfTheWebAreOpened() {
  QFETCH(QString, url);
  QFETCH(bool, opens);
  BuddyRoom room;
  room.center->post(meeting("meeting:a:start", url.toStdString(), room.now));
  room.center->performInBubble(0);
  QCOMPARE(room.links, opens ? QStringList{url} : QStringList());
  QCOMPARE(room.problems.size(), opens ? 0 : 1);
  QVERIFY(!room.center->hasBubble());
}

void BuddyNoticeCenterTests::aSnoozedNoticeComesBackAsNew() {
  BuddyRoom room;
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.tick();
  room.center->performInBubble(0);
  QVERIFY(!room.center->hasBubble());
  room.center->markRead();
  QCOMPARE(room.center->inbox()->newCount(), 0);
  room.pass(890);
  QVERIFY(!room.center->hasBubble());
  room.pass(10);
  QCOMPARE(room.bubble(), QStringLiteral("Battery 15%"));
  QCOMPARE(room.center->inbox()->newCount(), 1);
  QCOMPARE(room.inbox().size(), 1);

  // Once it charges there is nothing to come back for.
  room.center->performInBubble(0);
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = true};
  room.pass(1000);
  QVERIFY(!room.center->hasBubble());
}

void BuddyNoticeCenterTests::theInboxKeepsTheNewest() {
  BuddyRoom room;
  QAbstractItemModelTester tester(room.center->inbox(), QAbstractItemModelTester::FailureReportingMode::QtTest);
  for (int i = 0; i < 230; ++i)
    room.center->post(
        BuddyNotice("n" + std::to_string(i), BuddyRule::cpuHigh, "Notice " + std::to_string(i), "", room.now));
  QCOMPARE(room.center->inbox()->count(), 200);
  QCOMPARE(room.inbox().front(), QStringLiteral("Notice 229"));
  QCOMPARE(room.inbox().back(), QStringLiteral("Notice 30"));
  QVERIFY(room.center->bubbleMore() <= 5);
  room.center->clearInbox();
  QCOMPARE(room.center->inbox()->count(), 0);
}

void BuddyNoticeCenterTests::theInboxKnowsWhatIsNew() {
  BuddyRoom room;
  const BuddyInboxModel& inbox = *room.center->inbox();
  QAbstractItemModelTester tester(room.center->inbox(), QAbstractItemModelTester::FailureReportingMode::QtTest);
  const auto shown = [&](int row, int role) { return inbox.data(inbox.index(row), role).toString(); };
  room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
  room.tick();
  QCOMPARE(inbox.newCount(), 1);
  QCOMPARE(shown(0, BuddyInboxModel::SectionRole), QStringLiteral("New"));
  room.center->inboxOpened();
  QVERIFY(!room.center->hasBubble());
  QCOMPARE(inbox.newCount(), 1);
  // What comes while it is open has been seen when it closes, and is not said afterwards.
  room.center->post(BuddyNotice("disk", BuddyRule::diskLow, "Disk almost full", "", room.now));
  QVERIFY(!room.center->hasBubble());
  room.center->inboxClosed();
  QCOMPARE(inbox.newCount(), 0);
  room.pass(10);
  QVERIFY(!room.center->hasBubble());
  room.poll({codex(needsInput)});
  room.pass(125);
  QCOMPARE(inbox.newCount(), 1);
  QCOMPARE(shown(0, BuddyInboxModel::SectionRole), QStringLiteral("New"));
  QCOMPARE(shown(1, BuddyInboxModel::SectionRole), QStringLiteral("Earlier"));
  QCOMPARE(shown(1, BuddyInboxModel::AgeRole), QStringLiteral("2 mins"));
  QCOMPARE(shown(2, BuddyInboxModel::WhyRole), QStringLiteral("The battery is below 20% and not charging."));
  QVERIFY(shown(2, BuddyInboxModel::SettingRole).contains(QStringLiteral("System")));
}

void BuddyNoticeCenterTests::theDaySummaryComesOnceADay() {
  BuddyRoom room("2026-11-21T18:59:00Z");
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Your day so far"));
  QCOMPARE(room.defaults.string("buddySummaryDay"), std::optional<std::string>("2026-11-21"));
  room.restart();
  room.pass(600);
  QVERIFY(room.inbox().isEmpty());
  room.now += hours(24);
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Your day so far"));
}

void BuddyNoticeCenterTests::thePhaseThatEndedIsToldOnce() {
  BuddyRoom room;
  room.center->phaseEnded(BuddySignals::PhaseEnd::breakTime);
  room.tick();
  QCOMPARE(room.bubble(), QStringLiteral("Break is over"));
  room.pass(60);
  QCOMPARE(room.inbox(), QStringList{QStringLiteral("Break is over")});
}

void BuddyNoticeCenterTests::heFallsAsleepWhenNothingHappens() {
  BuddyRoom room;
  room.pass(290);
  QVERIFY(!room.center->buddy()->isAsleep());
  room.pass(10);
  QVERIFY(room.center->buddy()->isAsleep());
  QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("asleep"));
  // An agent at work keeps him awake.
  room.poll({codex(working)});
  room.pass(10);
  QVERIFY(!room.center->buddy()->isAsleep());
  room.pass(600);
  QVERIFY(!room.center->buddy()->isAsleep());
  room.poll({});
  room.pass(310);
  QVERIFY(room.center->buddy()->isAsleep());
  room.center->inboxOpened();
  QVERIFY(!room.center->buddy()->isAsleep());
}

void BuddyNoticeCenterTests::hisReactionEndsByItself() {
  BuddyRoom room;
  room.poll({codex(needsInput)});
  room.tick();
  QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("startle"));
  room.pass(5);
  QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("startle"));
  room.pass(1);
  QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("idle"));
}

void BuddyNoticeCenterTests::withoutTheLicenceHeIsSilent() {
  BuddyRoom room;
  room.center->isAllowed = [] { return false; };
  room.poll({codex(needsInput)});
  room.pass(100);
  QVERIFY(!room.center->hasBubble());
  QVERIFY(room.inbox().isEmpty());
}

void BuddyNoticeCenterTests::aClockThatIsSetRepeatsNothing() {
  for (const double by : {-3600.0, 3600.0, 86400.0 * 40}) {
    BuddyRoom room("2026-11-21T12:00:00Z");
    room.defaults.set("buddySummaryDay", DefaultsValue{std::string("2026-11-21")});
    room.restart();
    room.poll({codex(needsInput), agentSession("claude:b", AgentKind::claudeCode, working)});
    room.pass(400);
    const auto before = room.inbox();
    room.center->closeBubble();
    room.now = advanced(room.now, Seconds(by));
    room.center->clockMoved(Seconds(by), room.now);
    room.pass(60);
    QCOMPARE(room.inbox(), before);
    QVERIFY(!room.center->hasBubble());
    // And he goes on ticking.
    room.poll({agentSession("claude:b", AgentKind::claudeCode, finished)});
    room.pass(10);
    QCOMPARE(room.bubble(), QStringLiteral("Claude Code finished"));
  }
}

void BuddyNoticeCenterTests::thousandsOfSessionsAreNoFlood() {
  BuddyRoom room;
  std::vector<AgentSession> many;
  for (int i = 0; i < 3000; ++i) many.push_back(codex(needsInput, "codex:" + std::to_string(i)));
  room.poll(many);
  room.pass(60);
  QCOMPARE(room.peeks.size(), std::size_t(1));
  QCOMPARE(room.center->inbox()->count(), 200);
  QCOMPARE(room.center->bubbleMore(), 5);
  int shown = 0;
  for (; room.center->hasBubble() && shown < 100; ++shown) room.center->closeBubble();
  QCOMPARE(shown, 6);
}

void BuddyNoticeCenterTests::theFootSaysWhenHeIsQuiet() {
  BuddyRoom room;
  QCOMPARE(room.center->quietText(), QStringLiteral("Quiet from 22:00 to 08:00"));
  room.settings->set(setting::quietStartHour, 8);
  QCOMPARE(room.center->quietText(), QStringLiteral("No quiet hours"));
  room.settings->set(setting::quietEndHour, 11);
  QCOMPARE(room.center->quietText(), QStringLiteral("Quiet until 11:00"));
  room.settings->set(setting::quietHoursOn, false);
  QCOMPARE(room.center->quietText(), QStringLiteral("No quiet hours"));
  room.settings->set(setting::buddyLevel, BuddyLevel::off);
  QCOMPARE(room.center->quietText(), QStringLiteral("Buddy says nothing"));
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::BuddyNoticeCenterTests)
#include "BuddyNoticeCenterTests.moc"
