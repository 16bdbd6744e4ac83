#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QRawFont>
#include <QTest>

#include "app/kit/Gauge.h"
#include "app/kit/SparklineCurve.h"
#include "app/kit/Symbol.h"
#include "app/kit/SymbolTable.h"
#include "app/kit/TickingText.h"
#include "core/widgets.h"

namespace ambrel {
namespace {

constexpr QColor ink(255, 0, 0);
constexpr QColor ground(0, 0, 255);

// Four pixels for each logical one.
QImage painted(QQuickPaintedItem& item, QSize size) {
  item.setWidth(size.width());
  item.setHeight(size.height());
  QImage image(size * 4, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.scale(4, 4);
  item.paint(&painter);
  return image;
}

QColor colorAt(const QImage& image, qreal x, qreal y) {
  return image.pixelColor(qBound(0, int(x * 4), image.width() - 1), qBound(0, int(y * 4), image.height() - 1));
}

void set(QObject& item, std::initializer_list<std::pair<const char*, QVariant>> properties) {
  for (const auto& [name, value] : properties) QVERIFY2(item.setProperty(name, value), name);
}

QVariant numbers(const QList<qreal>& values) { return QVariant::fromValue(values); }

int inkedPixels(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += qAlpha(image.pixel(x, y)) > 100;
  return count;
}

}  // namespace

class PaintedItemsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theArcCoversItsShare() {
    // How many of three o'clock, six o'clock and nine o'clock the arc has passed.
    const std::pair<qreal, int> rows[] = {{0, 0},  {qQNaN(), 0}, {qInf(), 0}, {-30, 0}, {30, 1},
                                          {60, 2}, {90, 3},      {100, 3},    {240, 3}};
    const QPointF places[] = {{34, 18}, {18, 34}, {2, 18}};
    for (const auto& [value, passed] : rows) {
      RingArc ring;
      set(ring, {{"color", ink}, {"trackColor", ground}, {"value", value}});
      const QImage image = painted(ring, {36, 36});
      for (int i = 0; i < 3; ++i) QCOMPARE(colorAt(image, places[i].x(), places[i].y()), i < passed ? ink : ground);
      QCOMPARE(colorAt(image, 18, 18).alpha(), 0);
      QVERIFY(ring.shown() >= 0 && ring.shown() <= 100);
    }
  }

  void theBarCoversItsShare() {
    // A trace keeps its round ends.
    const std::pair<qreal, qreal> rows[] = {{25, 25}, {50, 50}, {100, 100}, {0.5, 4}};
    for (const auto& [value, end] : rows) {
      MeterBar bar;
      set(bar, {{"color", ink}, {"trackColor", ground}, {"value", value}});
      const QImage image = painted(bar, {100, 4});
      QCOMPARE(colorAt(image, end - 1.5, 2), ink);
      if (end < 100) QCOMPARE(colorAt(image, end + 1.5, 2), ground);
    }
  }

  void seenChangesEaseInAndOthersJump() {
    QQuickWindow window;
    window.resize(100, 100);
    RingArc ring(window.contentItem());
    ring.setSize({36, 36});
    set(ring, {{"duration", 300}, {"value", 70}});
    QVERIFY2(ring.shown() == 70, "there was nobody to see it");
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    ring.setValue(70.8);
    QVERIFY2(ring.shown() == 70.8, "less than a pixel");
    ring.setValue(20);
    QVERIFY(ring.shown() > 20);
    QTRY_COMPARE(ring.shown(), 20.0);
    ring.setValue(80);
    QVERIFY(ring.shown() < 80);
    ring.setVisible(false);
    QVERIFY2(ring.shown() == 80, "out of sight it stops at once");
    ring.setVisible(true);
    set(ring, {{"duration", 0}, {"value", 10}});
    QCOMPARE(ring.shown(), 10.0);
  }

  void theSparklineHasGaps() {
    SparklineCurve curve;
    set(curve, {{"color", ink}, {"capacity", 5}, {"marksLast", false}, {"values", numbers({50, 50, qQNaN(), 50, 50})}});
    const QImage image = painted(curve, {44, 32});
    // Under the line there is the fill, in the gap nothing.
    QVERIFY(colorAt(image, 5, 28).alpha() > 0);
    QCOMPARE(colorAt(image, 22, 28).alpha(), 0);
    QVERIFY(colorAt(image, 39, 28).alpha() > 0);
  }

