#include <QTest>

#include "app/base/PointerRelay.h"
#include "app/shelf/EdgeSensor.h"
#include "tests/fakes/FakePlatform.h"

namespace ambrel {
namespace {

const Instant start = instantFromUnixSeconds(1'795'262'400);
const std::vector<ScreenInfo> oneScreen{{"A", {0, 0, 1600, 900}, {0, 0, 1600, 900}, false}};

// Whether a pointer that has rested there for so long is taken for a wish.
bool asks(std::optional<Point> pointer, double seconds, const std::vector<ScreenInfo>& screens = oneScreen) {
  EdgeDwell dwell;
  dwell.update(pointer, screens, start);
  return dwell.update(pointer, screens, advanced(start, Seconds(seconds)));
}

}  // namespace

class EdgeSensorTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void onlyAPointerThatRestsInTheMiddleOfTheEdgeAsks() {
    QVERIFY(asks(Point{800, 900}, 0.25));
    QVERIFY(asks(Point{800, 898.5}, 0.25));
    QVERIFY(asks(Point{1000, 899}, 1));
    QVERIFY(!asks(Point{800, 900}, 0.24));
    QVERIFY(!asks(Point{800, 898}, 1));
    QVERIFY(!asks(Point{1001, 900}, 1));
    QVERIFY(!asks(Point{0, 900}, 1));
    QVERIFY(!asks(Point{800, 1200}, 1));
    QVERIFY(!asks(std::nullopt, 1));
    QVERIFY(!asks(Point{800, 900}, 1, {}));
  }

  void anotherProgramsPanelKeepsItsEdge() {
    const std::vector<ScreenInfo> below{{"A", {0, 0, 1600, 900}, {0, 0, 1600, 870}, false}};
    for (const double y : {900.0, 870.5, 865.5}) QVERIFY(!asks(Point{800, y}, 1, below));
    QVERIFY(asks(Point{800, 868}, 0.5, below));
    QVERIFY(!asks(Point{800, 868}, 0.49, below));
    QVERIFY(asks(Point{800, 900}, 1, {{"A", {0, 0, 1600, 900}, {0, 40, 1600, 860}, false}}));
  }

  void itAsksOncePerVisit() {
    EdgeDwell dwell;
    const auto at = [&](double seconds, Point pointer) {
      return dwell.update(pointer, oneScreen, advanced(start, Seconds(seconds)));
    };
    QVERIFY(!at(0, {800, 900}));
    QVERIFY(dwell.isWaiting());
    QVERIFY(at(0.3, {800, 900}));
    QVERIFY(!at(5, {800, 900}));
    QVERIFY(!dwell.isWaiting());
    QVERIFY(!at(6, {800, 500}));
    QVERIFY(!at(7, {800, 900}));
    QVERIFY(at(8, {800, 900}));
  }

  void itSleepsWhileThePointerRestsAndWhileItIsOff() {
    FakePointer pointer;
    FakeScreens screens;
    screens.screens = oneScreen;
    Instant now = start;
    EdgeSensor sensor(pointer, screens, [&] { return now; });
    int entered = 0;
    sensor.onEnter = [&] { ++entered; };
    QVERIFY(!pointer.isWaiting());
    sensor.setActive(true);
    QVERIFY(pointer.isWaiting());
    pointer.move({800, 900});
    QVERIFY(sensor.isLooking());
    now = advanced(now, Seconds(0.3));
    sensor.look();
    QCOMPARE(entered, 1);
    sensor.look();
    QVERIFY(pointer.isWaiting());
    QVERIFY(!sensor.isLooking());
    const int looks = pointer.looks;
    sensor.setActive(false);
    QVERIFY(!pointer.isWaiting());
    sensor.look();
    QCOMPARE(pointer.looks, looks);
  }

  void aPressedButtonMeansSomethingElse() {
    FakePointer pointer;
    FakeScreens screens;
    screens.screens = oneScreen;
    Instant now = start;
    EdgeSensor sensor(pointer, screens, [&] { return now; });
    int entered = 0;
    sensor.onEnter = [&] { ++entered; };
    sensor.setActive(true);
    pointer.pressed = true;
    pointer.move({800, 900});
    now = advanced(now, Seconds(0.3));
    sensor.look();
    QCOMPARE(entered, 0);
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
    other.reset();
    QVERIFY(pointer.isWaiting());
    one->stopWaiting();
    QVERIFY(!pointer.isWaiting());
    QCOMPARE(one->location(), pointer.at);
    pointer.canWake = false;
    QVERIFY(!one->wakeOnMove([] {}));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::EdgeSensorTests)
#include "EdgeSensorTests.moc"
