#include <QAccessible>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

#include "app/base/QmlObjects.h"
#include "tests/app/buddy/BuddyRoom.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/Scene.h"

// With AMBREL_PICTURES=FOLDER the pictures that are looked at are kept there.

namespace ambrel {
namespace {

using enum AgentStatus;

AgentSession codex(AgentStatus status) { return agentSession("codex:a", AgentKind::codex, status); }

QString nameOf(QQuickItem* item) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(item);
  return interface ? interface->text(QAccessible::Name) : QString();
}

void keepPicture(Scene& scene, const QString& name) {
  const QString folder = qEnvironmentVariable("AMBREL_PICTURES");
  if (!folder.isEmpty()) scene.grab().save(folder + u'/' + name + QStringLiteral(".png"));
}

}  // namespace

// The tile, the bubble and the inbox with a real notice centre behind them.
class BuddyViewTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theTileIsSpokenAndOpens() {
    BuddyRoom room;
    keep({room.center.get()});
    Scene scene;
    QVERIFY(loadTile(scene, room));
    QCOMPARE(nameOf(scene.root()), QStringLiteral("Dock Buddy, Awake"));
    room.poll({codex(needsInput)});
    room.tick();
    QCOMPARE(nameOf(scene.root()), QStringLiteral("Dock Buddy. Codex needs you. Waiting for your answer in web-shop."));
    QSignalSpy clicked(scene.root(), SIGNAL(clicked()));
    scene.root()->setFocus(false);
    click(scene, scene.root());
    QCOMPARE(clicked.count(), 1);
    room.center->closeBubble();
    QCOMPARE(nameOf(scene.root()), QStringLiteral("Dock Buddy, 1 new note"));
    QCOMPARE(scene.warnings().take(), QStringList());
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
    QCOMPARE(scene.warnings().take(), QStringList());
  }

  void theBubbleShowsItsNotice_data() {
    QTest::addColumn<QString>("side");
    QTest::addColumn<bool>("isDark");
    for (const char* side : {"bottom", "left", "right", ""})
      for (const bool isDark : {true, false})
        QTest::addRow("%s %s", *side ? side : "none", isDark ? "dark" : "light") << QString::fromLatin1(side) << isDark;
  }

  void theBubbleShowsItsNotice() {
    QFETCH(QString, side);
    QFETCH(bool, isDark);
    BuddyRoom room;
    room.center->post(BuddyNotice("disk.low", BuddyRule::diskLow, "Disk almost full",
                                  "8.2 GB free. Caches can go, and so can what has been in the trash for a month.",
                                  room.now, {BuddyActions::OpenDiskCleanup{}, BuddyActions::Snooze{60}}));
    room.center->post(BuddyNotice("x", BuddyRule::water, "Time for some water", "2 glasses today.", room.now));
    Scene scene;
    scene.theme().setChoice(isDark ? Theme::Choice::Dark : Theme::Choice::Light);
    QVERIFY(loadBubble(scene, room));
    scene.root()->setProperty("tailSide", side);
    scene.root()->setProperty("tailAt", 60);
    scene.root()->setSize({scene.root()->implicitWidth(), scene.root()->implicitHeight()});
    scene.window().resize(scene.root()->size().toSize());
    QTest::qWait(0);
    QTRY_COMPARE(scene.root()->opacity(), 1.0);
    keepPicture(scene, QStringLiteral("bubble-%1-%2").arg(side, isDark ? "dark" : "light"));
    QCOMPARE(faultsOf(scene).join(u'|'), QString());
    QCOMPARE(nameOf(scene.root()),
             QStringLiteral(
                 "Disk almost full. 8.2 GB free. Caches can go, and so can what has been in the trash for a month."));
    for (const char* name : {"Clean Up", "Snooze 60 min", "1 more in the inbox", "Close"})
      QVERIFY2(control(scene.root(), QString::fromLatin1(name)), name);
    QCOMPARE(scene.warnings().take(), QStringList());
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
    click(scene, control(scene.root(), QStringLiteral("Clean Up")));
    QCOMPARE(room.cleanups, 1);
    QVERIFY(!room.center->hasBubble());
    say();
    QTRY_VERIFY(control(scene.root(), QStringLiteral("Snooze 60 min")));
    click(scene, control(scene.root(), QStringLiteral("Snooze 60 min")));
    QVERIFY(!room.center->hasBubble());
    // Beside its buttons.
    say();
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {40, 26});
    QCOMPARE(room.cleanups, 2);
    say();
    click(scene, control(scene.root(), QStringLiteral("Close")));
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
    presentation.show();
    for (const auto choice : {Theme::Choice::Dark, Theme::Choice::Light}) {
      scene.theme().setChoice(choice);
      QTest::qWait(0);
      QTRY_COMPARE(faultsOf(scene).join(u'|'), QString());
      keepPicture(scene, QStringLiteral("inbox-%1").arg(choice == Theme::Choice::Dark ? "dark" : "light"));
    }
    QStringList texts;
    visitShown(scene.root(), [&](QQuickItem* item) {
      if (item->inherits("QQuickText")) texts << item->property("text").toString();
    });
    // The newest is spread out, with what it offers and why it came.
    for (const char* text : {"New", "Earlier", "Codex needs you", "Show", "Why: An agent waits for your answer.",
                             "Time for some water", "2 hrs"})
      QVERIFY2(texts.contains(QString::fromUtf8(text)), qPrintable(texts.join(u'|')));
    QVERIFY(!texts.contains(QStringLiteral("Why: The next glass of water is due.")));
    QSignalSpy settings(scene.root(), SIGNAL(settingsAsked(QString)));
    click(scene, control(scene.root(), QStringLiteral("Change")));
    QCOMPARE(settings.count(), 1);
    click(scene, control(scene.root(), QStringLiteral("Mark all as read")));
    QCOMPARE(room.center->inbox().newCount, 0);
    click(scene, control(scene.root(), QStringLiteral("Clear all")));
    QCOMPARE(room.center->notes()->count(), 0);
    QCOMPARE(scene.warnings().take(), QStringList());
  }

  void theInboxIsUsedByKeyboard() {
    BuddyRoom room;
    for (const char* title : {"One", "Two", "Three"})
      room.center->post(
          BuddyNotice(title, BuddyRule::diskLow, title, "8 GB free.", room.now, {BuddyActions::OpenDiskCleanup{}}));
    Presentation presentation([](Seconds, std::function<void()> step) { step(); });
    Scene scene;
    QVERIFY(loadInbox(scene, room, presentation));
    presentation.show();
    // Everything that Tab reaches has a name, and the row's own button is among it.
    QStringList names;
    for (int i = 0; i < 40; ++i) {
      QTest::keyClick(&scene.window(), Qt::Key_Tab);
      QQuickItem* item = scene.window().activeFocusItem();
      QVERIFY(item);
      const QString name = nameOf(item);
      QVERIFY2(!name.isEmpty(), item->metaObject()->className());
      if (names.contains(name)) break;
      names << name;
    }
    QVERIFY2(names.contains(QStringLiteral("Clean Up")), qPrintable(names.join(u'|')));
    // Arrows go from row to row, Return spreads one out.
    QQuickItem* row = control(scene.root(), QStringLiteral("Three. 8 GB free., now, new"));
    QVERIFY(row);
    row->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(&scene.window(), Qt::Key_Down);
    QCOMPARE(nameOf(scene.window().activeFocusItem()), QStringLiteral("Two. 8 GB free., now, new"));
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
    presentation.show();
    QTest::qWait(0);
    keepPicture(scene, QStringLiteral("inbox-empty"));
    QTRY_COMPARE(faultsOf(scene).join(u'|'), QString());
    QStringList texts;
    visitShown(scene.root(), [&](QQuickItem* item) {
      if (item->inherits("QQuickText")) texts << item->property("text").toString();
    });
    QVERIFY(texts.contains(QStringLiteral("Nothing to report")));
    QVERIFY(!control(scene.root(), QStringLiteral("Clear all")));
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
  static bool loadInbox(Scene& scene, BuddyRoom& room, Presentation& presentation) {
    keep({room.center.get(), &presentation});
    return scene.loadFile(QStringLiteral("qrc:/qt/qml/Ambrel/Buddy/BuddyInboxLayout.qml"),
                          {{QStringLiteral("center"), toVariant(*room.center)},
                           {QStringLiteral("presentation"), toVariant(presentation)},
                           {QStringLiteral("width"), 360},
                           {QStringLiteral("height"), 480}});
  }
  // The first control of that accessible name.
  static QQuickItem* control(QQuickItem* root, const QString& name) {
    QQuickItem* found = nullptr;
    visitShown(root, [&](QQuickItem* item) {
      if (!found && item->inherits("QQuickItem") && item->activeFocusOnTab() && nameOf(item) == name) found = item;
    });
    return found;
  }
  static void click(Scene& scene, QQuickItem* item) {
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, scene.centerOf(item));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::BuddyViewTests)
#include "BuddyViewTests.moc"
