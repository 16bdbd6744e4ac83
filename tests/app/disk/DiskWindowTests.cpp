#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

#include "app/disk/DiskDoctorController.h"
#include "app/kit/Theme.h"
#include "tests/app/disk/DiskHome.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/QMLWarnings.h"
#include "tests/fakes/FakePlatform.h"

namespace ambrel {
namespace {

using Phase = DiskDoctor::Phase;
using Stage = ReviewFace::Stage;

// The window on a home of its own.
struct Room {
  QMLWarnings warnings;
  DiskHome desk;
  QQmlEngine engine;
  FakeWindowStyle style;
  std::unique_ptr<DiskDoctorController> controller;

  explicit Room(Theme::Choice choice = Theme::Choice::Dark, bool hasModel = false) : desk(hasModel) {
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    themeOf(engine).setAlwaysReducesMotion(true);
    themeOf(engine).setChoice(choice);
    style.compositing = false;
    controller = std::make_unique<DiskDoctorController>(engine, style, desk.doctor());
  }
  bool open() {
    controller->open();
    if (!root()) {
      qWarning() << window().status() << window().source();
      for (const QQmlError& error : window().errors()) qWarning() << error.toString();
      return false;
    }
    return QTest::qWaitForWindowActive(&window());
  }
  FramedWindow& window() { return *controller->window(); }
  QQuickItem* root() { return window().rootObject(); }
  DiskDoctor& doctor() { return desk.doctor(); }

  // The first shown item of that label or title.
  QQuickItem* labelled(const QString& label) {
    return firstShown(root(), [&](QQuickItem* item) {
      return item->property("label").toString() == label || item->property("title").toString() == label ||
             item->property("row").value<FindingRow>().title == label;
    });
  }
  bool hasText(const QString& text) { return textsOf(root()).contains(text); }
  bool click(const QString& label) {
    // What has just come finds its place when a picture is drawn.
    window().grabWindow();
    return ambrel::click(labelled(label));
  }
  void press(Qt::Key key) { QTest::keyClick(&window(), key); }
  QRectF placeOf(const QString& label) {
    const QQuickItem* item = labelled(label);
    return item ? item->mapRectToScene({0, 0, item->width(), item->height()}) : QRectF();
  }
  // The sheet takes clicks once it has been in view for a while.
  bool isSheetArmed() {
    return firstShown(root(), [](QQuickItem* item) { return item->property("isArmed").toBool(); });
  }
  QString focused() {
    const QQuickItem* item = window().activeFocusItem();
    return item ? item->property("label").toString() : QString();
  }
};

// Brings the window into one of its states.
void bring(Room& room, const QString& state) {
  DiskDoctor& doctor = room.doctor();
  if (state == "start") return;
  if (state == "message") {
    doctor.scan(room.desk.home + "/missing");
    room.desk.held.letGo();
    return;
  }
  if (state == "scanning") {
    doctor.scanHome();
    const std::string base = room.desk.home;
    doctor.explorer()->showUnfinished({.root = DiskScanner{}.scan(base + "/src").root,
                                       .share = 0.4,
                                       .bytes = 7'000'000,
                                       .missing = {"Documents", "Downloads", "Music"}},
                                      "Home");
    return;
  }
  if (state == "empty") {
    doctor.scan(room.desk.home + "/Documents");
    room.desk.finishScan();
    return;
  }
  doctor.scanHome();
  room.desk.held.letGo();
  if (state == "analysing") return;
  room.desk.held.letGo();
  if (state == "done") return;
  if (state == "question") return doctor.askAbout(room.desk.idOf("Downloads/old.iso"));
  doctor.findings()->toggleOpen("rule:oldInstallers");
  doctor.findings()->setSelected("rule:oldInstallers", true);
  doctor.findings()->setSelected("rule:developerCaches", true);
  if (state == "chosen") return;
  doctor.explorer()->enter(room.desk.idOf("src/web/node_modules"));
  if (state == "drilled") return;
  doctor.reviewSelection();
  if (state == "review") return;
  room.desk.trash.refused.insert(room.desk.home + "/Downloads/old.iso");
  doctor.review()->confirm();
  room.desk.held.letGo();
}

}  // namespace

class DiskWindowTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyStateLooksRight_data() {
    QTest::addColumn<QString>("state");
    QTest::addColumn<Theme::Choice>("choice");
    for (const auto choice : {Theme::Choice::Dark, Theme::Choice::Light})
      for (const char* state : {"start", "message", "scanning", "analysing", "empty", "done", "question", "chosen",
                                "drilled", "review", "report"})
        QTest::addRow("disk, %s, %s", state, choice == Theme::Choice::Dark ? "dark" : "light") << state << choice;
  }

