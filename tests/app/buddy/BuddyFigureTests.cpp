#include <QImage>
#include <QQuickItem>
#include <QTest>

#include "app/buddy/Buddy.h"
#include "app/buddy/BuddyFigure.h"
#include "app/buddy/BuddyMotion.h"
#include "tests/app/kit/Scene.h"

// With AMBREL_PICTURES=FOLDER the pictures of all poses are kept there.

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

QString textOf(BuddyPose pose) {
  const auto name = nameOf(pose);
  return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

BuddyFigure* figureOf(Scene& scene) { return scene.root()->findChild<BuddyFigure*>(); }

}  // namespace

class BuddyFigureTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyTriggerHasItsPose();
  void everyPoseCanBeToldFromEveryOther();
  void theGalleryIsDrawnInBothSchemes();
  void aStanceIsReachedThroughASpringAndHeld();
  void reactionsComeToRest_data();
  void reactionsComeToRest();
  void heBlinksOnlyWhileHeIsSeenAndAwake();
  void aBlinkShutsHisEyesForAMoment();
  void reducedMotionTakesAPoseAtOnce();
  void anUnknownPoseIsIdle();

 private:
  static constexpr const char* face =
      "import Ambrel.Buddy\nItem { width: 80; height: 80; BuddyFace { objectName: 'face'; size: 50; "
      "anchors.centerIn: parent } }";
};

void BuddyFigureTests::everyTriggerHasItsPose() {
  QCOMPARE(allCases<BuddyTrigger>().size(), std::size_t(18));
  for (const BuddyTrigger trigger : allCases<BuddyTrigger>()) {
    QVERIFY(nameOf(poseOf(trigger)) == nameOf(trigger));
    Buddy buddy([](Seconds, std::function<void()>) {});
    buddy.play(trigger);
    QCOMPARE(buddy.poseName(), textOf(poseOf(trigger)));
  }
}

void BuddyFigureTests::everyPoseCanBeToldFromEveryOther() {
  Scene scene;
  scene.theme().setChoice(Theme::Choice::Dark);
  scene.theme().setAlwaysReducesMotion(true);
  QVERIFY(scene.load(face));
  std::vector<std::pair<QString, QImage>> pictures;
  for (const BuddyPose pose : allCases<BuddyPose>()) {
    scene.find("face")->setProperty("pose", textOf(pose));
    pictures.emplace_back(textOf(pose), scene.grab());
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

void BuddyFigureTests::theGalleryIsDrawnInBothSchemes() {
  Scene scene;
  QVERIFY(scene.loadFile(QStringLiteral(BUDDY_FOLDER "/BuddyGallery.qml")));
  for (const auto& [choice, name] : {std::pair{Theme::Choice::Dark, "dark"}, {Theme::Choice::Light, "light"}}) {
    scene.theme().setChoice(choice);
    const QImage image = scene.grab();
    QVERIFY(!image.isNull());
    const QString folder = qEnvironmentVariable("AMBREL_PICTURES");
    if (!folder.isEmpty()) QVERIFY(image.save(QStringLiteral("%1/buddy-%2.png").arg(folder, QLatin1String(name))));
  }
  QCOMPARE(scene.warnings().take(), QStringList());
}

void BuddyFigureTests::aStanceIsReachedThroughASpringAndHeld() {
  const BuddyLook& look = lookOf(BuddyPose::startle);
  const BuddyStance from = lookOf(BuddyPose::idle).stance;
  QCOMPARE(stanceAt(from, look, 0).up, from.up);
  QCOMPARE(stanceAt(from, look, look.seconds).up, look.stance.up);
  QCOMPARE(stanceAt(from, look, 1000).leftHand, look.stance.leftHand);
  double furthest = 0;
  for (double at = 0; at < look.seconds; at += 0.01) furthest = std::max(furthest, buddySpring(at));
  QVERIFY2(furthest > 1.1 && furthest < 1.2, qPrintable(QString::number(furthest)));
}

void BuddyFigureTests::reactionsComeToRest_data() {
  QTest::addColumn<int>("pose");
  for (const BuddyPose pose : allCases<BuddyPose>()) QTest::newRow(qPrintable(textOf(pose))) << static_cast<int>(pose);
}

void BuddyFigureTests::reactionsComeToRest() {
  QFETCH(const int, pose);
  const BuddyLook& look = lookOf(static_cast<BuddyPose>(pose));
  QVERIFY(look.seconds >= 0.5 && look.seconds <= 1.6);
  // Nothing jumps at the end of the way.
  const BuddyStance last = stanceAt({}, look, look.seconds - 0.016);
  QVERIFY(std::abs(last.angle - look.stance.angle) < 2);
  QVERIFY(std::abs(last.up - look.stance.up) < 0.6);
  QVERIFY(std::abs(last.height - look.stance.height) < 0.02);
  QVERIFY(std::abs(last.width - look.stance.width) < 0.06);
}

void BuddyFigureTests::heBlinksOnlyWhileHeIsSeenAndAwake() {
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
  figure->setProperty("still", true);
  QVERIFY(!figure->waitsToBlink());
  figure->setProperty("still", false);
  scene.window().hide();
  QVERIFY(!figure->waitsToBlink());
  scene.window().show();
  QVERIFY(figure->waitsToBlink());
}

void BuddyFigureTests::aBlinkShutsHisEyesForAMoment() {
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

void BuddyFigureTests::reducedMotionTakesAPoseAtOnce() {
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

void BuddyFigureTests::anUnknownPoseIsIdle() {
  BuddyFigure figure;
  figure.setPose("jump");
  figure.setPose("somersault");
  QCOMPARE(figure.pose(), QStringLiteral("idle"));
}

}  // namespace ambrel

QTEST_MAIN(ambrel::BuddyFigureTests)
#include "BuddyFigureTests.moc"
