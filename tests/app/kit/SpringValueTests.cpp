#include <QTest>

#include "app/kit/SpringValue.h"

namespace ambrel {

class SpringValueTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theFirstTargetIsWhereItStands() {
    SpringValue spring;
    spring.setTarget(120);
    QCOMPARE(spring.value(), 120.0);
    QVERIFY(spring.isSettled());
  }

  void itEndsExactlyOnItsTarget() {
    for (const qreal damping : {0.55, 0.86, 1.0}) {
      SpringValue spring;
      spring.setProperty("damping", damping);
      spring.setTarget(0);
      spring.setTarget(100);
      qreal farthest = 0;
      for (int time = 0; time <= spring.duration(); time += 8) {
        spring.setCurrentTime(time);
        farthest = std::max(farthest, spring.value());
      }
      spring.setCurrentTime(spring.duration());
      QCOMPARE(spring.value(), 100.0);
      QCOMPARE(farthest > 100.01, damping < 1);  // only an underdamped spring goes past
    }
  }

  void aNewTargetOnTheWayKeepsPlaceAndSpeed() {
    SpringValue spring;
    spring.setTarget(0);
    spring.setTarget(100);
    spring.setCurrentTime(80);
    const qreal before = spring.value();
    spring.setCurrentTime(81);
    const qreal speed = spring.value() - before;
    const qreal place = spring.value();
    spring.setTarget(0);
    spring.setCurrentTime(1);
    // It still moves on for a moment, nearly as fast, before it turns.
    QVERIFY(spring.value() > place);
    QVERIFY(spring.value() - place > speed * 0.7);
  }

  void nothingMovesWhenItIsInstant() {
    SpringValue spring;
    spring.setProperty("isInstant", true);
    spring.setTarget(5);
    spring.setTarget(50);
    QCOMPARE(spring.value(), 50.0);
    QVERIFY(spring.isSettled());
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::SpringValueTests)
#include "SpringValueTests.moc"
