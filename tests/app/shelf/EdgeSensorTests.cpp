#include <QTest>

#include "app/base/PointerRelay.h"
#include "app/shelf/EdgeSensor.h"
#include "tests/fakes/FakePlatform.h"

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

class EdgeSensorTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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

QTEST_GUILESS_MAIN(ambrel::EdgeSensorTests)
#include "EdgeSensorTests.moc"
