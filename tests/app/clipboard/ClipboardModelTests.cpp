#include <QSignalSpy>
#include <QTest>

#include "tests/Pictures.h"
#include "tests/app/clipboard/ClipboardDesk.h"

namespace ambrel {
namespace {

using Texts = std::vector<std::string>;

}  // namespace

class ClipboardModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aCopyEntersTheHistoryAndTheDisk() {
    ClipboardDesk desk;
    desk.workspace.inFront = {"org.example.editor", "com.openai.codex"};
    desk.copy("one\n");
    // Whoever works on the pasteboard's text never sees an empty one between two copies.
    QStringList told;
    connect(desk.model.get(), &ClipboardModel::pasteboardChanged, desk.model.get(),
            [&] { desk.model->readText([&told](const std::string& text) { told << toQString(text); }); });
    desk.copy("https://example.org/");
    QCOMPARE(told, QStringList{QStringLiteral("https://example.org/")});
    QCOMPARE(desk.texts(), (Texts{"https://example.org/", "one\n"}));
    QCOMPARE(desk.item(0).kind, ClipKind::link);
    QCOMPARE(desk.item(1).sourceBundleID, "org.example.editor");
    QCOMPARE(desk.item(1).createdAt, desk.now);
    QVERIFY(desk.stored() == desk.model->library());
    QCOMPARE(desk.model->currentItemID(), desk.item(0).id);
  }

  void whatIsOnThePasteboardAtLaunchIsNotRecorded() {
    ClipboardDesk desk(false);
    desk.make();
    desk.model->start();
    desk.pasteboard.copy("too early to be known");
    QVERIFY(desk.model->library().items.empty());
    // It came while the library was being loaded, so it is new.
    desk.work();
    desk.pasteboard.answer();
    desk.work();
    QCOMPARE(desk.texts(), Texts{"too early to be known"});

    desk.restart();
    QCOMPARE(desk.texts(), Texts{"too early to be known"});
    QCOMPARE(desk.model->currentItemID(), desk.item(0).id);
  }

  void copiesThatAreNotKeptAreStillNoticed() {
    for (const std::string why : {"switched off", "ignored program", "private", "blank", "nothing"}) {
      ClipboardDesk desk;
      desk.copy("kept");
      const auto reads = desk.pasteboard.reads;
      PasteboardContents contents{.filePaths = {}, .picture = {}, .text = "not kept"};
      std::vector<std::string> types{"UTF8_STRING"};
      if (why == "switched off") desk.settings.set(setting::clipboardEnabled, false);
      if (why == "ignored program") desk.workspace.inFront = {"terminal", "com.bitwarden.desktop"};
      if (why == "private") types.emplace_back("x-kde-passwordManagerHint");
      if (why == "blank") contents.text = " \n\t";
      if (why == "nothing") contents.text.reset();
      const QSignalSpy told(desk.model.get(), &ClipboardModel::pasteboardChanged);
      desk.pasteboard.put(contents, types);
      if (why == "switched off" || why == "ignored program") QCOMPARE(desk.pasteboard.reads, reads);
      desk.pasteboard.answer();
      desk.work();
      QVERIFY2(desk.texts() == Texts{"kept"}, why.c_str());
      QVERIFY(!desk.model->currentItemID());
      QCOMPARE(told.count(), 1);
      // What was copied meanwhile does not come in later.
      desk.settings.set(setting::clipboardEnabled, true);
      desk.workspace.inFront.clear();
      desk.model->poll();
      desk.pasteboard.answer();
      QVERIFY2(desk.texts() == Texts{"kept"}, why.c_str());
    }
  }

  void picturesAreKeptOnceAsTheyAre() {
    ClipboardDesk desk;
    desk.copyPicture(pngBytes('a'));
    const UUID first = desk.item(0).id;
    const std::string name = *desk.item(0).imageFileName;
    desk.copy("between");
    desk.copyPicture(pngBytes('a'));
    QCOMPARE(desk.texts(), (Texts{"(picture)", "between"}));
    QCOMPARE(desk.item(0).id, first);
    QCOMPARE(desk.pictureCount(), 1);
    QCOMPARE(readFile(desk.path() / "Images" / name), pngBytes('a'));
    QCOMPARE(desk.face(0).foot, QStringLiteral("2\u2009×\u20093"));
  }

