#include <QImageReader>
#include <QPainter>
#include <QQuickImageResponse>
#include <QTest>

#include "app/clipboard/ClipPictures.h"
#include "core/clipboard/ClipboardFolder.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

// A picture of three upright stripes: red, green, blue.
QString write(const TemporaryFolder& folder, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  const int third = size.width() / 3;
  painter.fillRect(0, 0, third, size.height(), Qt::red);
  painter.fillRect(third, 0, third, size.height(), Qt::green);
  painter.fillRect(2 * third, 0, size.width(), size.height(), Qt::blue);
  painter.end();
  const auto name = imageName(std::to_string(size.width()) + "x" + std::to_string(size.height()));
  image.save(QString::fromStdString(folder / name), "PNG");
  return QString::fromStdString(name);
}

// Waits for the picture; null when there is none.
QImage asked(ClipPictures& pictures, const QString& path, QSize size) {
  const std::unique_ptr<QQuickImageResponse> response(pictures.requestImageResponse(path, size));
  if (!QTest::qWaitFor([&] { return pictures.isIdle(); })) return {};
  const std::unique_ptr<QQuickTextureFactory> factory(response->textureFactory());
  return factory ? factory->image() : QImage();
}

}  // namespace

class ClipPicturesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aCardShowsTheMiddleOfALargePicture() {
    const TemporaryFolder folder;
    const QString name = write(folder, {900, 100});
    const QImage card = pictureOf(folder / name.toStdString(), {100, 100}, PictureFit::card);
    QCOMPARE(card.size(), QSize(100, 100));
    for (const int x : {2, 50, 97}) QCOMPARE(card.pixelColor(x, 50), QColor(Qt::green));
  }

  void aLargePictureIsNeverInMemoryAsAWhole() {
    const TemporaryFolder folder;
    const QString name = write(folder, {3000, 1000});
    if (!QImageReader(QString::fromStdString((folder / name.toStdString()).string()))
             .supportsOption(QImageIOHandler::ScaledSize))
      QSKIP("this release of Qt decodes every PNG as a whole");
    const int before = QImageReader::allocationLimit();
    // Megabytes; the picture as it is takes twelve.
    QImageReader::setAllocationLimit(1);
    const QImage card = pictureOf(folder / name.toStdString(), {100, 100}, PictureFit::card);
    const QImage preview = pictureOf(folder / name.toStdString(), {600, 300}, PictureFit::whole);
    QImageReader::setAllocationLimit(before);
    QCOMPARE(card.size(), QSize(100, 100));
    for (const int x : {2, 50, 97}) QCOMPARE(card.pixelColor(x, 50), QColor(Qt::green));
    QCOMPARE(preview.size(), QSize(600, 200));
  }

  void aSmallPictureStandsInTheMiddleUnenlarged() {
    const TemporaryFolder folder;
    const QString name = write(folder, {30, 10});
    const QImage card = pictureOf(folder / name.toStdString(), {100, 100}, PictureFit::card);
    QCOMPARE(card.pixelColor(50, 50), QColor(Qt::green));
    QCOMPARE(card.pixelColor(37, 50), QColor(Qt::red));
    QCOMPARE(card.pixelColor(30, 50).alpha(), 0);
    QCOMPARE(card.pixelColor(50, 60).alpha(), 0);
    QCOMPARE(pictureOf(folder / name.toStdString(), {100, 100}, PictureFit::whole).size(), QSize(30, 10));
  }

  void aWholePictureKeepsItsShape() {
    const TemporaryFolder folder;
    const QString name = write(folder, {900, 300});
    QCOMPARE(pictureOf(folder / name.toStdString(), {300, 300}, PictureFit::whole).size(), QSize(300, 100));
  }

  void whatIsNoPictureShowsNothing() {
    const TemporaryFolder folder;
    ClipPictures pictures(folder.path());
    const auto broken = QString::fromStdString(imageName("broken"));
    folder.write(broken.toStdString(), "no picture");
    folder.write("outside.png", "");
    QVERIFY(asked(pictures, "card/" + broken, {100, 100}).isNull());
    QVERIFY(asked(pictures, "card/../outside.png", {100, 100}).isNull());
    QVERIFY(asked(pictures, "card/" + QString::fromStdString(imageName("gone")), {100, 100}).isNull());
    QVERIFY(asked(pictures, "card/" + write(folder, {30, 10}), {0, 0}).isNull());
  }

  void aCardIsDecodedOnce() {
    const TemporaryFolder folder;
    ClipPictures pictures(folder.path());
    const QString name = write(folder, {300, 300});
    for (const char* kind : {"card/", "whole/"}) QVERIFY(!asked(pictures, kind + name, {120, 112}).isNull());
    std::filesystem::remove(folder / name.toStdString());
    QVERIFY(!asked(pictures, "card/" + name, {120, 112}).isNull());
    // Another size, and a picture in full.
    for (const char* kind : {"card/", "whole/"}) QVERIFY(asked(pictures, kind + name, {120, 113}).isNull());
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::ClipPicturesTests)
#include "ClipPicturesTests.moc"
