#include <QFontDatabase>
#include <QPainter>
#include <QRawFont>
#include <QTest>

#include "app/kit/Symbol.h"
#include "app/kit/SymbolTable.h"
#include "core/widgets.h"

namespace ambrel {

static int inkedPixels(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += qAlpha(image.pixel(x, y)) > 100;
  return count;
}

class SymbolTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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

QTEST_MAIN(ambrel::SymbolTests)
#include "SymbolTests.moc"
