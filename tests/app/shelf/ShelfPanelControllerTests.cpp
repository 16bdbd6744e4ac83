#include <QSignalSpy>
#include <QTest>

#include "app/base/PointerRelay.h"
#include "app/shelf/EdgeSensor.h"
#include "tests/app/shelf/ShelfRoom.h"

namespace ambrel {
namespace {

struct Edge {
  FakePointer pointer;
  FakeScreens screens;
  Instant now = instantFromUnixSeconds(1'795'262'400);
  EdgeSensor sensor{pointer, screens, [this] { return now; }};
  int entered = 0;

  Edge() {
    screens.screens = {{"A", {0, 0, 1600, 900}, {0, 0, 1600, 900}, false}};
    sensor.onEnter = [this] { ++entered; };
  }
  void restAtTheMiddle() {
    pointer.move({800, 900});
    now = advanced(now, Seconds(0.3));
    sensor.look();
  }
};

}  // namespace

class ShelfPanelControllerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void itDropsFromTheTopOfThePointersScreen() {
    // The second screen is to the right of the first, 100 higher.
    const std::tuple<const char*, Point, int, QRect> rows[] = {{"main screen", {200, 300}, 0, {310, -20, 980, 320}},
                                                               {"other screen", {2000, 300}, 0, {1750, -120, 980, 320}},
                                                               {"nowhere", {-900, 300}, 0, {310, -20, 980, 320}},
                                                               {"below a panel", {200, 300}, 30, {310, 10, 980, 320}}};
    for (const auto& [where, pointer, reserved, frame] : rows) {
      ShelfRoom room;
      room.screens.screens = {{"A", {0, 0, 1600, 900}, {0, 0, 1600, 900.0 - reserved}, false},
                              {"B", {1600, 0, 1280, 1000}, {1600, 0, 1280, 1000}, false}};
      room.pointer.at = pointer;
      room.shelf->open();
      QVERIFY2(room.frame() == frame, where);
    }
  }

  void itComesAndGoes() {
    ShelfRoom room;
    QSignalSpy shown(room.shelf.get(), &ShelfPanelController::shownChanged);
    QVERIFY(!room.shelf->window());
    QVERIFY(room.open());
    QVERIFY(room.shelf->isShown());
    room.shelf->toggle();
    QVERIFY(!room.shelf->isShown());
    QVERIFY(room.window().isVisible());
    room.desk.pass(Seconds(0.5));
    QVERIFY(!room.window().isVisible());
    QCOMPARE(shown.count(), 2);
    room.shelf->toggle();
    QVERIFY(room.window().isVisible());
    // Whatever takes the keyboard away closes it.
    Q_EMIT static_cast<PanelWindow&>(room.window()).leaveAsked();
    QVERIFY(!room.shelf->isShown());
  }

  // The window of the shelf ends after it, which is a movement under Wayland.
  void theSensorLeavesNobodyWaiting() {
    FakePointer pointer;
    FakeScreens screens;
    {
      EdgeSensor sensor(pointer, screens, [] { return Instant(); });
      sensor.setActive(true);
      QVERIFY(pointer.isWaiting());
    }
    QVERIFY(!pointer.isWaiting());
  }

  void itIsFreedWhenItWasClosedForLong() {
    ShelfRoom room;
    QVERIFY(room.open());
    room.shelf->close();
    room.desk.pass(Seconds(1));
    room.desk.pass(ShelfPanelController::keptFor - Seconds(2));
    QVERIFY(room.shelf->window());
    QVERIFY(room.open());
    room.desk.pass(Seconds(3));
    QVERIFY(room.shelf->window());
    room.shelf->close();
    room.desk.pass(Seconds(1));
    room.desk.pass(ShelfPanelController::keptFor);
    QVERIFY(!room.shelf->window());
    QVERIFY(room.open());
  }

  void aShelfThatThePointerOpenedGoesWithIt() {
    ShelfRoom room;
    room.shelf->openByPointer();
    QVERIFY(room.shelf->isShown());
    QVERIFY(room.window().property("_q_showWithoutActivating").toBool());
    room.desk.pass(Seconds(0.1));
    // Where the test's platform hands the keys out all the same.
    if (room.window().isActive()) QSKIP("this platform activates every window");
    room.shelf->setPointerInside(true);
    room.shelf->setPointerInside(false);
    room.desk.pass(Seconds(0.4));
    room.shelf->setPointerInside(true);
    room.desk.pass(Seconds(2));
    QVERIFY(room.shelf->isShown());
    room.shelf->setPointerInside(false);
    room.desk.pass(Seconds(0.6));
    QVERIFY(!room.shelf->isShown());
  }

  void aShelfThatWasOpenedByKeyStaysWithoutThePointer() {
    ShelfRoom room;
    QVERIFY(room.open());
    room.shelf->setPointerInside(true);
    room.shelf->setPointerInside(false);
    room.desk.pass(Seconds(5));
    QVERIFY(room.shelf->isShown());
  }

  void theSensorIsOnWhileItIsWanted() {
    ShelfRoom room;
    QVERIFY(room.shelf->sensor().isActive());
    room.shelf->open();
    QVERIFY(!room.shelf->sensor().isActive());
    room.shelf->close();
    QVERIFY(room.shelf->sensor().isActive());
    room.desk.settings.set(setting::shelfOpensOnHover, false);
    QVERIFY(!room.shelf->sensor().isActive());
    QVERIFY(!room.pointer.isWaiting());
  }