  void theSparklineShowsTheLatest() {
    SparklineCurve curve;
    set(curve, {{"color", ink}, {"capacity", 3}, {"values", numbers({0, 0, 0, 0, 0, 0, 0, 100})}});
    QImage image = painted(curve, {44, 32});
    QCOMPARE(colorAt(image, 41.5, 2.5), ink);
    QCOMPARE(colorAt(image, 2, 15).alpha(), 0);
    set(curve, {{"values", numbers({100, 100})}});
    image = painted(curve, {44, 32});
    QVERIFY2(colorAt(image, 10, 20).alpha() == 0, "fewer values than it has room for are at the right");
    QVERIFY(colorAt(image, 30, 20).alpha() > 0);
    // Without a given top the largest value reaches it.
    set(curve, {{"maximum", 0}, {"values", numbers({1, 2, 4})}});
    QCOMPARE(colorAt(painted(curve, {44, 32}), 41.5, 2.5), ink);
    for (const QList<qreal>& values : {QList<qreal>{0, 0, 0}, QList<qreal>{}}) {
      set(curve, {{"values", numbers(values)}});
      QCOMPARE(colorAt(painted(curve, {44, 32}), 20, 3).alpha(), 0);
    }
  }

  void tickingTextKeepsItsWidth() {
    QFont font("Inter");
    font.setPixelSize(18);
    TickingText text;
    set(text, {{"font", font}, {"widest", "00:00"}, {"text", "11:11"}});
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
    set(text, {{"widest", QString()}, {"text", "11"}});
    QVERIFY(text.implicitWidth() < width);
  }

  void tickingTextIsSetSmallerWhereThatMakesItFit() {
    QFont font("Inter");
    font.setPixelSize(18);
    TickingText text;
    set(text, {{"font", font}, {"text", "10:58 PM"}});
    const qreal whole = text.implicitWidth();
    const auto giveRoom = [&](qreal share) {
      set(text, {{"room", whole * share}});
      text.setWidth(whole * share);
    };
    for (const double share : {1.0, 0.9, 0.7}) {
      giveRoom(share);
      QVERIFY2(!text.truncated(), qPrintable(QString::number(share)));
      QVERIFY(text.implicitWidth() <= whole * share);
    }
    giveRoom(0.3);
    QVERIFY(text.truncated());
    QVERIFY2(text.implicitWidth() == whole, "where nothing helps, it keeps its size and ends in an ellipsis");
    giveRoom(1);
    QCOMPARE(text.implicitWidth(), whole);
  }

  void namesAreFoundAsTheyAreWritten() {
    for (const SymbolGlyph& entry : symbolTable()) QVERIFY(glyphOf(entry.name) == entry.glyph);
    for (const char* name : {"", "cp", "cpux", "zzzz", "CPU"}) QVERIFY2(!glyphOf(name), name);
  }

  void everyGlyphIsInTheFont() {
    QVERIFY2(QFontDatabase::hasFamily(QString::fromLatin1(symbolFontFamily)), "the icon font is not installed");
    QFont font(QString::fromLatin1(symbolFontFamily));
    const QRawFont raw = QRawFont::fromFont(font);
    for (const SymbolGlyph& entry : symbolTable())
      QVERIFY2(raw.supportsCharacter(static_cast<uint>(entry.glyph)), std::string(entry.name).c_str());
  }

  void everyWidgetHasADrawnSymbol() {
    const QImage unknown = drawn("no such symbol");
    QVERIFY(inkedPixels(unknown) > 10);
    QCOMPARE(inkedPixels(drawn("")), 0);
    for (const DockWidget widget : allCases<DockWidget>()) {
      const std::string name(symbol(widget));
      const QImage image = drawn(QString::fromStdString(name));
      QVERIFY2(inkedPixels(image) > 20 && image != unknown, name.c_str());
    }
  }

  void weatherPicturesDiffer() {
    const QStringList names{"sun.max.fill",       "cloud.sun.fill",  "cloud.fill",      "cloud.fog.fill",
                            "cloud.drizzle.fill", "cloud.rain.fill", "cloud.snow.fill", "cloud.bolt.rain.fill"};
    QList<QImage> images;
    for (const QString& name : names) {
      const QImage image = drawn(name);
      QVERIFY2(inkedPixels(image) > 60, qPrintable(name));
      QVERIFY2(!images.contains(image), qPrintable(name));
      images << image;
    }
  }

 private:
  static QImage drawn(const QString& name, int size = 24) {
    Symbol symbol;
    symbol.setProperty("name", name);
    symbol.setProperty("color", QColor(Qt::black));
    symbol.setProperty("size", size);
    symbol.setWidth(size);
    symbol.setHeight(size);
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    symbol.paint(&painter);
    return image;
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::PaintedItemsTests)
#include "PaintedItemsTests.moc"