  void picturesOfOtherFormatsAreConverted() {
    for (const auto& [format, type] : {std::pair{"BMP", "image/bmp"}, {"JPG", "image/jpeg"}}) {
      ClipboardDesk desk;
      desk.copyPicture(encoded(plainPicture(7, 5, Qt::darkCyan), format).toStdString(), type);
      QCOMPARE(desk.texts(), Texts{"(picture)"});
      const auto bytes = readFile(desk.path() / "Images" / *desk.item(0).imageFileName);
      QCOMPARE(QImage::fromData(QByteArray::fromStdString(*bytes)).size(), QSize(7, 5));
    }
  }

  void aCopyThatCannotBeTakenOverHasACardUntilItIsRemoved() {
    ClipboardDesk desk;
    desk.copy("before");
    desk.pass(Seconds(1));
    desk.pasteboard.put({.filePaths = {},
                         .picture = {},
                         .text = {},
                         .lost = LostCopy{LostCopy::Reason::tooLarge, ClipKind::text, 52'428'800}});
    desk.pasteboard.answer();
    QCOMPARE(desk.model->count(), 1);
    QCOMPARE(desk.model->items()->rowCount(), 2);
    QCOMPARE(desk.face(0).look, "lost");
    QVERIFY(desk.face(0).title.contains("too large to keep"));
    desk.pass(Seconds(1));
    desk.copy("after");
    QCOMPARE(desk.face(1).look, "lost");
    desk.model->remove(desk.model->items()->idAt(1));
    QCOMPARE(desk.model->items()->rowCount(), 2);
  }

  void aProgramIsIgnoredByTheNameThatItsCardsShow() {
    ClipboardDesk desk;
    desk.workspace.inFront = {"org.example.vault"};
    desk.settings.set(setting::ignoredBundleIDs,
                      {QString(desk.model->nameOfProgram("org.example.vault")).toUpper().toStdString()});
    desk.copy("hunter2");
    QCOMPARE(desk.model->count(), 0);
  }

  void aSaveThatFailsIsTriedAgainAndToldOnce() {
    ClipboardDesk desk;
    QSignalSpy troubles(desk.model.get(), &ClipboardModel::troubled);
    desk.copy("before");
    std::filesystem::remove(desk.path() / "library.json");
    std::filesystem::create_directory(desk.path() / "library.json");
    desk.copy("first");
    desk.copy("second");
    QCOMPARE(troubles.count(), 1);
    desk.pass(Seconds(31));
    desk.work();
    QCOMPARE(troubles.count(), 1);
    std::filesystem::remove(desk.path() / "library.json");
    desk.pass(Seconds(31));
    desk.work();
    QCOMPARE(desk.stored(), desk.model->library());
  }

  void aSecondBarOnTheSameHomeOnlyReads() {
    ClipboardDesk desk;
    desk.copy("mine");
    ClipboardDesk second(false);
    std::filesystem::remove_all(second.path());
    std::filesystem::create_directory_symlink(desk.path(), second.path());
    second.make();
    QSignalSpy troubles(second.model.get(), &ClipboardModel::troubled);
    second.model->start();
    second.work();
    QCOMPARE(troubles.count(), 1);
    QCOMPARE(second.texts(), Texts{"mine"});
    second.copy("not kept");
    second.model->remove(second.id(0));
    second.model->clearHistory();
    QCOMPARE(second.texts(), Texts{"mine"});
    desk.copy("mine too");
    const ClipboardLibrary kept = desk.model->library();
    desk.end();
    QCOMPARE(desk.stored(), kept);
    // The first has ended; the second takes over.
    second.pass(Seconds(61));
    second.model->poll();
    second.work();
    QCOMPARE(second.texts(), (Texts{"mine too", "mine"}));
    second.copy("kept");
    QCOMPARE(desk.stored().items.size(), 3u);
  }

