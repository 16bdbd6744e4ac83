#pragma once
// The whole program on the test's desktop, with a home of its own, as a screen reader sees it.

#include <QGuiApplication>
#include <QProcess>
#include <gtest/gtest.h>

#include "core/base/UserDefaults.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/profiles/Tiles.h"
#include "tests/e2e/Desktop.h"
#include "tests/e2e/keyboard/ScreenReader.h"

namespace ambrel {

class BarFixture : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(reader_.isReady()); }
  void TearDown() override {
    if (program_.state() == QProcess::NotRunning) return;
    program_.kill();
    program_.waitForFinished(2000);
  }
  // Types a key, as "ctrl+Right".
  virtual void send(const char* keys) = 0;

  // Returns when it has said hello.
  void start(const std::vector<std::string>& widgets, const std::string& modelServer = "http://127.0.0.1:1/") {
    const auto home = folder_ / "home";
    const Profile profile{.id = UUID::random(), .name = "All", .trigger = {}, .items = holding(widgets)};
    std::filesystem::create_directories(home / ".local/share/Ambrel");
    std::filesystem::create_directories(home / ".config/Ambrel");
    saveProfiles(home / ".local/share/Ambrel/profiles.json", {profile});
    UserDefaults defaults(home / ".config/Ambrel/defaults.json");
    for (const char* done : {"welcomeDone", "buddyAdded", "migratedFromLegacyBundleID"})
      defaults.set(done, DefaultsValue{true});
    for (const char* host :
         {"weatherForecastURL", "weatherAirQualityURL", "weatherGeocodingURL", "hackerNewsURL", "currencyRatesURL"})
      defaults.set(host, DefaultsValue{std::string("http://127.0.0.1:1/")});

    defaults.set("modelServerURL", DefaultsValue{modelServer});
    // Not of the day, whose summary comes in the evening and takes the keyboard.
    defaults.set("buddyCategories", DefaultsValue{std::vector{DefaultsValue{std::string("agents")}}});

    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(home));
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
      environment.remove(variable);
    // That of the test.
    environment.remove("QT_QPA_PLATFORM");
    program_.setProcessEnvironment(environment);
    program_.setProcessChannelMode(QProcess::MergedChannels);
    program_.start(TILEBAY_PROGRAM, {});
    ASSERT_TRUE(waitFor([&] { return reader_.hasProgram(); }, 20000)) << said();
  }
  static void wish(const char* option) { EXPECT_EQ(run(TILEBAY_PROGRAM, {option}).status, 0) << option; }

  bool lives() const { return program_.state() == QProcess::Running; }
  // What it has printed. The toolkit complains when we answer late to a key that it announces, from 6.8 on when we ask
  // for an item that has just been closed, and under Wayland of a keyboard that a test has just plugged in.
  std::string said() {
    output_ += program_.readAll();
    QByteArray kept;
    for (const QByteArray& line : output_.split('\n'))
      if (!line.isEmpty() && !line.contains("keyEventError") && !line.contains("unknown keymap format") &&
          !reader_.isAnswer(line))
        kept += line + '\n';
    return kept.toStdString();
  }

  // A key for the window that has the keyboard; returns when the program has done what it leads to.
  bool press(const char* key) {
    const auto keys = 1 + std::ranges::count(std::string_view(key), '+');
    const auto presses = reader_.presses() + keys, releases = reader_.releases() + keys;
    send(key);
    if (!waitFor([&] { return reader_.presses() >= presses || !lives(); }, 3000)) return false;
    // A window that the press has closed does not get the release.
    waitFor([&] { return reader_.releases() >= releases || !lives(); }, 250);
    reader_.settle();
    return lives();
  }

  std::vector<QString> visibleWindows() const {
    std::vector<QString> found;
    for (const ScreenReader::Window& window : reader_.windows())
      if (window.isVisible) found.push_back(window.path);
    return found;
  }
  QString activeWindow() const {
    for (const ScreenReader::Window& window : reader_.windows())
      if (window.isActive) return window.path;
    return {};
  }
  // What has the keyboard.
  ScreenReader::Item focused() const { return reader_.item(reader_.focusPath()); }

  void quit() {
    wish("--quit");
    EXPECT_TRUE(waitFor([&] { return !lives(); }));
    EXPECT_EQ(program_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(said(), expected_);
  }

  TemporaryFolder folder_;
  ScreenReader reader_;
  QProcess program_;
  std::string expected_;  // of what it says

 private:
  QByteArray output_;
};

}  // namespace ambrel
