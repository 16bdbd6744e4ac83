#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QTest>

#include "app/kit/Gauge.h"
#include "app/kit/SparklineCurve.h"
#include "app/kit/TickingText.h"

namespace ambrel {

class GaugeTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void valueIsBounded_data();
  void valueIsBounded();
  void arcCoversItsShare_data();
  void arcCoversItsShare();
  void barCoversItsShare_data();
  void barCoversItsShare();
  void seenChangesEaseIn();
  void unseenOrSmallChangesJump();
  void sparklineHasGaps();
  void sparklineShowsTheLatest();
  void tickingTextKeepsItsWidth();
  void tickingTextIsSetSmallerWhereThatMakesItFit();
};

constexpr QColor ink(255, 0, 0);
constexpr QColor ground(0, 0, 255);

// The middles of pixels; `scale` pixels for each logical one.
static QImage painted(QQuickPaintedItem& item, QSize size) {
  item.setWidth(size.width());
  item.setHeight(size.height());
  QImage image(size * 4, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.scale(4, 4);
  item.paint(&painter);
  return image;
}

static QColor colorAt(const QImage& image, qreal x, qreal y) {
  return image.pixelColor(qBound(0, int(x * 4), image.width() - 1), qBound(0, int(y * 4), image.height() - 1));
}

template <typename Item>
static void dress(Item& item, qreal value) {
  item.setColor(ink);
  item.setTrackColor(ground);
  item.setValue(value);
}

void GaugeTests::valueIsBounded_data() {
  QTest::addColumn<qreal>("value");
  QTest::addColumn<qreal>("shown");
  QTest::newRow("inside") << 42.5 << 42.5;
  QTest::newRow("below") << -3.0 << 0.0;
  QTest::newRow("above") << 240.0 << 100.0;
  QTest::newRow("unknown") << qQNaN() << 0.0;
  QTest::newRow("infinite") << qInf() << 0.0;
}

void GaugeTests::valueIsBounded() {
  QFETCH(qreal, value);
  QFETCH(qreal, shown);
  RingArc ring;
  ring.setValue(50);
  ring.setValue(value);
  QCOMPARE(ring.shown(), shown);
  painted(ring, {36, 36});
}

void GaugeTests::arcCoversItsShare_data() {
  QTest::addColumn<qreal>("value");
  QTest::addColumn<bool>("atThree");
  QTest::addColumn<bool>("atSix");
  QTest::addColumn<bool>("atNine");
  QTest::newRow("nothing") << 0.0 << false << false << false;
  QTest::newRow("unknown") << qQNaN() << false << false << false;
  QTest::newRow("30") << 30.0 << true << false << false;
  QTest::newRow("60") << 60.0 << true << true << false;
  QTest::newRow("90") << 90.0 << true << true << true;
  QTest::newRow("100") << 100.0 << true << true << true;
}

void GaugeTests::arcCoversItsShare() {
  QFETCH(qreal, value);
  RingArc ring;
  dress(ring, value);
  const QImage image = painted(ring, {36, 36});
  const auto expected = [](bool isCovered) { return isCovered ? ink : ground; };
  QFETCH(bool, atThree);
  QFETCH(bool, atSix);
  QFETCH(bool, atNine);
  QCOMPARE(colorAt(image, 34, 18), expected(atThree));
  QCOMPARE(colorAt(image, 18, 34), expected(atSix));
  QCOMPARE(colorAt(image, 2, 18), expected(atNine));
  QCOMPARE(colorAt(image, 18, 18).alpha(), 0);
}

void GaugeTests::barCoversItsShare_data() {
  QTest::addColumn<qreal>("value");
  QTest::addColumn<qreal>("end");
  QTest::newRow("quarter") << 25.0 << 25.0;
  QTest::newRow("half") << 50.0 << 50.0;
  QTest::newRow("all") << 100.0 << 100.0;
  QTest::newRow("a trace keeps its round ends") << 0.5 << 4.0;
}

void GaugeTests::barCoversItsShare() {
  QFETCH(qreal, value);
  QFETCH(qreal, end);
  MeterBar bar;
  dress(bar, value);
  const QImage image = painted(bar, {100, 4});
  QCOMPARE(colorAt(image, end - 1.5, 2), ink);
  if (end < 100) QCOMPARE(colorAt(image, end + 1.5, 2), ground);
}

void GaugeTests::seenChangesEaseIn() {
  QQuickWindow window;
  window.resize(100, 100);
  RingArc ring(window.contentItem());
  ring.setSize({36, 36});
  ring.setDuration(300);
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));
  ring.setValue(80);
  QVERIFY(ring.shown() < 80);
  QTRY_COMPARE(ring.shown(), 80.0);
  ring.setValue(20);
  QVERIFY(ring.shown() > 20);
  // Out of sight it stops at once.
  ring.setVisible(false);
  QCOMPARE(ring.shown(), 20.0);
}