  void slowCopiesKeepTheirOrder() {
    ClipboardDesk desk;
    desk.putPicture(pngBytes('a'));
    desk.pasteboard.copy("quick");
    desk.pasteboard.copy(std::string(100'000, 'x'));
    QVERIFY(desk.model->library().items.empty());
    desk.work();
    QCOMPARE(desk.model->count(), 3);
    QCOMPARE(desk.item(2).kind, ClipKind::image);
    QCOMPARE(desk.item(1).text, "quick");
    QCOMPARE(desk.model->currentItemID(), desk.item(0).id);
  }

  void filesComeBeforeTheirNamesAndIcons() {
    ClipboardDesk desk;
    const auto plan = desk.folder.write("plan.pdf", std::string(1500, 'x'));
    desk.pasteboard.put({.filePaths = {plan.string(), desk.folder.path().string()}, .picture = {}, .text = {}});
    desk.pasteboard.answer();
    QCOMPARE(desk.item(0).kind, ClipKind::file);
    const auto symbol = [&] { return desk.face(0).files[1].toMap()["symbol"].toString(); };
    // They are looked at when a card is made of them, and again when the shelf is opened.
    QVERIFY(desk.heldFiles.waiting.empty());
    QCOMPARE(symbol(), "doc.text");
    desk.heldFiles.letGo();
    QCOMPARE(symbol(), "folder.fill");
    QCOMPARE(desk.face(0).foot, QString());
    QVERIFY(desk.heldFiles.waiting.empty());
    desk.pass(Seconds(1));
    desk.model->refresh();
    QCOMPARE(symbol(), "folder.fill");
    QCOMPARE(desk.heldFiles.waiting.size(), 1u);
  }

  void pickingWritesAndReordersNothing() {
    ClipboardDesk desk;
    desk.copy("a");
    desk.copy("b");
    const auto before = desk.texts();
    desk.model->copy(desk.item(1));
    QCOMPARE(desk.pasteboard.writtenText(), "a");
    QCOMPARE(desk.model->currentItemID(), desk.item(1).id);
    desk.model->poll();
    desk.work();
    QVERIFY(!desk.pasteboard.isAsked());
    QCOMPARE(desk.texts(), before);
    QVERIFY(desk.model->items()->faceOf(desk.id(1)).isCurrent && !desk.model->items()->faceOf(desk.id(0)).isCurrent);
  }

  void aPickedPictureIsWrittenUnlessSomethingElseIsCopiedFirst() {
    ClipboardDesk desk;
    desk.copyPicture(pngBytes('a'));
    const ClipItem picture = desk.item(0);
    desk.model->copy(picture);
    desk.work();
    QCOMPARE(desk.pasteboard.written.back(), (std::vector<Representation>{{"image/png", pngBytes('a')}}));

    desk.model->copy(picture);
    desk.pasteboard.copy("other");
    const auto writes = desk.pasteboard.written.size();
    desk.work();
    QCOMPARE(desk.pasteboard.written.size(), writes);
    QCOMPARE(desk.currentText(), "other");

    std::filesystem::remove(desk.path() / "Images" / *picture.imageFileName);
    desk.model->copy(picture);
    desk.work();
    QVERIFY(desk.pasteboard.written.back().empty());
  }

  void theLastCopyOutlivesItsOwner() {
    ClipboardDesk desk;
    desk.copy("words");
    desk.pasteboard.ownerGoes();
    QCOMPARE(desk.pasteboard.writtenText(), "words");
    QCOMPARE(desk.pasteboard.restored, 1);
    QCOMPARE(desk.model->currentItemID(), desk.item(0).id);
    QCOMPARE(desk.model->count(), 1);

    // A picture whose owner goes while it is still being saved.
    desk.putPicture(pngBytes('a'));
    desk.pasteboard.ownerGoes();
    desk.work();
    QCOMPARE(desk.pasteboard.written.back().front().type, "image/png");
    QCOMPARE(desk.pasteboard.restored, 2);
  }

  void removedClipsComeBackWithinSixSeconds() {
    ClipboardDesk desk;
    for (const char* text : {"a", "b", "c"}) {
      desk.copy(text);
      desk.pass(Seconds(1));
    }
    QSignalSpy removed(desk.model.get(), &ClipboardModel::removed);
    desk.model->setFocusedItem(desk.id(1));
    desk.model->remove(desk.id(1));
    desk.work();
    QCOMPARE(desk.texts(), (Texts{"c", "a"}));
    QVERIFY(desk.stored() == desk.model->library());
    QVERIFY(desk.model->focusedItem().isEmpty());
    QCOMPARE(removed.takeFirst().first().toInt(), 1);
    QVERIFY(desk.model->canUndo());
    desk.pass(Seconds(5.9));
    desk.copy("d");
    desk.model->undoRemove();
    desk.work();
    QCOMPARE(desk.texts(), (Texts{"d", "c", "b", "a"}));
    QVERIFY(!desk.model->canUndo());
    QVERIFY(desk.stored() == desk.model->library());
  }

  void theUndoEndsAndTakesThePicturesAlong() {
    ClipboardDesk desk;
    desk.copyPicture(pngBytes('a'));
    desk.copyPicture(pngBytes('b'));
    desk.model->remove(desk.id(0));
    desk.work();
    QCOMPARE(desk.pictureCount(), 2);
    desk.pass(Seconds(3));
    // A second removal ends the first batch; its own time counts from now.
    desk.model->remove(desk.id(0));
    desk.work();
    QCOMPARE(desk.pictureCount(), 1);
    desk.pass(Seconds(4));
    QVERIFY(desk.model->canUndo());
    desk.model->undoRemove();
    QCOMPARE(desk.model->count(), 1);
    desk.pass(Seconds(10));
    desk.work();
    QCOMPARE(desk.pictureCount(), 1);
    desk.model->remove(desk.id(0));
    desk.pass(Seconds(6));
    desk.model->undoRemove();
    desk.work();
    QCOMPARE(desk.model->count(), 0);
    QCOMPARE(desk.pictureCount(), 0);
  }

  void aPictureThatIsCopiedAgainIsNotDeleted() {
    ClipboardDesk desk;
    desk.settings.set(setting::clipboardLimit, 1);
    desk.copyPicture(pngBytes('a'));
    desk.copy("pushes the picture out");
    QCOMPARE(desk.pictureCount(), 0);
    // It is evicted, and copied again before the eviction is on the disk.
    desk.copyPicture(pngBytes('a'));
    desk.pasteboard.copy("again");
    desk.putPicture(pngBytes('a'));
    desk.work();
    QCOMPARE(desk.item(0).kind, ClipKind::image);
    QCOMPARE(desk.pictureCount(), 1);
  }

  void aPictureThatWaitsForAnEarlierCopyIsNotDeleted() {
    ClipboardDesk desk;
    desk.copyPicture(pngBytes('a'));
    desk.model->remove(desk.id(0));
    desk.work();
    desk.pasteboard.copy(std::string(100'000, 'x'));
    desk.putPicture(pngBytes('a'));
    // The picture is saved before the long text has been looked through, and then the undo ends.
    QCOMPARE(desk.held.waiting.size(), std::size_t{2});
    const auto [save, saved] = desk.held.waiting.back();
    desk.held.waiting.pop_back();
    save();
    saved();
    desk.pass(Seconds(6));
    desk.work();
    QCOMPARE(desk.item(0).kind, ClipKind::image);
    QCOMPARE(desk.pictureCount(), 1);
  }

  void aCopyThatWasSlowDoesNotCountAsOnThePasteboard() {
    ClipboardDesk desk;
    desk.copy("words");
    desk.putPicture(pngBytes('a'));
    desk.model->copy(desk.item(0));
    desk.work();
    QCOMPARE(desk.texts(), (Texts{"(picture)", "words"}));
    QCOMPARE(desk.currentText(), "words");
  }

  void aLibraryThatCannotBeSavedLosesNoPicture() {
    ClipboardDesk desk;
    desk.copyPicture(pngBytes('a'));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Ambrel: cannot save clipboard library: "));
    std::filesystem::rename(desk.path() / "library.json", desk.path() / "library.kept");
    std::filesystem::create_directory(desk.path() / "library.json");
    desk.folder.write("Clipboard/library.json/in the way", "");
    desk.model->clearHistory();
    desk.work();
    QCOMPARE(desk.pictureCount(), 1);
    std::filesystem::remove_all(desk.path() / "library.json");
    desk.copy("saves at last");
    QCOMPARE(desk.pictureCount(), 0);
    QCOMPARE(desk.stored().items.size(), std::size_t{1});
  }

  void aDeletedCollectionIsNoFilterAnyMore() {
    ClipboardDesk desk;
    desk.copy("recipe");
    desk.model->createCollection(" Recipes", desk.id(0));
    QCOMPARE(desk.model->collections()->rows().front().name, QStringLiteral("Recipes"));
    const QString collection = desk.model->collections()->rows().front().id;
    QVERIFY(desk.model->isIn(desk.id(0), collection));
    desk.model->setFilter("collection:" + collection);
    // What is no filter changes nothing.
    const QString nobodys = "collection:" + QString::fromStdString(UUID::random().text());
    for (const QString& unknown : {QString("kind:nothing"), nobodys, QString("recent")}) desk.model->setFilter(unknown);
    QCOMPARE(desk.model->filter(), "collection:" + collection);
    desk.model->renameCollection(collection, "Cooking");
    QCOMPARE(desk.model->collections()->rows().front().name, QStringLiteral("Cooking"));
    desk.model->deleteCollection(collection);
    QCOMPARE(desk.model->filter(), QStringLiteral("all"));
    desk.restart();
    QVERIFY(desk.model->library().collections.empty());
  }

  void whatWasNotRecordedIsNotBroughtBack() {
    ClipboardDesk desk;
    desk.copy("words");
    desk.pasteboard.put({.filePaths = {}, .picture = {}, .text = "hunter2"},
                        {"UTF8_STRING", "x-kde-passwordManagerHint"});
    desk.pasteboard.answer();
    desk.work();
    desk.pasteboard.ownerGoes();
    desk.work();
    QVERIFY(desk.pasteboard.written.empty());
  }

  void whatHasExpiredIsSwept() {
    ClipboardDesk desk;
    desk.copy("123456");
    desk.copy("words");
    desk.pass(Seconds(3901));
    desk.model->poll();
    desk.work();
    QCOMPARE(desk.texts(), Texts{"words"});
    QVERIFY(!desk.model->canUndo());
    QVERIFY(desk.stored() == desk.model->library());
  }

  void picturesThatACrashLeftBehindAreSweptAtStart() {
    ClipboardDesk desk;
    desk.copyPicture(pngBytes('a'));
    desk.copyPicture(pngBytes('b'));
    desk.model->remove(desk.id(0));
    desk.work();
    QCOMPARE(desk.pictureCount(), 2);
    desk.restart();
    QCOMPARE(desk.pictureCount(), 1);
    QCOMPARE(desk.model->count(), 1);
  }

  void theEndOfTheProgramLosesNothing() {
    ClipboardDesk desk;
    desk.pasteboard.copy("a");
    // The first save is under way, the second has not begun.
    desk.pasteboard.copy("b");
    desk.end();
    QCOMPARE(desk.stored().items.size(), std::size_t{2});
    // What was under way ends later, and does not put the older library in its place.
    desk.held.waiting.front().first();
    QCOMPARE(desk.stored().items.size(), std::size_t{2});
    QVERIFY(!desk.pasteboard.isWatched());
  }

  void nothingIsLostWhileTheLibraryIsBeingLoaded() {
    ClipboardDesk desk;
    desk.copy("old");
    desk.end();
    desk.held.waiting.clear();
    desk.make();
    desk.model->start();
    desk.model->createCollection("Too soon", QString());
    desk.model->clearHistory();
    desk.model->copyText("result");
    QCOMPARE(desk.pasteboard.writtenText(), "result");
    desk.work();
    QCOMPARE(desk.texts(), Texts{"old"});
    QVERIFY(desk.stored() == desk.model->library());
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ClipboardModelTests)
#include "ClipboardModelTests.moc"
