#include <QTest>

#include "app/base/Presentation.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/stores/StoresRoom.h"

namespace ambrel {
namespace {

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
  area.chosenFolder()->choose((room.folder / "Inbox").string());
  room.work.letGo();
  area.shortcut()->search({});
  area.shortcut()->choose(QStringLiteral("editor/new"));
}

const char* const panels[] = {"QuickNote", "Todo",      "Snippets",  "Bookmarks",
                              "Folder",    "Downloads", "Shortcuts", "Tally"};

}  // namespace

// What the tiles and panels look like, empty and full, and what is said of them.
class StoreTilesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everythingCanBeReadAndReached_data() {
    QTest::addColumn<bool>("isFull");
    QTest::newRow("empty") << false;
    QTest::newRow("full") << true;
  }

  void everythingCanBeReadAndReached() {
    QFETCH(bool, isFull);
    StoresRoom room;
    room.launcher.programs = {{"editor", "Editor", "Editor", ""}, {"editor/new", "New Window", "Editor", ""}};
    room.start();
    if (isFull) fill(room);
    Presentation presentation([](Seconds, const std::function<void()>&) {});
    {
      Scene scene;
      auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{room.area.get()});
      for (const DockWidget widget : board->widgets()) board->addInEverySize(widget);
      std::vector<QQuickItem*> tiles;
      for (QQuickItem* tile : board->childItems()) tiles.push_back(tile);
      QCOMPARE(tiles.size(), std::size_t(8 * 4));
      QVERIFY(scene.show(std::move(board)));
      QCOMPARE(faultsInBothSchemes(scene, isFull ? "stores" : "stores-empty"), QStringList());
      for (QQuickItem* tile : tiles) QCOMPARE(collisionsOf(tile), QStringList());
    }
    Scene scene;
    auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{room.area.get()});
    for (const char* panel : panels)
      QVERIFY(board->addPanel(QStringLiteral("Stores/%1Panel.qml").arg(QLatin1String(panel)),
                              {{QStringLiteral("presentation"), QVariant::fromValue(&presentation)}}));
    QVERIFY(scene.show(std::move(board)));
    QCOMPARE(faultsInBothSchemes(scene, isFull ? "stores-panels" : "stores-panels-empty"), QStringList());
    QCOMPARE(namesByTab(scene).filter("nameless"), QStringList());
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::StoreTilesTests)
#include "StoreTilesTests.moc"
