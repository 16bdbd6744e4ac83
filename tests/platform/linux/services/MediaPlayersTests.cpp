#include "platform/linux/services/MprisPlayers.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

const QString at = "/org/mpris/MediaPlayer2";
const QString playerInterface = "org.mpris.MediaPlayer2.Player";

class PlayersOnBus : public BusTest {
 protected:
  void SetUp() override {
    BusTest::SetUp();
    if (IsSkipped()) return;
    radio_ = play("org.mpris.MediaPlayer2.radio.instance7", "Radio");
    connection_.emplace(bus_.connection());
    players_ = std::make_unique<MprisPlayers>(*connection_, std::chrono::milliseconds(0));
  }
  std::unique_ptr<FakeService> play(const char* name, const char* identity) {
    auto player = std::make_unique<FakeService>(bus_.connection(), QString::fromLatin1(name));
    player->objects[QDBusObjectPath(at)] = {
        {"org.mpris.MediaPlayer2", {{"Identity", QString::fromLatin1(identity)}}},
        {playerInterface, {{"PlaybackStatus", "Paused"}, {"CanPlay", true}, {"CanGoNext", true}}}};
    return player;
  }
  void listen() {
    players_->setChangeHandler([] {});
  }
  std::string names() const {
    std::string all;
    for (const MediaPlayer& player : players_->players()) all += player.name + ' ';
    return all;
  }

  std::unique_ptr<FakeService> radio_;
  std::optional<QDBusConnection> connection_;
  std::unique_ptr<MprisPlayers> players_;
};

TEST_F(PlayersOnBus, ComeAndGoWhileSomebodyListens) {
  QCoreApplication::processEvents();
  EXPECT_TRUE(radio_->calls.empty());
  listen();
  ASSERT_TRUE(happens([&] { return names() == "Radio "; }));
  auto songs = play("org.mpris.MediaPlayer2.songs", "Another");
  auto relay = play("org.mpris.MediaPlayer2.playerctld", "Relay");
  ASSERT_TRUE(happens([&] { return names() == "Another Radio "; }));
  EXPECT_TRUE(relay->calls.empty());
  songs->set(at, playerInterface, "PlaybackStatus", "Playing");
  ASSERT_TRUE(happens([&] { return players_->players()[0].status == PlaybackStatus::playing; }));
  songs->stop();
  ASSERT_TRUE(happens([&] { return names() == "Radio "; }));
  players_->setChangeHandler(nullptr);
  radio_->stop();
  EXPECT_EQ(names(), "Radio ") << "nothing is heard, and nothing flickers when somebody looks again";
  bool isTold = false;
  players_->setChangeHandler([&] { isTold = true; });
  ASSERT_TRUE(happens([&] { return isTold; }));
  EXPECT_EQ(names(), "");
}

TEST_F(PlayersOnBus, DoWhatTheyAreTold) {
  listen();
  ASSERT_TRUE(happens([&] { return names() == "Radio "; }));
  radio_->answer = [](const QDBusMessage& message) {
    return message.member() == "Get" ? message.createReply(QVariant::fromValue(QDBusVariant(qlonglong(12'500'000))))
                                     : message.createReply();
  };
  const std::string id = players_->players().front().id;
  std::optional<Seconds> position;
  players_->command(id, PlayerCommand::next);
  players_->seek(id, "/track/1", Seconds(90));
  players_->askPosition(id, [&](std::optional<Seconds> told) { position = told; });
  ASSERT_TRUE(happens([&] { return position.has_value(); }));
  EXPECT_DOUBLE_EQ(position->count(), 12.5);
  const auto& calls = radio_->calls;
  ASSERT_GE(calls.size(), 3u);
  EXPECT_EQ(calls[calls.size() - 3].member, "Next");
  EXPECT_EQ(calls[calls.size() - 2].arguments.value(1).toLongLong(), 90'000'000);
}

TEST(MediaPlayer, IsReadFromWhateverAPlayerSays) {
  const QString service = "org.mpris.MediaPlayer2.x";
  const auto read = [&](const QVariantMap& data) {
    return mediaPlayer(service, "X", {{"PlaybackStatus", "Playing"}, {"CanSeek", true}, {"Metadata", data}});
  };
  const MediaPlayer good = read({{"xesam:title", "Song"},
                                 {"xesam:artist", QStringList{"A", "B"}},
                                 {"mpris:length", qlonglong(185'000'000)},
                                 {"mpris:trackid", QVariant::fromValue(QDBusObjectPath("/t/1"))},
                                 {"mpris:artUrl", "file:///tmp/a.png"}});
  EXPECT_EQ(good.title + '|' + good.artist + '|' + good.cover, "Song|A, B|file:///tmp/a.png");
  EXPECT_TRUE(good.canSeek && good.length == Seconds(185));
  const MediaPlayer hostile = read({{"xesam:title", QString(100'000, u'x') + "\n"},
                                    {"xesam:artist", QString("a\u202eb\x01\n\n  c")},
                                    {"xesam:album", QVariantMap{{"a", 1}}},
                                    {"mpris:length", qlonglong(-5)},
                                    {"mpris:trackid", 17},
                                    {"mpris:artUrl", "http://127.0.0.1/steal"}});
  EXPECT_EQ(hostile.title.size(), 299 + sizeof("…") - 1);
  EXPECT_EQ(hostile.artist + '|' + hostile.album + '|' + hostile.cover + '|' + hostile.track, "ab c|||");
  EXPECT_FALSE(hostile.length || hostile.canSeek);
  EXPECT_EQ(mediaPlayer(service, "X", {{"Metadata", "text"}, {"PlaybackStatus", 3}}),
            (MediaPlayer{.id = service.toStdString(), .name = "X"}));
  EXPECT_EQ(read({{"xesam:url", "https://radio.example/live/stream.ogg"}}).title, "stream.ogg");
}

}  // namespace
}  // namespace ambrel
