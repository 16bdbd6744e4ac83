#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "tests/Time.h"
#include "tests/app/buddy/BuddyRoom.h"

namespace ambrel {
namespace {

using enum AgentStatus;

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
  void anUrgentNoticeStaysUntilItIsAnswered() {
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

  void whatIsInFrontIsLookedAtAtEachTick() {
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

  void neverSilencesWhatWaitsToo() {
    BuddyRoom room;
    room.isFocusRunning = true;
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

  void theBubbleWaitsForOtherPanels() {
    BuddyRoom room;
    room.center->setInTheWay(true);
    room.poll({codex(needsInput)});
    room.pass(30);
    QCOMPARE(room.bubble(), QString());
    QVERIFY(room.peeks.empty());
    room.center->setInTheWay(false);
    QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
    // A panel that opens over it sends it back to wait.
    room.center->setInTheWay(true);
    QCOMPARE(room.bubble(), QString());
    room.center->setInTheWay(false);
    QCOMPARE(room.bubble(), QStringLiteral("Codex needs you"));
  }

  void theSettingsAreThePolicy() {
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

  void whoComesBackHearsWhatTheOthersDid() {
    BuddyRoom room;
    QAbstractItemModelTester tester(room.center->notes(), QAbstractItemModelTester::FailureReportingMode::QtTest);
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
    QVERIFY(room.center->speech().digestSince == start);
    QCOMPARE(room.center->inbox().digestSince, QStringLiteral("09:41"));
    QCOMPARE(room.center->inbox().digest,
             (QVariantList{QVariantMap{{QStringLiteral("title"), QStringLiteral("Claude Code in report-tool")},
                                       {QStringLiteral("text"), QStringLiteral("Waiting for you")}}}));
    room.center->performInBubble(0);
    QCOMPARE(room.inboxes, 1);
    QVERIFY(!room.center->hasBubble());
    room.center->clearInbox();
    QVERIFY(room.center->inbox().digest.isEmpty());
    QCOMPARE(room.center->notes()->count(), 0);
  }

  void actionsAreCarriedOut() {
    BuddyRoom room;
    room.workspace.running = {"com.openai.codex"};
    room.poll({codex(needsInput)});
    room.pass(10);
    room.center->performInBubble(0);
    QCOMPARE(room.workspace.activated, std::vector<std::string>{"com.openai.codex"});
    QVERIFY(!room.center->hasBubble());

    // From the inbox too; an agent without a window is started, and one that is not there is said to be missing.
    const QString key = QString::fromStdString(inboxKey(room.center->speech().inbox.recent.front()));
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

  void onlyLinksOfTheWebAreOpened() {
    for (const auto& [url, opens] :
         {std::pair{"https://meet.example.org/a?b=c", true}, {"file:///etc/passwd", false}}) {
      BuddyRoom room;
      room.center->post(meeting("meeting:a:start", url, room.now));
      room.center->performInBubble(0);
      QCOMPARE(room.links, opens ? QStringList{QLatin1String(url)} : QStringList());
      QCOMPARE(room.problems.size(), opens ? 0 : 1);
      QVERIFY(!room.center->hasBubble());
    }
  }

  void theDaySummaryComesOnceADay() {
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

  void hisReactionEndsByItself() {
    BuddyRoom room;
    room.poll({codex(needsInput)});
    room.tick();
    QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("startle"));
    room.pass(5);
    QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("startle"));
    room.pass(1);
    QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("idle"));
    // Nothing happens for a while, and then an agent finishes.
    room.poll({});
    room.center->closeBubble();
    room.pass(400);
    QVERIFY(room.center->buddy()->isAsleep());
    room.center->sessionFinished();
    QCOMPARE(room.center->buddy()->poseName(), QStringLiteral("happy"));
  }

  void withoutTheLicenceHeIsSilent() {
    BuddyRoom room;
    room.center->setAllowed(false);
    room.poll({codex(needsInput)});
    room.pass(100);
    QVERIFY(!room.center->hasBubble());
    QVERIFY(room.inbox().isEmpty());
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::BuddyNoticeCenterTests)
#include "BuddyNoticeCenterTests.moc"
