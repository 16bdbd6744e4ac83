#include <QImage>
#include <QQuickItem>
#include <QTest>

#include "app/base/StoredValue.h"
#include "app/buddy/BuddyFigure.h"
#include "app/buddy/BuddyMotion.h"
#include "tests/app/kit/Scene.h"

namespace ambrel {
namespace {

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

class BuddyFigureTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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
    QVERIFY(figure->waitsToBlink());
    QVERIFY(figure->blinkWait() >= 5000 && figure->blinkWait() <= 9000);
    figure->setPose("asleep");
    QVERIFY(!figure->waitsToBlink());
    figure->setPose("happy");
    QVERIFY(!figure->waitsToBlink());
    figure->setPose("wink");
    QVERIFY(figure->waitsToBlink());
    figure->setProperty("live", false);
    QVERIFY(!figure->waitsToBlink());
    figure->setProperty("live", true);
    QVERIFY(figure->waitsToBlink());
    figure->setVisible(false);
    QVERIFY(!figure->waitsToBlink());
    figure->setVisible(true);
    QVERIFY(figure->waitsToBlink());
    scene.theme().setAlwaysReducesMotion(true);
    QVERIFY(!figure->waitsToBlink());
    scene.theme().setAlwaysReducesMotion(false);
    scene.window().hide();
    QVERIFY(!figure->waitsToBlink());
    scene.window().show();
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
  static constexpr const char* face =
      "import Ambrel.Buddy\nItem { width: 80; height: 80; BuddyFace { objectName: 'face'; size: 50; "
      "anchors.centerIn: parent } }";
};

}  // namespace ambrel

QTEST_MAIN(ambrel::BuddyFigureTests)
#include "BuddyFigureTests.moc"
