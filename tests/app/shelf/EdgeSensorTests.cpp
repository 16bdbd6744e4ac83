#include <QTest>

#include "app/base/PointerRelay.h"
#include "app/shelf/EdgeSensor.h"
#include "tests/fakes/FakePlatform.h"

namespace ambrel {
namespace {

const Instant start = instantFromUnixSeconds(1'795'262'400);
const std::vector<ScreenInfo> oneScreen{{"A", {0, 0, 1600, 900}, {0, 0, 1600, 900}, false}};

}  // namespace

class EdgeSensorTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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
