#include <QTest>

#include "app/media/MediaArea.h"
#include "core/base/Files.h"
#include "tests/Pictures.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeMediaPlayers.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

struct Room {
  void look(bool isSeen) { area.widgetsChanged({DockWidget::nowPlaying}, isSeen, {}); }
  std::string picture(const char* name, int width) {
    plainPicture(width, 40, Qt::red).save(QString::fromStdString((folder / name).string()), "PNG");
    return "file://" + (folder / name).string();
  }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  FakeMediaPlayers players;
  Fetcher fetcher;
  HeldWork work;
  MediaArea area{{.players = players, .defaults = defaults, .fetcher = fetcher, .background = work.background()}};
  NowPlayingModel& model = *area.nowPlaying();
};

}  // namespace

class NowPlayingTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void playersAreHeardOnceConnectedAndOnlyWhileSeen() {
    Room room;
    room.players.list = {
        {.id = "a", .name = "A", .status = PlaybackStatus::playing, .title = "Song", .canPause = true}};
    room.look(true);
    QVERIFY(!room.players.isListenedTo() && !room.model.face().isConnected);
    room.model.setConnected(true);
    QVERIFY(room.players.isListenedTo());
    QCOMPARE(room.model.face().title, QStringLiteral("Song"));
    room.look(false);
    QVERIFY(!room.players.isListenedTo());
    QCOMPARE(room.model.face().title, QStringLiteral("Song"));
    room.model.begin();
    QVERIFY(room.players.isListenedTo());
    QVERIFY(UserDefaults(room.folder / "defaults.json").boolean("nowPlayingConnected").value_or(false));
    room.model.setConnected(false);
    QVERIFY(!room.players.isListenedTo() && !room.model.face().hasPlayer);
  }

  void commandsGoToThePlayerThatIsShown() {
    Room room;
    const MediaPlayer first{.id = "a", .name = "A", .status = PlaybackStatus::playing, .title = "Song"};
    MediaPlayer second{.id = "b", .name = "B", .status = PlaybackStatus::paused, .track = "/1", .length = Seconds(100)};
    second.canSeek = true;
    room.players.list = {first, second};
    room.model.setConnected(true);
    room.look(true);
    room.model.choose(QStringLiteral("b"));
    QCOMPARE(room.model.face().title, QStringLiteral("B"));
    room.model.toggle();
    room.model.seek(30);
    QCOMPARE(room.model.positionText(), QStringLiteral("0:30"));
    QVERIFY((room.players.commands == std::vector{std::pair{std::string("b"), PlayerCommand::playPause}}));
    QVERIFY((room.players.seeks == std::vector{std::pair{std::string("b"), Seconds(30)}}));
    room.players.set({first});
    QCOMPARE(room.model.face().title, QStringLiteral("Song"));
    QVERIFY2(room.model.position() < 0, "the other's position");
    QCOMPARE(room.players.positionsAsked, 0);
    room.players.position = Seconds(7);
    room.model.begin();
    QCOMPARE(room.model.positionText(), QStringLiteral("0:07"));
  }

  void aCoverIsAPictureOfThePresentTrack() {
    Room room;
    MediaPlayer player{.id = "a", .name = "A", .cover = room.picture("wide.png", 2000)};
    room.players.list = {player};
    room.model.setConnected(true);
    room.look(true);
    room.work.letGo();
    QCOMPARE(room.model.cover().width(), NowPlayingModel::coverSide);
    // One that comes late is not the present one's.
    player.cover = room.picture("small.png", 50);
    room.players.set({player});
    QVERIFY(!room.model.hasCover());
    player.cover = {};
    room.players.set({player});
    room.work.letGo();
    QVERIFY(!room.model.hasCover());
    writeAtomically(room.folder / "text.png", "no picture");
    for (const char* path : {"/text.png", "/none.png", ""}) {
      player.cover = "file://" + (room.folder / "").string() + path;
      room.players.set({player});
      room.work.letGo();
      QVERIFY2(!room.model.hasCover(), path);
    }
    player.cover = "file:///dev/zero";
    room.players.set({player});
    room.work.letGo();
    QVERIFY(!room.model.hasCover());
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::NowPlayingTests)
#include "NowPlayingTests.moc"