  void everyStateLooksRight() {
    QFETCH(QString, state);
    QFETCH(Theme::Choice, choice);
    Room room(choice);
    QVERIFY(room.open());
    bring(room, state);
    QCOMPARE(room.window().size(), QSize(980, 640));
    // Colours fade in.
    QTRY_COMPARE(faultsOf(room.window(), room.root()).join("; "), "");
    int texts = 0;
    visitShown(room.root(), [&](QQuickItem* item) { texts += item->inherits("QQuickText"); });
    QVERIFY(texts > 4);
  }

  void largeTextsOfARowDoNotMeet() {
    Room room;
    themeOf(room.engine).setTextScale(1.5);
    QVERIFY(room.open());
    bring(room, "chosen");
    room.window().grabWindow();
    QStringList found;
    int rows = 0;
    visitShown(room.root(), [&](QQuickItem* item) {
      if (!item->property("amountInset").isValid()) return;
      ++rows;
      found << collisionsOf(item);
    });
    QVERIFY(rows > 4);
    QCOMPARE(found, QStringList());
  }

  void itGivesTheBarItsKeyboardBack() {
    Room room;
    int givenBack = 0;
    room.controller->hasBarKeyboard = [] { return true; };
    room.controller->giveKeyboardBack = [&] { ++givenBack; };
    QVERIFY(room.open());
    room.press(Qt::Key_Escape);
    QCOMPARE(givenBack, 1);
    // Whoever went elsewhere meanwhile stays there.
    QVERIFY(room.open());
    QWindow other;
    other.show();
    other.requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    room.controller->close();
    QCOMPARE(givenBack, 1);
  }

  void itFitsTheSmallestSize() {
    Room room;
    QVERIFY(room.open());
    bring(room, "chosen");
    room.window().resize(room.window().minimumSize());
    QTRY_COMPARE(faultsOf(room.window(), room.root()).join("; "), "");
  }

  void aScanBeginsAndStops() {
    Room room;
    QVERIFY(room.open());
    QVERIFY(room.click("Scan Home"));
    QCOMPARE(room.doctor().phase(), Phase::scanning);
    QVERIFY(room.hasText("Reading only. Nothing is changed while it scans."));
    QVERIFY(!room.labelled("Move to the Trash")->isEnabled());
    QVERIFY(room.click("Stop"));
    QCOMPARE(room.doctor().phase(), Phase::start);
    QSignalSpy asked(&room.doctor(), &DiskDoctor::folderAsked);
    QVERIFY(room.click("Choose a folder…"));
    QCOMPARE(asked.count(), 1);
  }

  void theHomeMayBeGuarded() {
    Room room;
    auto seams = room.desk.seams();
    seams.hasAccess = [] { return false; };
    room.controller.reset();
    room.desk.make(seams);
    room.controller = std::make_unique<DiskDoctorController>(room.engine, room.style, room.doctor());
    QVERIFY(room.open());
    QVERIFY(room.click("Scan Home"));
    QVERIFY(room.hasText("Your home cannot be read"));
    QVERIFY(room.click("Look again"));
    QCOMPARE(room.doctor().phase(), Phase::access);
    QVERIFY(room.click("Scan anyway"));
    QCOMPARE(room.doctor().phase(), Phase::scanning);
  }

