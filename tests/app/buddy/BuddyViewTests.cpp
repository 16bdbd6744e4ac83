#include <QImage>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "app/buddy/BuddyFigure.h"
#include "app/buddy/BuddyMotion.h"
#include "tests/app/buddy/BuddyRoom.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/Scene.h"

namespace ambrel {
namespace {

using enum AgentStatus;

AgentSession codex(AgentStatus status) { return agentSession("codex:a", AgentKind::codex, status); }

// How many points of two pictures differ by more than smoothing does.
int difference(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QColor one = a.pixelColor(x, y), other = b.pixelColor(x, y);
      count += std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
                   std::abs(one.blue() - other.blue()) >
               60;
    }
  }
  return count;
}

std::vector<QString> poses() {
  std::vector<QString> names;
  for (const BuddyMood mood : allCases<BuddyMood>()) names.push_back(toQString(nameOf(mood)));
  for (const BuddyTrigger trigger : allCases<BuddyTrigger>()) names.push_back(toQString(nameOf(trigger)));
  return names;
}

BuddyFigure* figureOf(Scene& scene) { return scene.root()->findChild<BuddyFigure*>(); }

}  // namespace

// The figure, and the tile, the bubble and the inbox with a real notice centre behind them.
class BuddyViewTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theTileIsSpokenAndOpens() {
    BuddyRoom room;
    keep({room.center.get()});
    Scene scene;
    QVERIFY(loadTile(scene, room));
    QCOMPARE(spokenName(scene.root()), QStringLiteral("Dock Buddy, Awake"));
    room.poll({codex(needsInput)});
    room.tick();
    QCOMPARE(spokenName(scene.root()),
             QStringLiteral("Dock Buddy. Codex needs you. Waiting for your answer in web-shop."));
    QSignalSpy clicked(scene.root(), SIGNAL(clicked()));
    scene.root()->setFocus(false);
    click(scene.root());
    QCOMPARE(clicked.count(), 1);
    room.center->closeBubble();
    QCOMPARE(spokenName(scene.root()), QStringLiteral("Dock Buddy, 1 new note"));
  }

  void theTileAnswersTheBubbleByKeyboard() {
    BuddyRoom room;
    keep({room.center.get()});
    Scene scene;
    QVERIFY(loadTile(scene, room));
    room.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
    room.poll({codex(needsInput)});
    room.tick();
    scene.root()->forceActiveFocus(Qt::TabFocusReason);
    QCOMPARE(room.center->choice(), 0);
    // Show, more, close: down and up choose, Return picks.
    QTest::keyClick(&scene.window(), Qt::Key_Down);
    QCOMPARE(room.center->choice(), 1);
    QTest::keyClick(&scene.window(), Qt::Key_Up);
    room.workspace.running = {"com.openai.codex"};
    QTest::keyClick(&scene.window(), Qt::Key_Return);
    QCOMPARE(room.workspace.activated, std::vector<std::string>{"com.openai.codex"});
    QCOMPARE(room.bubble(), QStringLiteral("Battery 15%"));
    QTest::keyClick(&scene.window(), Qt::Key_Delete);
    QVERIFY(!room.center->hasBubble());
    // Without a bubble Return opens what a click opens.
    QSignalSpy clicked(scene.root(), SIGNAL(clicked()));
    QTest::keyClick(&scene.window(), Qt::Key_Return);
    QCOMPARE(clicked.count(), 1);
  }

  void theBubbleShowsItsNotice() {
    BuddyRoom room;
    room.center->post(BuddyNotice("disk.low", BuddyRule::diskLow, "Disk almost full",
                                  "8.2 GB free. Caches can go, and so can what has been in the trash for a month.",
                                  room.now, {BuddyActions::OpenDiskCleanup{}, BuddyActions::Snooze{60}}));
    room.center->post(BuddyNotice("x", BuddyRule::water, "Time for some water", "2 glasses today.", room.now));
    for (const char* side : {"bottom", "left", "right", ""}) {
      Scene scene;
      QVERIFY(loadBubble(scene, room));
      scene.root()->setProperty("tailSide", side);
      scene.root()->setProperty("tailAt", 60);
      scene.root()->setSize({scene.root()->implicitWidth(), scene.root()->implicitHeight()});
      scene.window().resize(scene.root()->size().toSize());
      QTRY_COMPARE(scene.root()->opacity(), 1.0);
      QCOMPARE(faultsInBothSchemes(scene, qPrintable(QStringLiteral("bubble-") + side)), QStringList());
      QCOMPARE(spokenName(scene.root()),
               "Disk almost full. 8.2 GB free. Caches can go, and so can what has been in the trash for a month.");
      for (const char* name : {"Clean Up", "Snooze 60 min", "1 more in the inbox", "Close"})
        QVERIFY2(control(scene.root(), name), name);
    }
  }

  void theBubbleIsAnsweredByClicks() {
    BuddyRoom room;
    const auto say = [&] {
      room.center->post(BuddyNotice("disk.low", BuddyRule::diskLow, "Disk almost full", "8.2 GB free.", room.now,
                                    {BuddyActions::OpenDiskCleanup{}, BuddyActions::Snooze{60}}));
    };
    say();
    Scene scene;
    QVERIFY(loadBubble(scene, room));
    scene.root()->setSize({scene.root()->implicitWidth(), scene.root()->implicitHeight()});
    QTest::qWait(0);
    click(control(scene.root(), QStringLiteral("Clean Up")));
    QCOMPARE(room.cleanups, 1);
    QVERIFY(!room.center->hasBubble());
    say();
    QTRY_VERIFY(control(scene.root(), QStringLiteral("Snooze 60 min")));
    click(control(scene.root(), QStringLiteral("Snooze 60 min")));
    QVERIFY(!room.center->hasBubble());
    // Beside its buttons.
    say();
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {40, 26});
    QCOMPARE(room.cleanups, 2);
    say();
    click(control(scene.root(), QStringLiteral("Close")));
    QVERIFY(!room.center->hasBubble());
    QCOMPARE(room.cleanups, 2);
  }

  void theInboxShowsWhyEachNoteCame() {
    BuddyRoom room;
    room.center->post(BuddyNotice("water", BuddyRule::water, "Time for some water", "2 glasses today.", room.now));
    room.center->markRead();
    room.now = advanced(room.now, Seconds(7200));
    room.poll({codex(needsInput)});
    room.tick();
    Presentation presentation([](Seconds, std::function<void()> step) { step(); });
    Scene scene;
    QVERIFY(loadInbox(scene, room, presentation));
    QCOMPARE(faultsInBothSchemes(scene, "inbox"), QStringList());
    const QStringList texts = textsOf(scene.root());
    // The newest is spread out, with what it offers and why it came.
    for (const char* text : {"New", "Earlier", "Codex needs you", "Show", "Why: An agent waits for your answer.",
                             "Time for some water", "2 hrs"})
      QVERIFY2(texts.contains(QString::fromUtf8(text)), qPrintable(texts.join(u'|')));
    QVERIFY(!texts.contains(QStringLiteral("Why: The next glass of water is due.")));
    QSignalSpy settings(scene.root(), SIGNAL(settingsAsked(QString)));
    click(control(scene.root(), QStringLiteral("Change")));
    QCOMPARE(settings.count(), 1);
    click(control(scene.root(), QStringLiteral("Mark all as read")));
    QCOMPARE(room.center->inbox().newCount, 0);
    click(control(scene.root(), QStringLiteral("Clear all")));
    QCOMPARE(room.center->notes()->count(), 0);
  }

  void theInboxIsUsedByKeyboard() {
    BuddyRoom room;
    for (const char* title : {"One", "Two", "Three"})
      room.center->post(
          BuddyNotice(title, BuddyRule::diskLow, title, "8 GB free.", room.now, {BuddyActions::OpenDiskCleanup{}}));
    Presentation presentation([](Seconds, std::function<void()> step) { step(); });
    Scene scene;
    QVERIFY(loadInbox(scene, room, presentation));
    // Everything that Tab reaches has a name, and the row's own button is among it.
    const QStringList names = namesByTab(scene);
    QCOMPARE(names.filter("nameless"), QStringList());
    QVERIFY2(names.contains(QStringLiteral("Clean Up")), qPrintable(names.join(u'|')));
    // Arrows go from row to row, Return spreads one out.
    QQuickItem* row = control(scene.root(), QStringLiteral("Three. 8 GB free., now, new"));
    QVERIFY(row);
    row->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(&scene.window(), Qt::Key_Down);
    QCOMPARE(spokenName(scene.window().activeFocusItem()), QStringLiteral("Two. 8 GB free., now, new"));
    QTest::keyClick(&scene.window(), Qt::Key_Return);
    QCOMPARE(scene.root()->property("chosenKey").toString(),
             QString::fromStdString(inboxKey(room.center->speech().inbox.recent[1])));
    QTest::keyClick(&scene.window(), Qt::Key_Return);
    QCOMPARE(scene.root()->property("chosenKey").toString(), QString());
    QSignalSpy closed(scene.root(), SIGNAL(closeRequested()));
    QTest::keyClick(&scene.window(), Qt::Key_Escape);
    QCOMPARE(closed.count(), 1);
  }

  void anEmptyInboxSaysSo() {
    BuddyRoom room;
    Presentation presentation([](Seconds, std::function<void()> step) { step(); });
    Scene scene;
    QVERIFY(loadInbox(scene, room, presentation));
    QCOMPARE(faultsInBothSchemes(scene, "inbox-empty"), QStringList());
    QVERIFY(textsOf(scene.root()).contains("Nothing to report"));
    QVERIFY(!control(scene.root(), QStringLiteral("Clear all")));
  }

  void everyPoseCanBeToldFromEveryOther() {
    Scene scene;
    scene.theme().setChoice(Theme::Choice::Dark);
    scene.theme().setAlwaysReducesMotion(true);
    QVERIFY(scene.load(face));
    std::vector<std::pair<QString, QImage>> pictures;
    for (const QString& pose : poses()) {
      scene.find("face")->setProperty("pose", pose);
      pictures.emplace_back(pose, scene.grab());
    }
    for (std::size_t i = 0; i < pictures.size(); ++i) {
      for (std::size_t j = i + 1; j < pictures.size(); ++j) {
        const int points = difference(pictures[i].second, pictures[j].second);
        QVERIFY2(
            points >= 40,
            qPrintable(
                QStringLiteral("%1 and %2 differ in %3 points").arg(pictures[i].first, pictures[j].first).arg(points)));
      }
    }
  }

  void aStanceIsReachedThroughASpringAndHeld() {
    const BuddyLook& look = lookOf(BuddyTrigger::startle);
    const BuddyStance from = lookOf(BuddyMood::idle).stance;
    QCOMPARE(stanceAt(from, look, 0).up, from.up);
    QCOMPARE(stanceAt(from, look, look.seconds).up, look.stance.up);
    QCOMPARE(stanceAt(from, look, 1000).leftHand, look.stance.leftHand);
    double furthest = 0;
    for (double at = 0; at < look.seconds; at += 0.01) furthest = std::max(furthest, buddySpring(at));
    QVERIFY2(furthest > 1.1 && furthest < 1.2, qPrintable(QString::number(furthest)));
    // No reaction jumps at its end.
    for (const BuddyTrigger trigger : allCases<BuddyTrigger>()) {
      const BuddyLook& reaction = lookOf(trigger);
      const BuddyStance last = stanceAt({}, reaction, reaction.seconds - 0.016);
      QVERIFY(std::abs(last.angle - reaction.stance.angle) < 2 && std::abs(last.up - reaction.stance.up) < 0.6);
      QVERIFY(std::abs(last.width - reaction.stance.width) < 0.06);
    }
  }

  void heBlinksOnlyWhileHeIsSeenAndAwake() {
    Scene scene;
    QVERIFY(scene.load(face));
    BuddyFigure* figure = figureOf(scene);
    QVERIFY(figure->blinkWait() >= 5000 && figure->blinkWait() <= 9000);
    const std::function<void(bool)> reasons[] = {
        [&](bool isSo) { figure->setPose(isSo ? "asleep" : "wink"); },
        [&](bool isSo) { figure->setPose(isSo ? "happy" : "wink"); },
        [&](bool isSo) { figure->setProperty("live", !isSo); },
        [&](bool isSo) { figure->setVisible(!isSo); },
        [&](bool isSo) { scene.theme().setAlwaysReducesMotion(isSo); },
        [&](bool isSo) { scene.window().setVisible(!isSo); },
    };
    for (const auto& hold : reasons) {
      QVERIFY(figure->waitsToBlink());
      hold(true);
      QVERIFY(!figure->waitsToBlink());
      hold(false);
    }
    QVERIFY(figure->waitsToBlink());
  }

  void aBlinkShutsHisEyesForAMoment() {
    Scene scene;
    QVERIFY(scene.load(face));
    BuddyFigure* figure = figureOf(scene);
    const QImage open = scene.grab();
    figure->blink();
    QVERIFY(figure->isBlinking());
    QVERIFY(!figure->waitsToBlink());
    QVERIFY(difference(open, scene.grab()) > 10);
    QTRY_VERIFY(!figure->isBlinking());
    QVERIFY(figure->waitsToBlink());
    QCOMPARE(difference(open, scene.grab()), 0);
  }

  void reducedMotionTakesAPoseAtOnce() {
    Scene scene;
    QVERIFY(scene.load(face));
    BuddyFigure* figure = figureOf(scene);
    figure->setPose("jump");
    QVERIFY(figure->isMoving());
    scene.theme().setAlwaysReducesMotion(true);
    QVERIFY(!figure->isMoving());
    figure->setPose("dance");
    QVERIFY(!figure->isMoving());
    const QImage first = scene.grab();
    QCOMPARE(difference(first, scene.grab()), 0);
  }

 private:
  static bool loadTile(Scene& scene, BuddyRoom& room) {
    return scene.loadFile(QStringLiteral("qrc:/qt/qml/Ambrel/Buddy/BuddyTile.qml"),
                          {{QStringLiteral("center"), toVariant(*room.center)},
                           {QStringLiteral("settings"), toVariant(*room.settings)},
                           {QStringLiteral("title"), QStringLiteral("Dock Buddy")},
                           {QStringLiteral("span"), 0}});
  }
  static bool loadBubble(Scene& scene, BuddyRoom& room) {
    keep({room.center.get()});
    return scene.loadFile(QStringLiteral("qrc:/qt/qml/Ambrel/Buddy/BuddyBubbleLayout.qml"),
                          {{QStringLiteral("center"), toVariant(*room.center)}});
  }
  // Shown at once.
  static bool loadInbox(Scene& scene, BuddyRoom& room, Presentation& presentation) {
    keep({room.center.get(), &presentation});
    const bool isLoaded = scene.loadFile(QStringLiteral("qrc:/qt/qml/Ambrel/Buddy/BuddyInboxLayout.qml"),
                                         {{QStringLiteral("center"), toVariant(*room.center)},
                                          {QStringLiteral("presentation"), toVariant(presentation)},
                                          {QStringLiteral("width"), 360},
                                          {QStringLiteral("height"), 480}});
    presentation.show();
    return isLoaded;
  }
  // The first control of that accessible name.
  static QQuickItem* control(QQuickItem* root, const QString& name) {
    return firstShown(root, [&](QQuickItem* item) { return item->activeFocusOnTab() && spokenName(item) == name; });
  }

  static constexpr const char* face =
      "import Ambrel.Buddy\nItem { width: 80; height: 80; BuddyFace { objectName: 'face'; size: 50; "
      "anchors.centerIn: parent } }";
};

}  // namespace ambrel

QTEST_MAIN(ambrel::BuddyViewTests)
#include "BuddyViewTests.moc"
