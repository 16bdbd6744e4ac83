#include <QFontDatabase>
#include <QImage>
#include <QtTest>

#include "app/kit/SymbolTable.h"
#include "app/menu/StatusIcon.h"

namespace ambrel {

class StatusIconTests : public QObject {
  Q_OBJECT

  // Pixels that are nearer to the colour than to the ground.
  static int inked(const QImage& image, const QColor& color, const QColor& ground) {
    const auto distance = [](const QColor& a, const QColor& b) {
      return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    };
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        if (pixel.alpha() > 200 && distance(pixel, color) * 2 < distance(pixel, ground)) ++count;
      }
    return count;
  }

  static int warm(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y).red() - image.pixelColor(x, y).blue() > 80) ++count;
    return count;
  }

 private Q_SLOTS:
  void initTestCase() {
    if (!QFontDatabase::families().contains(QString::fromLatin1(symbolFontFamily)))
      QSKIP("the icon font is not installed");
  }

  void thePlainIconHasASignInInkAndNoOrange() {
    const Palette palette = darkPalette();
    for (const int size : {16, 22, 64}) {
      const QImage image = statusImage(0, palette, size);
      QCOMPARE(image.size(), QSize(size, size));
      QVERIFY2(inked(image, palette.ink, palette.panel) > size * size / 20, qPrintable(QString::number(size)));
      QCOMPARE(warm(image), 0);
      QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    }
  }

  void attentionIsOrangeAndEachCountItsOwnPicture() {
    const Palette palette = darkPalette();
    QList<QImage> seen;
    for (const int count : {1, 2, 9, 10}) {
      const QImage image = statusImage(count, palette, 44);
      QVERIFY(warm(image) > 44 * 44 / 10);
      QVERIFY(!seen.contains(image));
      seen << image;
    }
    QCOMPARE(statusImage(10, palette, 44), statusImage(99, palette, 44));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::StatusIconTests)
#include "StatusIconTests.moc"