  void whatIsSafeMovesByThreeClicks() {
    Room room;
    QVERIFY(room.open());
    bring(room, "done");
    QVERIFY(room.click("Choose what is safe"));
    QVERIFY(room.click("Move 7 MB to the Trash"));
    QCOMPARE(room.doctor().review()->face().stage, Stage::reviewing);
    // What is below is out of reach.
    QVERIFY(!room.click("Scan again"));
    QTRY_VERIFY(room.isSheetArmed());
    QVERIFY(room.click("Move to the Trash"));
    room.desk.held.letGo();
    QCOMPARE(room.doctor().review()->face().stage, Stage::reported);
    QVERIFY(room.hasText("Moved 7 MB to the Trash"));
    // Nor does a second click on the same place put the report away unread.
    QVERIFY(room.click("Done"));
    QCOMPARE(room.doctor().review()->face().stage, Stage::reported);
    QTRY_VERIFY(room.isSheetArmed());
    QVERIFY(room.click("Done"));
    QCOMPARE(room.doctor().review()->face().stage, Stage::closed);
    QVERIFY(room.desk.exists("Downloads/old.iso"));
    QVERIFY(!room.desk.exists("src/web/node_modules"));
  }

  void aDoubleClickOnlyOpensTheSheet_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("isLong");
    QTest::newRow("small, long list") << QSize(860, 560) << true;
    QTest::newRow("usual, short list") << QSize(980, 640) << false;
    QTest::newRow("flat, long list") << QSize(1240, 580) << true;
    QTest::newRow("large, short list") << QSize(1920, 1080) << false;
  }

  void aDoubleClickOnlyOpensTheSheet() {
    QFETCH(QSize, size);
    QFETCH(bool, isLong);
    Room room;
    for (int i = 0; i < (isLong ? 30 : 0); ++i) room.desk.fill("Downloads/more" + std::to_string(i) + ".zip", 1);
    QVERIFY(room.open());
    room.window().resize(size);
    QTRY_COMPARE(room.root()->size().toSize(), size);
    bring(room, "chosen");
    room.window().grabWindow();
    const QString move = room.doctor().findings()->choice().moveTitle;
    const QRectF opener = room.placeOf(move);
    QVERIFY(!opener.isEmpty());
    QTest::mouseDClick(&room.window(), Qt::LeftButton, {}, opener.center().toPoint());
    QCOMPARE(room.doctor().review()->face().stage, Stage::reviewing);
    // Nor do impatient clicks on the button itself count.
    room.window().grabWindow();
    const QRectF confirm = room.placeOf("Move to the Trash");
    QVERIFY(!confirm.isEmpty() && !confirm.intersects(opener));
    QTest::mouseDClick(&room.window(), Qt::LeftButton, {}, confirm.center().toPoint());
    QCOMPARE(room.doctor().review()->face().stage, Stage::reviewing);
    QVERIFY(room.desk.held.waiting.empty());
    QTRY_VERIFY(room.isSheetArmed());
    QVERIFY(room.click("Move to the Trash"));
    QCOMPARE(room.doctor().review()->face().stage, Stage::moving);
  }

  void leavingIsTheFirstButton() {
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
      Room room;
      QVERIFY(room.open());
      bring(room, "review");
      QTRY_COMPARE(room.focused(), "Leave everything");
      QTRY_VERIFY(room.isSheetArmed());
      room.press(key);
      QCOMPARE(room.doctor().review()->face().stage, Stage::closed);
      QVERIFY(room.desk.held.waiting.empty());
      QVERIFY(room.desk.trash.asked.empty());
    }
  }

  void theListWorksFromTheKeyboard() {
    Room room;
    QVERIFY(room.open());
    bring(room, "done");
    QQuickItem* list = firstShown(room.root(), [](QQuickItem* item) { return item->inherits("QQuickListView"); });
    QVERIFY(list);
    list->forceActiveFocus(Qt::TabFocusReason);
    FindingListModel& findings = *room.doctor().findings();
    QCOMPARE(list->property("currentIndex").toInt(), 0);
    room.press(Qt::Key_Down);
    QCOMPARE(findings.rows()[1].id, "rule:developerCaches");
    room.press(Qt::Key_Space);
    QCOMPARE(findings.selection().paths().size(), 1u);
    room.press(Qt::Key_Space);
    QCOMPARE(findings.selection().paths().size(), 0u);
    room.press(Qt::Key_Return);
    QCOMPARE(findings.rows()[2].id, "reason:developerCaches");
    room.press(Qt::Key_Left);
    QCOMPARE(findings.rows()[2].id, "rule:appCaches");
    room.press(Qt::Key_Right);
    room.press(Qt::Key_Down);
    room.press(Qt::Key_Down);
    room.press(Qt::Key_Return);
    QCOMPARE(room.doctor().question()->face().name, "pip");
  }

  void aClickOnAnItemAsksAboutIt() {
    Room room;
    QVERIFY(room.open());
    bring(room, "chosen");
    QTRY_VERIFY(room.click("old.iso"));
    QVERIFY(room.doctor().question()->face().isOpen);
    QVERIFY(room.hasText("Is it safe to delete this?"));
    std::string shown;
    QObject::connect(&room.doctor(), &DiskDoctor::showAsked, [&](const std::string& path) { shown = path; });
    QVERIFY(room.click("Show in Files"));
    QCOMPARE(shown, room.desk.home + "/Downloads/old.iso");
    QCOMPARE(room.doctor().findings()->selection().paths().size(), 3u);
    // The answer does not cover what it is about.
    QQuickItem* card = firstShown(room.root(), [](QQuickItem* item) {
      return QByteArray(item->metaObject()->className()).startsWith("AnswerCard");
    });
    QVERIFY(card);
    QQuickItem* row = room.labelled("old.iso");
    QTRY_VERIFY(row->mapToScene({0, row->height()}).y() <= card->mapToScene({0, 0}).y());
    room.press(Qt::Key_Escape);
    QVERIFY(!room.doctor().question()->face().isOpen);
  }

  void theChartIsReachedByTab() {
    Room room;
    QVERIFY(room.open());
    bring(room, "done");
    for (int i = 0; i < 20 && !room.window().activeFocusItem()->inherits("ambrel::SunburstChart"); ++i)
      room.press(Qt::Key_Tab);
    QVERIFY(room.window().activeFocusItem()->inherits("ambrel::SunburstChart"));
    room.press(Qt::Key_Right);
    const QString first = room.doctor().explorer()->hoveredID();
    QVERIFY(!first.isEmpty());
    room.press(Qt::Key_Return);
    QVERIFY(room.doctor().explorer()->spot().canGoUp || room.doctor().question()->face().isOpen);
  }

  void theTitleBarHasItsButtons() {
    Room room;
    QVERIFY(room.open());
    QVERIFY(room.click("Maximise"));
    QTRY_VERIFY(room.window().isFilling());
    QTRY_VERIFY(room.labelled("Restore"));
    QVERIFY(room.click("Restore"));
    QTRY_VERIFY(!room.window().isFilling());
    QVERIFY(room.click("Minimise"));
    QTRY_VERIFY(room.window().windowStates() & Qt::WindowMinimized);
    room.controller->open();
    QTRY_VERIFY(!(room.window().windowStates() & Qt::WindowMinimized));
    QVERIFY(room.click("Close"));
    QVERIFY(!room.controller->isShown());
  }

  void closingEndsTheScanAndKeepsTheResult() {
    Room room;
    QVERIFY(room.open());
    bring(room, "done");
    room.window().close();
    QVERIFY(!room.controller->isShown());
    QVERIFY(room.open());
    QCOMPARE(room.doctor().phase(), Phase::done);
    QVERIFY(room.labelled("Scan again"));
    room.doctor().scanAgain();
    room.controller->close();
    QCOMPARE(room.doctor().phase(), Phase::start);
    // A second one does nothing.
    room.controller->close();
  }

  void itIsAWindowOfItsOwn() {
    Room room;
    room.style.compositing = true;
    QVERIFY(room.open());
    QCOMPARE(room.style.prepared.size(), 1u);
    QCOMPARE(room.style.prepared.front().second, WindowRole::window);
    // The shadow is around the frame and takes no clicks.
    QCOMPARE(room.window().margin(), 48);
    QCOMPARE(room.window().size(), QSize(980 + 96, 640 + 96));
    QCOMPARE(room.style.margins.back(), 48.0);
    QCOMPARE(room.style.inputs.back(), (Rect{43, 43, 990, 650}));
    room.controller->open();
    QCOMPARE(room.style.prepared.size(), 1u);
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::DiskWindowTests)
#include "DiskWindowTests.moc"
