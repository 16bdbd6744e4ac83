#include <QAbstractItemModelTester>
#include <QTest>

#include "app/base/Presentation.h"
#include "core/base/JSON.h"
#include "tests/Pictures.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/stores/StoresRoom.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

QStringList namesOf(RowList* rows) {
  QStringList names;
  const int role = rows->roleNames().key("name");
  for (int i = 0; i < rows->count(); ++i) names << rows->index(i, 0).data(role).toString();
  return names;
}

QString idAt(RowList* rows, int row, const char* name) {
  return rows->index(row, 0).data(rows->roleNames().key(name)).toString();
}

void fill(StoresRoom& room) {
  StoresArea& area = *room.area;
  area.note()->setText(QStringLiteral("Ask Jana about the figures of the third quarter\nRoom 4.12"));
  for (const char* text : {"Renew the passport", "Answer the landlord", "Water the plants on the balcony and upstairs"})
    area.todos()->add(QString::fromUtf8(text));
  area.todos()->toggle(
      area.todos()->rows()->index(1, 0).data(area.todos()->rows()->roleNames().key("entryId")).toString());
  area.snippets()->add(QStringLiteral("Best regards, Anna"));
  for (const char* site : {"http://debian.example", "http://kernel.example/a/long/address?of=a&page=1",
                           "http://c.example", "http://d.example", "http://e.example"})
    area.bookmarks()->add(QString::fromUtf8(site));
  area.tally()->add(123456);
  std::filesystem::create_directory(room.folder / "Inbox");
  writeAtomically(room.folder / "Inbox/a report with a long name.pdf", "x");
  area.chosenFolder()->chooser()((room.folder / "Inbox").string());
  room.work.letGo();
  area.shortcut()->search({});
  area.shortcut()->choose(QStringLiteral("editor/new"));
}

}  // namespace

class StoresTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void whatIsTypedIsWrittenWhileTheUserStillTypes() {
    StoresRoom room;
    room.start();
    QuickNote& note = *room.area->note();
    QString typed;
    // Typing goes on: each change comes before the last one is written.
    QTRY_VERIFY_WITH_TIMEOUT((note.setText(typed += u'x'), room.file("QuickNote.txt") != "none"), 5000);
    note.setText(QStringLiteral("\n first \nsecond"));
    QCOMPARE(note.face().title, QStringLiteral("first"));
    note.finish();
    QCOMPARE(room.file("QuickNote.txt"), "\n first \nsecond");
    note.setText(QStringLiteral("not yet written"));
    room.start();
    QCOMPARE(room.area->note()->text(), QStringLiteral("not yet written"));
    room.area->note()->setText({});
    room.area->note()->bringBack();
    QCOMPARE(room.area->note()->text(), QStringLiteral("not yet written"));
  }

  void aWriteThatFailsIsSaidOnceAndLosesNothing() {
    StoresRoom room;
    room.start();
    // Nothing can be written into a file's place.
    writeAtomically(room.folder / "Ambrel", "no folder");
    EditedList& todos = *room.area->todos();
    todos.add(QStringLiteral("Milk"));
    todos.add(QStringLiteral("Bread"));
    QVERIFY(!todos.face().problem.isEmpty());
    QTRY_COMPARE(room.shell.toasts, QStringList{QStringLiteral("The to-do list is not saved")});
    std::filesystem::remove(room.folder / "Ambrel");
    todos.finish();
    QVERIFY(todos.face().problem.isEmpty());
    room.start();
    QCOMPARE(namesOf(room.area->todos()->rows()), (QStringList{"Milk", "Bread"}));
  }

  void editsOfOthersAreTakenOver() {
    StoresRoom room;
    room.start();
    EditedList& todos = *room.area->todos();
    todos.add(QStringLiteral("Milk"));
    auto json = parseJSON(room.file("todos.json")).value();
    json.push_back({{"title", "By hand"}});
    room.write("todos.json", prettyJSON(json));
    QTRY_COMPARE(namesOf(todos.rows()), (QStringList{"Milk", "By hand"}));
    room.write("todos.json", "[{");
    QTRY_COMPARE(room.shell.toasts, QStringList{QStringLiteral("The to-do list cannot be read")});
    QCOMPARE(todos.rows()->count(), 2);
    todos.add(QStringLiteral("Bread"));
    QCOMPARE(room.file("todos.json.unreadable"), "[{");
    QCOMPARE(parseJSON(room.file("todos.json")).value().size(), 3u);
  }

  void aListIsEditedAndEveryRemovalUndone() {
    StoresRoom room;
    room.start();
    EditedList& todos = *room.area->todos();
    const QAbstractItemModelTester tester(todos.rows());
    QVERIFY(todos.add(QStringLiteral("  ")).isEmpty());
    const QString a = todos.add(QStringLiteral("a")), b = todos.add(QStringLiteral("b")),
                  c = todos.add(QStringLiteral("c"));
    todos.move(c, -2);
    todos.toggle(a);
    todos.edit(b, QStringLiteral(" "), {});
    QCOMPARE(namesOf(todos.rows()), (QStringList{"c", "a", "b"}));
    todos.remove(b);
    todos.removeDone();
    QCOMPARE(namesOf(todos.rows()), QStringList{"c"});
    todos.undo();
    QCOMPARE(todos.face().removed, QStringLiteral("Removed “b”"));
    todos.undo();
    todos.undo();
    QCOMPARE(namesOf(todos.rows()), (QStringList{"c", "a", "b"}));
    QCOMPARE(todos.face().done, 1);
    todos.edit(QStringLiteral("no id"), QStringLiteral("x"), {});

    EditedList& snippets = *room.area->snippets();
    const QString id = snippets.add(QStringLiteral("Best regards,"));
    snippets.edit(id, {}, QStringLiteral("Best regards,\n  Anna\n"));
    QCOMPARE(namesOf(snippets.rows()), QStringList{"Best regards, Anna"});
    QCOMPARE(snippets.textOf(id), QStringLiteral("Best regards,\n  Anna\n"));
  }

  void bookmarksTakeAndOpenPagesAlone() {
    StoresRoom room;
    room.write("bookmarks.json", "[{\"title\":\"Evil\",\"url\":\"file:///bin/sh\"}]");
    room.start();
    BookmarkList& bookmarks = *room.area->bookmarks();
    bookmarks.visit(idAt(bookmarks.rows(), 0, "entryId"));
    QVERIFY(room.opened.isEmpty());
    QCOMPARE(room.shell.toasts.size(), 1);
    QVERIFY(bookmarks.add(QStringLiteral("two words")).isEmpty());
    const QString id = bookmarks.add(QStringLiteral("http://www.example.com/a"));
    bookmarks.edit(id, QStringLiteral("Example"), QStringLiteral("https://foo.b"));
    QCOMPARE(bookmarks.textOf(id), QStringLiteral("http://www.example.com/a"));
    bookmarks.edit(id, QStringLiteral("Example"), QStringLiteral("foo.b ar"));
    bookmarks.finish();
    QCOMPARE(room.shell.toasts.size(), 2);
    bookmarks.edit(id, QStringLiteral("Example"), QStringLiteral("http://foo.bar/"));
    bookmarks.finish();
    bookmarks.visit(id);
    QCOMPARE(room.opened, QList<QUrl>{QUrl(QStringLiteral("http://foo.bar/"))});
    QCOMPARE(idAt(bookmarks.rows(), 1, "letter"), QStringLiteral("E"));
  }

  void aSiteIsAskedForItsIconOnce() {
    StoresRoom room;
    LoopbackServer server;
    server.answer = [](const QByteArray& target) -> LoopbackServer::Reply {
      if (target == "/favicon.ico") return {.body = "no picture"};
      if (target == "/") return {.body = "<link rel=icon href=/i.png>", .type = "text/html"};
      if (target == "/i.png") return {.body = encoded(plainPicture(300, 300, Qt::red))};
      return {404, "{}"};
    };
    room.start();
    BookmarkList& bookmarks = *room.area->bookmarks();
    const QString page = server.url().toString() + QStringLiteral("/page");
    bookmarks.add(page);
    bookmarks.add(page);
    QTRY_VERIFY((room.work.letGo(), !idAt(bookmarks.rows(), 0, "picture").isEmpty()));
    QCOMPARE(server.targets, (QByteArrayList{"/favicon.ico", "/", "/i.png"}));
    const QImage kept(QUrl(idAt(bookmarks.rows(), 1, "picture")).toLocalFile());
    QCOMPARE(kept.size(), QSize(64, 64));
    room.start();
    QVERIFY(!idAt(room.area->bookmarks()->rows(), 0, "picture").isEmpty());
    QCOMPARE(server.targets.size(), 3);
  }

  void noIconComesFromAnotherSite() {
    StoresRoom room;
    LoopbackServer server, other;
    other.answer = [](const QByteArray&) -> LoopbackServer::Reply {
      return {.body = encoded(plainPicture(8, 8, Qt::red))};
    };
    server.answer = [&](const QByteArray& target) -> LoopbackServer::Reply {
      if (target == "/favicon.ico")
        return {.status = 302, .body = "", .location = other.url().toEncoded() + "/favicon.ico"};
      return {.body = "<link rel=icon href=" + other.url().toEncoded() + "/i.png>", .type = "text/html"};
    };
    room.start();
    room.area->bookmarks()->add(server.url().toString());
    QTRY_COMPARE(server.targets.size(), 2);
    QTest::qWait(0);
    room.work.letGo();
    QVERIFY(idAt(room.area->bookmarks()->rows(), 0, "picture").isEmpty());
    QCOMPARE(other.targets.size(), 0);
  }

  void aFolderIsReadOnlyWhileItIsSeen() {
    StoresRoom room;
    room.start();
    ChosenFolder& shown = *room.area->chosenFolder();
    QVERIFY(room.watch.followed.empty());
    std::filesystem::create_directory(room.folder / "in");
    room.folder.write("in/a #1.pdf", "12345", room.now - std::chrono::hours(1));
    shown.chooser()((room.folder / "in/").string());
    QVERIFY2(room.watch.followed.empty(), "its disk may not answer");
    room.work.letGo();
    QCOMPARE(room.watch.followed.size(), std::size_t(1));
    QCOMPARE(shown.face().newest, QStringLiteral("a #1.pdf"));
    QCOMPARE(shown.face().newestDetail, QStringLiteral("5 bytes, 1:00\u202fPM"));
    room.now += std::chrono::hours(12);
    room.area->tick(room.now);
    QCOMPARE(shown.face().newestDetail, QStringLiteral("5 bytes, Nov 22"));
    shown.open(QStringLiteral("a #1.pdf"));
    QCOMPARE(room.opened.value(0).toLocalFile().toStdString(), (room.folder / "in/a #1.pdf").string());
    std::filesystem::remove_all(room.folder / "in");
    room.watch.change(0);
    // Changes in a row are read together.
    QTRY_VERIFY((room.work.letGo(), !shown.face().problem.isEmpty()));
    QCOMPARE(shown.rows()->count(), 0);
    room.area->widgetsChanged({DockWidget::folder}, false, {});
    QVERIFY(room.watch.followed.empty());
    QVERIFY(room.work.waiting.empty());
  }

  void downloadsTellWhatIsStillLoading() {
    StoresRoom room;
    std::filesystem::create_directory(room.folder / "Downloads");
    for (const char* file : {"film.mkv.part", "report.pdf"}) writeAtomically(room.folder / "Downloads" / file, "12345");
    writeAtomically(room.folder / "Downloads/film.mkv", "");
    room.start();
    FolderModel& shown = *room.area->downloads();
    QCOMPARE(shown.face().loadingText + u' ' + shown.face().countText, QStringLiteral("1 loading 1 item"));
    const FolderRow* film = shown.row(QStringLiteral("film.mkv.part"));
    QVERIFY(film && film->isLoading);
    QCOMPARE(film->name + u' ' + film->detail, QStringLiteral("film.mkv 5 bytes so far"));
    // What is not whole cannot be opened.
    shown.open(film->id);
    QCOMPARE(room.opened.size(), 0);
    QCOMPARE(room.shown.value(0).fileName(), QStringLiteral("film.mkv.part"));
    room.area->widgetsChanged({DockWidget::downloads}, false, {});
    QVERIFY(room.downloadsWatch.followed.empty());
  }

  void aShortcutRunsUntilItsProgramIsGone() {
    StoresRoom room;
    room.launcher.programs = {{"editor", "Editor", "Editor", ""}, {"editor/new", "New Window", "Editor", ""}};
    room.launcher.scripts = {{"/home/u/back up.sh", "back up.sh", "/home/u", ""}};
    room.start();
    ShortcutModel& shortcut = *room.area->shortcut();
    shortcut.search(QStringLiteral("wïndow"));
    QCOMPARE(namesOf(shortcut.rows()), QStringList{"New Window"});
    shortcut.choose(QStringLiteral("editor/new"));
    shortcut.run();
    shortcut.search({});
    shortcut.scriptChooser()("/home/u/no program");
    shortcut.scriptChooser()("/home/u/back up.sh");
    shortcut.run();
    QCOMPARE(room.launcher.started, (std::vector<std::string>{"editor/new", "/home/u/back up.sh"}));
    shortcut.removeScript(QStringLiteral("/home/u/back up.sh"));
    QCOMPARE(shortcut.rows()->count(), 2);
    shortcut.undo();
    QCOMPARE(namesOf(shortcut.rows()).value(0), QStringLiteral("back up.sh"));
    room.launcher.scripts.clear();
    shortcut.run();
    QVERIFY(!shortcut.face().problem.isEmpty());
    QCOMPARE(room.shell.toasts.last(), QStringLiteral("back up.sh cannot be started"));
  }

  void aTallyCountsAndItsResetIsUndone() {
    StoresRoom room;
    room.defaults.set("tallyCount", DefaultsValue{std::int64_t{1234}});
    room.start();
    TallyCounter& tally = *room.area->tally();
    tally.add(1);
    QCOMPARE(tally.face().text, QStringLiteral("1,235"));
    tally.reset();
    tally.add(-1);
    QVERIFY(tally.face().isZero);
    tally.add(1);
    tally.undo();
    QCOMPARE(room.defaults.integer("tallyCount").value(), 1236);
  }

  // Empty and full.
  void everythingCanBeReadAndReached() {
    for (const bool isFull : {false, true}) {
      StoresRoom room;
      room.launcher.programs = {{"editor", "Editor", "Editor", ""}, {"editor/new", "New Window", "Editor", ""}};
      room.start();
      if (isFull) fill(room);
      Presentation presentation([](Seconds, const std::function<void()>&) {});
      {
        Scene scene;
        QCOMPARE(showTiles(scene, {room.area.get()}), 8 * 4);
        QCOMPARE(faultsInBothSchemes(scene, isFull ? "stores" : "stores-empty"), QStringList());
        QCOMPARE(collisionsOfTiles(scene), QStringList());
      }
      Scene scene;
      QVERIFY(showPanels(scene, *room.area,
                         {"QuickNote", "Todo", "Snippets", "Bookmarks", "Folder", "Downloads", "Shortcuts", "Tally"},
                         {{QStringLiteral("presentation"), QVariant::fromValue(&presentation)}}));
      QCOMPARE(faultsInBothSchemes(scene, isFull ? "stores-panels" : "stores-panels-empty"), QStringList());
      QCOMPARE(namesByTab(scene).filter("nameless"), QStringList());
    }
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::StoresTests)
#include "StoresTests.moc"
