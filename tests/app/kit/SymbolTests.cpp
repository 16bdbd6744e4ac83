#include <QFontDatabase>
#include <QPainter>
#include <QRawFont>
#include <QTest>
#include <set>

#include "app/kit/Symbol.h"
#include "app/kit/SymbolDrawing.h"
#include "app/kit/SymbolTable.h"
#include "core/widgets.h"

namespace ambrel {

class SymbolTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void namesAreSortedAndUnique();
  void everyGlyphIsInTheFont();
  void everyWidgetHasADrawnSymbol_data();
  void everyWidgetHasADrawnSymbol();
  void neighboursInTheCatalogueDiffer();
  void weatherPicturesDiffer();
  void unknownNameIsNotBlank();

 private:
  static QImage drawn(const QString& name, int size = 24);
};

QImage SymbolTests::drawn(const QString& name, int size) {
  Symbol symbol;
  symbol.setName(name);
  symbol.setColor(Qt::black);
  symbol.setSize(size);
  symbol.setWidth(size);
  symbol.setHeight(size);
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  symbol.paint(&painter);
  return image;
}

static int inkedPixels(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += qAlpha(image.pixel(x, y)) > 100;
  return count;
}

void SymbolTests::namesAreSortedAndUnique() {
  const auto table = symbolTable();
  QVERIFY(table.size() > 200);
  for (std::size_t i = 1; i < table.size(); ++i)
    QVERIFY2(table[i - 1].name < table[i].name, std::string(table[i].name).c_str());
  for (const SymbolGlyph& entry : table) QVERIFY(glyphOf(entry.name) == entry.glyph);
  for (const char* name : {"", "cp", "cpux", "zzzz", "CPU"}) QVERIFY2(!glyphOf(name), name);
}

void SymbolTests::everyGlyphIsInTheFont() {
  QVERIFY2(QFontDatabase::hasFamily(QString::fromLatin1(symbolFontFamily)), "the icon font is not installed");
  QFont font(QString::fromLatin1(symbolFontFamily));
  const QRawFont raw = QRawFont::fromFont(font);
  for (const SymbolGlyph& entry : symbolTable())
    QVERIFY2(raw.supportsCharacter(static_cast<uint>(entry.glyph)), std::string(entry.name).c_str());
}

void SymbolTests::everyWidgetHasADrawnSymbol_data() {
  QTest::addColumn<QString>("name");
  for (const DockWidget widget : allCases<DockWidget>()) {
    const std::string name(symbol(widget));
    QTest::newRow(name.c_str()) << QString::fromStdString(name);
  }
}

void SymbolTests::everyWidgetHasADrawnSymbol() {
  QFETCH(QString, name);
  QVERIFY(glyphOf(name.toStdString()) || weatherOf(name.toStdString()));
  const QImage image = drawn(name);
  QVERIFY2(inkedPixels(image) > 20, qPrintable(QString::number(inkedPixels(image))));
  QVERIFY(image != drawn("no such symbol"));
}

void SymbolTests::neighboursInTheCatalogueDiffer() {
  std::set<std::string> names;
  for (const DockWidget widget : allCases<DockWidget>()) names.insert(std::string(symbol(widget)));
  // Nearly every widget can be told by its symbol alone.
  QVERIFY2(names.size() > 95, qPrintable(QString::number(names.size())));
}

void SymbolTests::weatherPicturesDiffer() {
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

void SymbolTests::unknownNameIsNotBlank() {
  QVERIFY(inkedPixels(drawn("no such symbol")) > 10);
  QCOMPARE(inkedPixels(drawn("")), 0);
}

}  // namespace ambrel

QTEST_MAIN(ambrel::SymbolTests)
#include "SymbolTests.moc"