void GaugeTests::unseenOrSmallChangesJump() {
  RingArc unseen;
  unseen.setSize({36, 36});
  unseen.setDuration(300);
  unseen.setValue(80);
  QCOMPARE(unseen.shown(), 80.0);

  QQuickWindow window;
  window.resize(100, 100);
  RingArc ring(window.contentItem());
  ring.setSize({36, 36});
  ring.setDuration(300);
  window.show();
  QVERIFY(QTest::qWaitForWindowExposed(&window));
  ring.setValue(0.8);
  QCOMPARE(ring.shown(), 0.8);
  ring.setDuration(0);
  ring.setValue(90);
  QCOMPARE(ring.shown(), 90.0);
}

void GaugeTests::sparklineHasGaps() {
  SparklineCurve curve;
  curve.setColor(ink);
  curve.setCapacity(5);
  curve.setMarksLast(false);
  curve.setValues({50, 50, qQNaN(), 50, 50});
  const QImage image = painted(curve, {44, 32});
  // Under the line there is the fill, in the gap nothing.
  QVERIFY(colorAt(image, 5, 28).alpha() > 0);
  QCOMPARE(colorAt(image, 22, 28).alpha(), 0);
  QVERIFY(colorAt(image, 39, 28).alpha() > 0);
}

void GaugeTests::sparklineShowsTheLatest() {
  SparklineCurve curve;
  curve.setColor(ink);
  curve.setCapacity(3);
  curve.setValues({0, 0, 0, 0, 0, 0, 0, 100});
  QImage image = painted(curve, {44, 32});
  QCOMPARE(colorAt(image, 41.5, 2.5), ink);
  QCOMPARE(colorAt(image, 2, 15).alpha(), 0);
  // Fewer values than it has room for stand at the right.
  curve.setValues({100, 100});
  image = painted(curve, {44, 32});
  QCOMPARE(colorAt(image, 10, 20).alpha(), 0);
  QVERIFY(colorAt(image, 30, 20).alpha() > 0);
  // Without a given top the largest value reaches it.
  curve.setMaximum(0);
  curve.setValues({1, 2, 4});
  image = painted(curve, {44, 32});
  QCOMPARE(colorAt(image, 41.5, 2.5), ink);
  curve.setValues({0, 0, 0});
  painted(curve, {44, 32});
  curve.setValues({});
  QCOMPARE(colorAt(painted(curve, {44, 32}), 20, 30).alpha(), 0);
}

void GaugeTests::tickingTextKeepsItsWidth() {
  QFont font("Inter");
  font.setPixelSize(18);
  TickingText text;
  text.setFont(font);
  text.setWidest("00:00");
  text.setText("11:11");
  const qreal width = text.implicitWidth();
  for (const char* time : {"04:44", "18:24", "1:1"}) {
    text.setText(time);
    QCOMPARE(text.implicitWidth(), width);
  }
  QCOMPARE(text.widthOf("11:11"), text.widthOf("48:40"));
  text.setWidth(width);
  QVERIFY(!text.truncated());
  text.setText("100:00:00");
  QVERIFY(text.implicitWidth() > width);
  QVERIFY(text.truncated());
  // Without a widest text the box follows.
  text.setWidest({});
  text.setText("11");
  QVERIFY(text.implicitWidth() < width);
}

void GaugeTests::tickingTextIsSetSmallerWhereThatMakesItFit() {
  QFont font("Inter");
  font.setPixelSize(18);
  TickingText text;
  text.setFont(font);
  text.setText("10:58 PM");
  const qreal whole = text.implicitWidth();
  for (const double share : {1.0, 0.9, 0.7}) {
    text.setRoom(whole * share);
    text.setWidth(whole * share);
    QVERIFY2(!text.truncated(), qPrintable(QString::number(share)));
    QVERIFY(text.implicitWidth() <= whole * share);
  }
  // Where nothing helps, it keeps its size and ends in an ellipsis.
  text.setRoom(whole * 0.3);
  text.setWidth(whole * 0.3);
  QVERIFY(text.truncated());
  QCOMPARE(text.implicitWidth(), whole);
  // With more room it grows back.
  text.setRoom(whole);
  QCOMPARE(text.implicitWidth(), whole);
}

}  // namespace ambrel

QTEST_MAIN(ambrel::GaugeTests)
#include "GaugeTests.moc"
