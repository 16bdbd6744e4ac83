// Against a real PulseAudio of the test's own, with a loudspeaker and a microphone that are made up.

#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

#include "platform/linux/services/PulseSoundControl.h"
#include "tests/fakes/PrivateBus.h"

namespace ambrel {
namespace {

class SoundServer : public testing::Test {
 protected:
  void SetUp() override {
    if (QStandardPaths::findExecutable("pulseaudio").isEmpty()) GTEST_SKIP() << "no pulseaudio";
    // Its socket, its cookie and its state stay in a folder of ours.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
      environment.insert(QString::fromLatin1(name), folder_.path());
    environment.insert("PULSE_SERVER", address());
    server_.setProcessEnvironment(environment);
    pactl_.setProcessEnvironment(environment);
  }
  void TearDown() override { stopServer(); }

  QString address() const { return "unix:" + folder_.filePath("native"); }
  void startServer() {
    server_.start("pulseaudio",
                  {"-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--log-level=error",
                   "-L module-null-sink sink_name=speaker", "-L module-null-source source_name=microphone",
                   "-L module-native-protocol-unix auth-anonymous=1 socket=" + folder_.filePath("native")});
    ASSERT_TRUE(server_.waitForStarted());
    ASSERT_TRUE(happens([this] { return QFile::exists(folder_.filePath("native")); }));
    pactl({"set-default-source", "microphone"});
  }
  void stopServer() {
    server_.kill();
    server_.waitForFinished(3000);
    QFile::remove(folder_.filePath("native"));
  }
  // The user's hand on another mixer.
  QString pactl(const QStringList& arguments) {
    pactl_.start("pactl", arguments);
    EXPECT_TRUE(happens([this] { return pactl_.state() == QProcess::NotRunning; }));
    return QString::fromUtf8(pactl_.readAllStandardOutput());
  }
  void listen() {
    sound_.setChangeHandler([this] { ++changes_; });
  }
  bool becomes(const std::optional<SoundLevel>& output, const std::optional<SoundLevel>& microphone) {
    return happens([&] { return sound_.output() == output && sound_.microphone() == microphone; });
  }

  QTemporaryDir folder_;
  QProcess server_, pactl_;
  PulseSoundControl sound_{address().toStdString(), std::chrono::milliseconds(20)};
  int changes_ = 0;
};

constexpr SoundLevel full{1, false};

TEST_F(SoundServer, IsHeardOnlyWhileSomebodyListens) {
  startServer();
  EXPECT_EQ(sound_.output(), std::nullopt);
  listen();
  EXPECT_TRUE(becomes(full, full));
  sound_.setChangeHandler(nullptr);
  EXPECT_EQ(sound_.output(), std::nullopt);
  EXPECT_EQ(sound_.microphone(), std::nullopt);
  EXPECT_FALSE(pactl({"list", "clients"}).contains("Tilebay"));
}

TEST_F(SoundServer, TellsWhatOthersChange) {
  startServer();
  listen();
  ASSERT_TRUE(becomes(full, full));
  pactl({"set-sink-mute", "speaker", "1"});
  EXPECT_TRUE(becomes(SoundLevel{1, true}, full));
  pactl({"set-sink-volume", "speaker", "50%"});
  EXPECT_TRUE(becomes(SoundLevel{0.5, true}, full));
  pactl({"set-source-mute", "microphone", "1"});
  EXPECT_TRUE(becomes(SoundLevel{0.5, true}, SoundLevel{1, true}));
}

TEST_F(SoundServer, DoesWhatItIsTold) {
  startServer();
  listen();
  ASSERT_TRUE(becomes(full, full));
  sound_.setOutputVolume(0.25);
  sound_.setOutputMuted(true);
  sound_.setMicrophoneMuted(true);
  EXPECT_TRUE(becomes(SoundLevel{0.25, true}, SoundLevel{1, true}));
  EXPECT_TRUE(happens([this] { return pactl({"get-sink-volume", "speaker"}).contains(" 25%"); }));
  EXPECT_EQ(pactl({"get-sink-mute", "speaker"}), "Mute: yes\n");
  EXPECT_EQ(pactl({"get-source-mute", "microphone"}), "Mute: yes\n");
  sound_.setOutputVolume(7);
  EXPECT_TRUE(becomes(SoundLevel{1, true}, SoundLevel{1, true})) << "no louder than full";
}

TEST_F(SoundServer, ASliderThatIsDraggedDoesNotJump) {
  startServer();
  listen();
  ASSERT_TRUE(becomes(full, full));
  std::vector<double> seen;
  sound_.setChangeHandler([&] { seen.push_back(sound_.output()->volume); });
  for (int percent = 99; percent >= 40; --percent) {
    sound_.setOutputVolume(percent / 100.0);
    QCoreApplication::processEvents();
  }
  ASSERT_TRUE(happens([&] { return sound_.output()->volume < 0.401; }));
  EXPECT_TRUE(std::is_sorted(seen.rbegin(), seen.rend()));
}

TEST_F(SoundServer, KeepsTheBalance) {
  startServer();
  pactl({"set-sink-volume", "speaker", "80%", "40%"});
  listen();
  ASSERT_TRUE(happens([this] { return sound_.output().has_value(); }));
  sound_.setOutputVolume(0);
  EXPECT_TRUE(happens([this] { return pactl({"get-sink-volume", "speaker"}).count(" 0%") == 2; }));
  sound_.setOutputVolume(0.4);
  EXPECT_TRUE(happens([this] {
    const QString told = pactl({"get-sink-volume", "speaker"});
    return told.contains(" 40%") && told.contains(" 20%");
  }));
}

TEST_F(SoundServer, WithoutAMicrophoneThereIsNone) {
  startServer();
  listen();
  ASSERT_TRUE(becomes(full, full));
  pactl({"unload-module", "module-null-source"});
  EXPECT_TRUE(becomes(full, std::nullopt)) << "what the loudspeaker plays is no microphone";
}

TEST_F(SoundServer, ComesAndGoes) {
  listen();
  happens([this] { return changes_ > 0; }, 100);
  EXPECT_EQ(sound_.output(), std::nullopt);
  startServer();
  EXPECT_TRUE(becomes(full, full)) << "it is looked for again";
  stopServer();
  EXPECT_TRUE(becomes(std::nullopt, std::nullopt));
  sound_.setOutputVolume(0.5);
  startServer();
  EXPECT_TRUE(becomes(full, full));
}

}  // namespace
}  // namespace ambrel