  void aPinnedClipIsCopiedWithAWord() {
    ShelfRoom room;
    room.attachToast();
    room.desk.copy("  first line\nsecond");
    QVERIFY(!room.shelf->copyPinned(1));
    QVERIFY(room.desk.pasteboard.written.empty());
    room.desk.model->togglePin(room.desk.id(0));
    QVERIFY(room.shelf->copyPinned(1));
    QCOMPARE(room.desk.pasteboard.writtenText(), "  first line\nsecond");
    const QObject* toast = room.shownToast();
    QCOMPARE(toast->property("title").toString(), QStringLiteral("Copied pinned 1"));
    QCOMPARE(toast->property("detail").toString(), QStringLiteral("first line"));
    QCOMPARE(toast->property("symbol").toString(), QStringLiteral("star.fill"));
    QVERIFY(!room.shelf->copyPinned(2));
  }

  void removedClipsCanBeBroughtBackFromTheToast() {
    ShelfRoom room;
    room.attachToast();
    for (const char* text : {"a", "b", "c"}) room.desk.copy(text);
    QVERIFY(room.open());
    room.desk.model->cleanUp("kind:text");
    auto* window = static_cast<PanelWindow*>(room.toast.window());
    QVERIFY(window);
    QObject* toast = room.shownToast();
    QCOMPARE(toast->property("title").toString(), QStringLiteral("3 items removed"));
    QCOMPARE(toast->property("action").toString(), QStringLiteral("Undo"));
    // Below the shelf, and in its middle.
    QCOMPARE(window->panelFrame().y(), 316);
    QVERIFY(std::abs(window->panelFrame().center().x() - room.frame().center().x()) <= 1);
    QMetaObject::invokeMethod(toast, "actionChosen");
    QCOMPARE(room.desk.model->count(), 3);
    QVERIFY(!toast->property("isShown").toBool());
  }

  void theToastGoesWithTheLastChanceToUndo() {
    ShelfRoom room;
    room.attachToast();
    room.desk.copy("a");
    room.desk.model->remove(room.desk.id(0));
    const QObject* toast = room.shownToast();
    QVERIFY(toast->property("isShown").toBool());
    QCOMPARE(toast->property("title").toString(), QStringLiteral("1 item removed"));
    room.desk.pass(Seconds(6));
    QVERIFY(!toast->property("isShown").toBool());
    // Another message stays.
    room.desk.copy("b");
    room.desk.model->remove(room.desk.id(0));
    room.toast.show("Something else", {}, {});
    room.desk.pass(Seconds(6));
    QVERIFY(toast->property("isShown").toBool());
  }

  void itSleepsWhileThePointerRestsAndWhileItIsOff() {
    Edge edge;
    QVERIFY(!edge.pointer.isWaiting());
    edge.sensor.setActive(true);
    QVERIFY(edge.pointer.isWaiting());
    QCOMPARE(edge.pointer.strips, (std::vector<Rect>{{600, 899, 400, 1}}));
    edge.restAtTheMiddle();
    QCOMPARE(edge.entered, 1);
    edge.sensor.look();
    QVERIFY(edge.pointer.isWaiting());
    QVERIFY(!edge.sensor.isLooking());
    const int looks = edge.pointer.looks;
    edge.sensor.setActive(false);
    QVERIFY(!edge.pointer.isWaiting());
    QVERIFY(edge.pointer.strips.empty());
    edge.sensor.look();
    QCOMPARE(edge.pointer.looks, looks);
  }

  void aPressedButtonMeansSomethingElse() {
    Edge edge;
    edge.sensor.setActive(true);
    edge.pointer.pressed = true;
    edge.restAtTheMiddle();
    QCOMPARE(edge.entered, 0);
  }

  void severalWatchOnePointer() {
    FakePointer pointer;
    PointerRelay relay(pointer);
    const auto one = relay.monitor();
    auto other = relay.monitor();
    int first = 0, second = 0;
    QVERIFY(one->wakeOnMove([&] { ++first; }));
    QVERIFY(other->wakeOnMove([&] {
      ++second;
      other->wakeOnMove([&] { ++second; });
    }));
    pointer.move({1, 1});
    QCOMPARE(first, 1);
    QCOMPARE(second, 1);
    QVERIFY(pointer.isWaiting());
    pointer.move({2, 2});
    QCOMPARE(first, 1);
    QCOMPARE(second, 2);
    QVERIFY(!pointer.isWaiting());
    one->wakeOnMove([&] { ++first; });
    other->wakeOnMove([&] { ++second; });
    one->setStrips({{0, 0, 5, 1}});
    other->setStrips({{0, 0, 1, 5}});
    QCOMPARE(pointer.strips.size(), std::size_t{2});
    other.reset();
    QCOMPARE(pointer.strips, (std::vector<Rect>{{0, 0, 5, 1}}));
    QVERIFY(pointer.isWaiting());
    one->stopWaiting();
    QVERIFY(!pointer.isWaiting());
    QCOMPARE(one->location(), pointer.at);
    pointer.canWake = false;
    QVERIFY(!one->wakeOnMove([] {}));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::ShelfPanelControllerTests)
#include "ShelfPanelControllerTests.moc"
