#include <QDir>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

#include "app/notes/CaptureView.h"
#include "app/notes/MarkDrawing.h"
#include "app/notes/ScreenNotesModel.h"
#include "app/notes/ScreenshotModel.h"
#include "tests/Pictures.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

struct Review {
  FakeScreenCapture screen;
  HeldWork held;
  FakeShell shell;
  std::vector<std::string> copied;
  ScreenNotesModel notes{{.screen = screen,
                          .background = held.background(),
                          .now = [] { return Instant(std::chrono::seconds(1'784'021'400)); },
                          .calendar = Calendar("Europe/Berlin", "de_DE"),
                          .copy = [this](const std::string& text) { copied.push_back(text); }},
                         shell};

  void capture(const QImage& image, std::vector<QRectF> windows = {}) {
    screen.next = {.image = image, .windows = std::move(windows), .problem = {}};
    notes.capture();
    held.letGo();
  }
  const ReviewPage& page(std::size_t index = 0) const { return notes.review().pages.at(index); }
};

// Ends in a run of letters that no line holds.
QString longNote() {
  QString text;
  for (int i = 0; i < 400; ++i) text += QStringLiteral("The word number %1 of a note. ").arg(i);
  return text + QString(500, QLatin1Char('x'));
}

}  // namespace

class ScreenNotesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aReviewGathersCaptures() {
    Review one;
    QSignalSpy captured(&one.notes, &ScreenNotesModel::captured);
    one.capture(plainPicture(400, 300));
    one.notes.addPin({0.5, 2.0});
    QCOMPARE(one.page().pins.at(0).point, (NormalizedPoint{0.5, 1}));
    QVERIFY(!one.notes.chosenPin().isEmpty());
    one.capture(plainPicture(200, 100));
    QCOMPARE(captured.count(), 2);
    QCOMPARE(one.notes.face().pageText, QStringLiteral("Capture 2 of 2"));
    QCOMPARE(one.notes.face().sizeText, QStringLiteral("200 × 100"));
    QCOMPARE(one.notes.face().capturedText, QStringLiteral("Captured 11:30"));
    QCOMPARE(one.notes.pins()->rowCount(), 0);
    QVERIFY(one.notes.chosenPin().isEmpty());
    one.notes.showPage(1);
    one.held.letGo();
    QCOMPARE(one.notes.picture().size(), QSize(400, 300));
    QCOMPARE(one.notes.pins()->rowCount(), 1);
    one.notes.removePage();
    one.held.letGo();
    QCOMPARE(one.notes.face().pageText, QStringLiteral("Capture 1 of 1"));
    QCOMPARE(one.notes.picture().size(), QSize(200, 100));
    one.notes.undo();
    QCOMPARE(one.notes.face().noteCount, 1);
  }

  void aFailedCaptureSaysWhy() {
    Review one;
    QSignalSpy captured(&one.notes, &ScreenNotesModel::captured);
    one.screen.next = {.image = {}, .windows = {}, .problem = "The screen cannot be read."};
    one.notes.capture();
    QCOMPARE(one.shell.toasts, QStringList("No capture"));
    // The user called it off.
    one.screen.next = {};
    one.notes.capture();
    QCOMPARE(one.shell.toasts.size(), 1);
    QCOMPARE(captured.count(), 0);
  }

  void picturesThatAreNotShownArePacked() {
    Review one;
    one.capture(plainPicture(400, 300, Qt::red));
    const QImage first = one.notes.picture();
    one.capture(plainPicture(400, 300, Qt::blue));
    one.notes.showPage(1);
    QVERIFY(!one.held.waiting.empty());  // it has to be decoded
    one.held.letGo();
    QCOMPARE(one.notes.picture(), first);
    QVERIFY(one.notes.picture().cacheKey() != first.cacheKey());
  }

  void croppingCanBeUndone() {
    Review one;
    QImage image = plainPicture(400, 300);
    image.setPixelColor(100, 60, Qt::red);
    one.capture(image, {QRectF(0.25, 0.2, 0.5, 0.5)});
    one.notes.addPin({0.3, 0.3});
    one.notes.crop({0.25, 0.2, 0.5, 0.5});
    QCOMPARE(one.notes.picture().size(), QSize(200, 150));
    QCOMPARE(one.notes.picture().pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(one.notes.windowAt({0.5, 0.5}), QRectF(0, 0, 1, 1));
    QVERIFY(qAbs(one.page().pins.at(0).point.x - 0.1) < 1e-9);
    one.notes.crop({0.1, 0.1, 0.01, 0.01});  // a slip
    QCOMPARE(one.notes.picture().size(), QSize(200, 150));
    one.notes.undo();
    one.held.letGo();
    QCOMPARE(one.notes.picture().size(), QSize(400, 300));
    QCOMPARE(one.page().pins.at(0).point, (NormalizedPoint{0.3, 0.3}));
    one.notes.redo();
    one.held.letGo();
    QCOMPARE(one.notes.picture().size(), QSize(200, 150));
  }

  void aClickFindsTheTopmostWindow() {
    Review one;
    one.capture(plainPicture(400, 300), {QRectF(0, 0, 1, 1), QRectF(0.2, 0.2, 0.2, 0.2), QRectF(0.3, 0.3, 0.5, 0.5)});
    QCOMPARE(one.notes.windowAt({0.35, 0.35}), QRectF(0.3, 0.3, 0.5, 0.5));
    QCOMPARE(one.notes.windowAt({0.25, 0.25}), QRectF(0.2, 0.2, 0.2, 0.2));
    QCOMPARE(one.notes.windowAt({0.9, 0.9}), QRectF(0, 0, 1, 1));
  }

  void marksAreRemovedWhereTheyAre() {
    Review one;
    one.capture(plainPicture(400, 300));
    one.notes.addPin({0.5, 0.5});
    one.notes.addHighlight({0.4, 0.4, 0.2, 0.2});
    const QSizeF reach(0.05, 0.05);
    one.notes.removeMarkAt({0.1, 0.1}, reach);
    QCOMPARE(one.page().pins.size() + one.page().highlights.size(), 2u);
    one.notes.removeMarkAt({0.52, 0.48}, reach);
    QCOMPARE(one.page().pins.size(), 0u);
    one.notes.removeMarkAt({0.52, 0.48}, reach);
    QCOMPARE(one.page().highlights.size(), 0u);
  }

  void closingAsksAndForgets() {
    Review one;
    QSignalSpy closed(&one.notes, &ScreenNotesModel::closed);
    one.capture(plainPicture(400, 300));
    one.notes.addPin({0.5, 0.5});
    one.notes.askToClose();
    QVERIFY(one.notes.face().asksToClose);
    one.notes.answerClose(false);
    QCOMPARE(closed.count(), 0);
    QCOMPARE(one.notes.face().noteCount, 1);
    one.notes.askToClose();
    one.notes.answerClose(true);
    QCOMPARE(closed.count(), 1);
    QVERIFY(one.notes.review().pages.empty());
    QVERIFY(one.notes.picture().isNull());
    QVERIFY(!one.notes.face().canUndo);
    one.notes.askToClose();  // nothing to lose
    QCOMPARE(closed.count(), 2);
  }

  void aCaptureThatComesTooLateOpensNothing() {
    Review one;
    one.capture(plainPicture(400, 300));
    one.capture(plainPicture(300, 200));
    one.notes.showPage(1);
    one.notes.answerClose(true);
    one.held.letGo();
    QVERIFY(one.notes.picture().isNull());
  }

  void notesAreCopiedAsMarkdown() {
    Review one;
    one.capture(plainPicture(400, 300));
    one.notes.addPin({0.5, 0.5});
    one.notes.setNote(one.notes.chosenPin(), QStringLiteral("Zu klein.\nGrößer!"));
    one.notes.copyNotes();
    QCOMPARE(one.copied,
             std::vector<std::string>{"# Screen review · 14. Juli 2026\n## Capture 1\n1. Zu klein. Größer!"});
    QCOMPARE(one.shell.toasts, QStringList("Copied the notes"));
  }

  void picturesAreExportedWithTheirMarks() {
    const QTemporaryDir folder;
    Review one;
    one.capture(plainPicture(400, 300));
    one.notes.addPin({0.25, 0.5});
    one.notes.addHighlight({0.5, 0.25, 0.25, 0.5});
    one.capture(plainPicture(200, 100, Qt::black));
    one.notes.exportTo(folder.path(), &exportPNG);
    QVERIFY(one.notes.face().isExporting);
    one.held.letGo();
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"Screen Review 1.png", "Screen Review 2.png"}));
    const QImage first(folder.filePath("Screen Review 1.png"));
    QCOMPARE(first.size(), QSize(400, 300));
    QCOMPARE(first.pixelColor(10, 10), QColor(Qt::white));
    QCOMPARE(first.pixelColor(90, 150), markColor(0));   // beside the number, inside the pin
    QCOMPARE(first.pixelColor(200, 150), markColor(0));  // the edge of the box
    QVERIFY(first.pixelColor(250, 150) != QColor(Qt::white));
    QCOMPARE(QImage(folder.filePath("Screen Review 2.png")).pixelColor(100, 50), QColor(Qt::black));
  }

  void pinsStayOnThePicture() {
    for (const QPointF corner : {QPointF(0, 0), QPointF(1, 1)}) {
      Review one;
      one.capture(plainPicture(400, 300));
      one.notes.addPin(corner);
      const QImage marked = annotated(one.notes.picture(), one.page());
      // A whole pin: its middle is half a pin from both edges.
      const QPoint inside = corner.isNull() ? QPoint(5, 14) : QPoint(394, 285);
      QCOMPARE(marked.pixelColor(inside), markColor(0));
    }
  }

  void aLongNoteGoesOnOnTheNextPage() {
    const QTemporaryDir folder;
    Review one;
    one.capture(plainPicture(400, 300));
    one.notes.addPin({0.5, 0.5});
    one.notes.setNote(one.notes.chosenPin(), longNote());
    one.notes.exportTo(folder.path(), &exportPDF);
    one.held.letGo();
    QFile file(folder.filePath("Screen Review.pdf"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("%PDF"));
    QVERIFY(bytes.count("/Type /Page\n") + bytes.count("/Type /Page ") >= 3);
  }

  void exportsOverwriteNothingAndTellOfFailure() {
    const QTemporaryDir folder;
    Review one;
    one.capture(plainPicture(40, 30));
    for (int i = 0; i < 2; ++i) {
      one.notes.exportTo(folder.path(), &exportPNG);
      one.held.letGo();
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files),
             QStringList({"Screen Review (2) 1.png", "Screen Review 1.png"}));
    one.notes.exportTo(folder.filePath("nowhere"), &exportPDF);
    one.held.letGo();
    QCOMPARE(one.shell.toasts.last(), QStringLiteral("The review was not saved"));
    QCOMPARE(one.notes.face().pageCount, 1);
    QVERIFY(!one.notes.face().isExporting);
  }

  void zoomingKeepsThePlaceUnderThePointer() {
    CaptureView view;
    view.setSize({800, 600});
    view.setPicture(plainPicture(1600, 900));
    QCOMPARE(view.percent(), 50);
    QCOMPARE(view.frame(), QRectF(0, 75, 800, 450));
    const QPointF pointer(600, 300);
    const QPointF place = view.placeOf(pointer);
    view.zoomBy(4, pointer);
    QCOMPARE(view.percent(), 200);
    QVERIFY((view.placeOf(pointer) - place).manhattanLength() < 1e-9);
    view.pan(10000, 10000);
    QCOMPARE(view.frame().topLeft(), QPointF(0, 0));
    view.reveal({1, 1});
    QVERIFY(QRectF(0, 0, 800, 600).contains(view.frame().bottomRight()));
    view.zoomBy(1.0 / 1000, pointer);
    QVERIFY(view.percent() >= 10);
    view.fit();
    QCOMPARE(view.frame(), QRectF(0, 75, 800, 450));
  }

  void whatIsChosenOfAScreenshotIsSavedAndCopied() {
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
    screen.next = {
        .image = plainPicture(200, 100, Qt::red), .windows = {{0, 0, 0.5, 0.5}, {0.25, 0.25, 0.5, 2}}, .problem = {}};
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

QTEST_MAIN(ambrel::ScreenNotesTests)
#include "ScreenNotesTests.moc"
