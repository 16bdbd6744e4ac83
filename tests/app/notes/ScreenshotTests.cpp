#include <QFile>
#include <QImage>
#include <QTest>

#include "app/notes/ScreenshotModel.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

class ScreenshotTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void whatIsChosenIsSavedAndCopied() {
    TemporaryFolder folder;
    FakeScreenCapture screen;
    FakeShell shell;
    HeldWork work;
    std::vector<Representation> copied;
    std::function<void()> delayed;
    const QString pictures = QString::fromStdString((folder / "Pictures/Screenshots").string());
    ScreenshotModel model({.screen = screen,
                           .background = work.background(),
                           .now = [] { return *parseISO8601("2026-11-22T14:30:05Z"); },
                           .calendar = Calendar("UTC", "en_US"),
                           .later = [&](Seconds, std::function<void()> step) { delayed = std::move(step); },
                           .folder = [&] { return pictures; },
                           .copy = [&](auto what) { copied = std::move(what); }},
                          shell);
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::red);
    screen.next = {.image = image, .windows = {{0, 0, 0.5, 0.5}, {0.25, 0.25, 0.5, 2}}, .problem = {}};
    model.take();
    QCOMPARE(model.face().sizeText, QStringLiteral("200 × 100"));
    model.chooseWindowAt({0.3, 0.3});
    QCOMPARE(model.face().sizeText, QStringLiteral("100 × 75"));
    model.chooseNextWindow();
    model.chooseNextWindow();
    QCOMPARE(model.face().sizeText, QStringLiteral("100 × 50"));
    model.choose({0.5, 0.5, -0.1, 4});
    QCOMPARE(model.face().sizeText, QStringLiteral("20 × 50"));
    model.choose({0.5, 0.5, 0.001, 0.001});
    QVERIFY2(model.face().isWhole, "a click is no area");

    // The panel closes at once; the second picture of a second does not take the first one's name.
    model.save();
    model.drop();
    work.letGo();
    model.takeLater();
    QVERIFY(!model.face().hasPicture);
    delayed();
    model.chooseWindowAt({0, 0});
    model.save();
    work.letGo();
    QCOMPARE(shell.toasts, (QStringList{"Saved", "Saved"}));
    QCOMPARE(QImage(pictures + "/Screenshot 2026-11-22 14-30-05.png").size(), QSize(200, 100));
    QCOMPARE(QImage(pictures + "/Screenshot 2026-11-22 14-30-05 (2).png").size(), QSize(100, 50));
    model.copy();
    work.letGo();
    QCOMPARE(copied.size(), std::size_t(1));
    QCOMPARE(QImage::fromData(QByteArray::fromStdString(copied[0].bytes)).size(), QSize(100, 50));

    // Another one in the meantime makes a waiting one superfluous.
    model.takeLater();
    model.take();
    model.drop();
    delayed();
    QVERIFY(!model.face().hasPicture);
    screen.next = {.image = {}, .windows = {}, .problem = "There is no screen to capture."};
    model.take();
    QCOMPARE(shell.toasts.last(), QStringLiteral("No screenshot"));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ScreenshotTests)
#include "ScreenshotTests.moc"
