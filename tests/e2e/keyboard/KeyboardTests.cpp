// The whole program by keyboard alone, as somebody uses it who sees nothing, or has no pointer. Each tile of the
// catalogue is on the bar, so that a new one is covered by being in it.

#include <QGuiApplication>
#include <QProcess>
#include <QSet>
#include <gtest/gtest.h>

#include "core/agents/attention/Processes.h"
#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/UserDefaults.h"
#include "core/profiles.h"
#include "core/widgets.h"
#include "tests/TemporaryFolder.h"
#include "tests/e2e/Desktop.h"
#include "tests/e2e/keyboard/ScreenReader.h"
#include "tests/fakes/ScriptedModelServer.h"

namespace ambrel {
namespace {

// More stops than any panel has.
constexpr int mostStops = 200;
// The ring's colours, in the dark scheme and in the light one.
constexpr std::array<std::uint32_t, 2> ringColors{0x7DA7FF, 0x2458D3};

std::vector<std::string> allWidgets() {
  std::vector<std::string> names;
  for (const auto& [widget, name] : EnumText<DockWidget>::table) names.emplace_back(name);
  return names;
}

class Keyboard : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(reader_.isReady());
    connection_ = connectToDesktop();
    ASSERT_TRUE(connection_);
    keys_.start("xdotool", {"-"});
    ASSERT_TRUE(keys_.waitForStarted());
  }
  void TearDown() override {
    keys_.closeWriteChannel();
    keys_.waitForFinished(2000);
    if (program_.state() != QProcess::NotRunning) {
      program_.kill();
      program_.waitForFinished(2000);
    }
  }

  void start(const std::vector<std::string>& widgets, const std::string& modelServer = "http://127.0.0.1:1/") {
    const auto home = folder_ / "home";
    Profile profile{.id = UUID::random(), .name = "All", .trigger = {}, .items = {}};
    for (const std::string& widget : widgets) profile.items.push_back(DockItem::holding(widget));
    std::filesystem::create_directories(home / ".local/share/Ambrel");
    std::filesystem::create_directories(home / ".config/Ambrel");
    saveProfiles(home / ".local/share/Ambrel/profiles.json", {profile});
    UserDefaults defaults(home / ".config/Ambrel/defaults.json");
    for (const char* done : {"welcomeDone", "buddyAdded", "migratedFromLegacyBundleID"})
      defaults.set(done, DefaultsValue{true});
    for (const char* host : {"weatherForecastURL", "weatherAirQualityURL", "weatherGeocodingURL", "modelServerURL"})
      defaults.set(host, DefaultsValue{std::string("http://127.0.0.1:1/")});

    defaults.set("modelServerURL", DefaultsValue{modelServer});

    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(home));
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
      environment.remove(variable);
    program_.setProcessEnvironment(environment);
    program_.setProcessChannelMode(QProcess::MergedChannels);
    program_.start(TILEBAY_PROGRAM, {});
    ASSERT_TRUE(waitFor([&] { return reader_.hasProgram(); }, 20000)) << said();
    ASSERT_EQ(run(TILEBAY_PROGRAM, {"--reveal"}).status, 0);
    ASSERT_TRUE(waitFor([&] { return !visibleWindows().empty(); })) << said();
  }

  bool lives() const { return program_.state() == QProcess::Running; }
  // What it has printed. The toolkit complains when we answer late to a key that it announces, and, from 6.8 on, when
  // we ask for an item that has just been closed.
  std::string said() {
    output_ += program_.readAll();
    QByteArray kept;
    for (const QByteArray& line : output_.split('\n'))
      if (!line.isEmpty() && !line.contains("keyEventError") && !reader_.isAnswer(line)) kept += line + '\n';
    return kept.toStdString();
  }

  // Keys that the program has grabbed, or that go to nobody.
  void send(const char* keys) {
    keys_.write(QByteArray("key ") + keys + '\n');
    keys_.waitForBytesWritten(1000);
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
  // Toasts, tips and bubbles do not take the keyboard.
  bool isMessage(const QString& path, int depth = 3) const {
    if (const unsigned role = reader_.item(path).role; role == ScreenReader::alert || role == ScreenReader::toolTip)
      return true;
    if (depth == 0) return false;
    const auto below = reader_.children(path);
    return std::ranges::any_of(below, [&](const QString& child) { return isMessage(child, depth - 1); });
  }
  // Whether anything below an item, or the item itself, is called so.
  bool says(const QString& path, const QString& text) const {
    if (reader_.item(path).name.contains(text)) return true;
    const auto below = reader_.children(path);
    return std::ranges::any_of(below, [&](const QString& child) { return says(child, text); });
  }
  void type(const char* text) { run("xdotool", {"type", "--delay", "20", QString::fromUtf8(text)}); }
  // The window that has come since and is for the keyboard; it has it, too.
  std::optional<QString> opened(const std::vector<QString>& before) {
    for (const QString& window : visibleWindows()) {
      if (std::ranges::find(before, window) != before.end() || isMessage(window) ||
          reader_.item(window).name == QLatin1String("Tilebay"))  // the bar comes out with a panel
        continue;
      EXPECT_TRUE(waitFor([&] { return activeWindow() == window; })) << "it does not get the keyboard";
      reader_.settle();
      return window;
    }
    return std::nullopt;
  }

  bool hasRing(const ScreenReader::Item& item) const {
    const bool isText = item.role == ScreenReader::text;
    // Rings are up to four pixels around an item or a few within it; a field's is around its symbol and button too.
    const QRect around = isText ? item.place.adjusted(-40, -14, 40, 14) : item.place.adjusted(-6, -6, 6, 6);
    // A wide button can be of the ring's colour itself; the ring of a round or a square one is on its edge.
    const int edge = item.role != ScreenReader::pushButton ? 8 : item.place.width() <= 40 ? 4 : 0;
    const QRect within = item.place.adjusted(edge, edge, -edge, -edge);
    const QRect grabbed = around.intersected(QRect(0, 0, 1600, 900));
    if (grabbed.isEmpty()) return false;
    auto* xcb = connection_->xcb();
    const auto cookie = xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP,
                                      xcb_setup_roots_iterator(xcb_get_setup(xcb)).data->root, int16_t(grabbed.x()),
                                      int16_t(grabbed.y()), uint16_t(grabbed.width()), uint16_t(grabbed.height()), ~0u);
    const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(xcb_get_image_reply(xcb, cookie, nullptr),
                                                                             &std::free);
    if (!image) return false;
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
    int count = 0;
    for (int y = 0; y < grabbed.height(); ++y)
      for (int x = 0; x < grabbed.width(); ++x)
        if (!within.contains(grabbed.x() + x, grabbed.y() + y) &&
            std::ranges::count(ringColors, pixels[y * grabbed.width() + x] & 0xffffff))
          ++count;
    return count >= std::max(item.place.width(), item.place.height()) / 2;
  }
  // What every stop of the keyboard must be. A menu's row is lit up instead; rows of a list can have moved on.
  void expectSensible(const ScreenReader::Item& item) {
    EXPECT_FALSE(item.name.isEmpty()) << "a stop without a name, role " << item.role;
    const bool isRow =
        item.role == ScreenReader::menuItem || item.role == ScreenReader::list || item.role == ScreenReader::listItem;
    EXPECT_TRUE(isRow || waitFor([&] { return hasRing(reader_.item(item.path)); }, 4000))
        << (shoot(), "no ring on ") << item.name.toStdString();
  }

  // Walks through the window by Tab until it comes round.
  void walk() {
    QSet<QString> seen;
    for (int i = 0; i < mostStops; ++i) {
      const int changes = reader_.focusChanges();
      if (!press("Tab")) break;
      // A panel that is still coming in has nothing for the keyboard yet.
      if (!waitFor([&] { return reader_.focusChanges() > changes; }, 300) && i < 3) continue;
      reader_.settle();
      const auto item = reader_.item(reader_.focusPath());
      if (seen.contains(item.path)) break;
      seen.insert(item.path);
      expectSensible(item);
    }
    EXPECT_FALSE(seen.isEmpty()) << "Tab finds nothing";
    EXPECT_LT(seen.size(), mostStops) << "Tab does not come round";
  }
  void walkAndClose(const QString& window) {
    walk();
    shoot();
    // What is typed in a field goes first.
    for (int i = 0; i < 3 && isVisible(window) && press("Escape"); ++i)
      waitFor([&] { return !isVisible(window); }, 1500);
    // A review asks first.
    if (isVisible(window) && pressUntil("Tab", "Close the review") && press("Return"))
      waitFor([&] { return !isVisible(window); }, 1500);
    EXPECT_FALSE(isVisible(window)) << "Escape does not close it";
  }
  bool isVisible(const QString& window) const {
    const auto all = visibleWindows();
    return std::ranges::find(all, window) != all.end();
  }

  // Whether the key leads to the item of that name.
  bool pressUntil(const char* key, const char* name) {
    for (int i = 0; i < mostStops && press(key); ++i)
      if (reader_.item(reader_.focusPath()).name == QString::fromUtf8(name)) return true;
    return false;
  }

  void quit() {
    EXPECT_EQ(run(TILEBAY_PROGRAM, {"--quit"}).status, 0);
    EXPECT_TRUE(waitFor([&] { return !lives(); }));
    EXPECT_EQ(program_.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(said(), "");
  }

  void takeBar() {
    send("ctrl+alt+super+d");
    const auto isThere = [&] { return bar_.isEmpty() ? !activeWindow().isEmpty() : activeWindow() == bar_; };
    ASSERT_TRUE(waitFor([&] { return isThere() || !lives(); }) && lives()) << said();
    bar_ = activeWindow();
    reader_.settle();
  }

  // With AMBREL_SHOTS=FOLDER, a picture of the screen.
  void shoot() {
    const QString target = qEnvironmentVariable("AMBREL_SHOTS");
    if (!target.isEmpty())
      run("import", {"-silent", "-window", "root",
                     QStringLiteral("%1/keyboard-%2.png").arg(target).arg(++shots_, 3, 10, QChar('0'))});
  }

  TemporaryFolder folder_;
  ScreenReader reader_;
  std::unique_ptr<X11Connection> connection_;
  QProcess keys_, program_;
  QByteArray output_;
  QString bar_;
  int shots_ = 0;
};

TEST_F(Keyboard, ReachesEveryTileAndItsPanel) {
  auto widgets = allWidgets();
  widgets.emplace_back("fromTheFuture");
  ASSERT_NO_FATAL_FAILURE(start(widgets));
  ASSERT_NO_FATAL_FAILURE(takeBar());
  // Some tiles have buttons of their own, which are stops, too.
  QSet<QString> seen;
  int panels = 0;
  for (std::size_t stop = 0; stop < 3 * widgets.size(); ++stop) {
    const int changes = reader_.focusChanges();
    ASSERT_TRUE(press("Right")) << (lives() ? "no key arrives" : "it has ended") << '\n' << said();
    ASSERT_TRUE(waitFor([&] { return reader_.focusChanges() > changes; })) << "the keyboard is stuck";
    reader_.settle();
    const auto tile = reader_.item(reader_.focusPath());
    SCOPED_TRACE(tile.name.toStdString());
    if (seen.contains(tile.path)) break;
    seen.insert(tile.path);
    expectSensible(tile);

    const auto before = visibleWindows();
    ASSERT_TRUE(press("Return")) << said();
    std::optional<QString> window;
    // A capture of the screen takes its moment.
    if (!waitFor([&] { return (window = opened(before)).has_value(); }, 400)) continue;
    ++panels;
    // Panels have no title. The keyboard comes back from them to their tile.
    const bool isPanel = reader_.item(*window).name.isEmpty();
    walkAndClose(*window);
    ASSERT_TRUE(lives()) << said();
    if (!isPanel || !waitFor([&] { return activeWindow() == bar_; }, 3000)) {
      EXPECT_FALSE(isPanel) << "the bar does not get the keyboard back";
      ASSERT_NO_FATAL_FAILURE(takeBar());
    }
    reader_.settle();
    EXPECT_TRUE(waitFor([&] { return reader_.focusPath() == tile.path; }));
  }
  EXPECT_GE(seen.size(), static_cast<qsizetype>(widgets.size()));
  EXPECT_GT(panels, 25);
  quit();
}

TEST_F(Keyboard, AnswersTheBubble) {
  const auto home = folder_ / "home";
  std::filesystem::create_directories(home);
  run("bash", {"-c", ". \"$1/lib/demo-home.sh\"; demo_home \"$2\"", "-", AMBREL_SCRIPTS, QString::fromStdString(home)});
  ASSERT_NO_FATAL_FAILURE(start({"clock", "buddy"}));
  const auto bubble = [&] {
    const auto shown = visibleWindows();
    return std::ranges::any_of(shown, [&](const QString& window) { return isMessage(window); });
  };
  ASSERT_TRUE(waitFor(bubble, 15000)) << "nobody needs the user";
  ASSERT_NO_FATAL_FAILURE(takeBar());
  const auto spoken = [&] { return reader_.item(reader_.focusPath()).name.toStdString(); };
  EXPECT_TRUE(waitFor([&] { return spoken().starts_with("Dock Buddy. "); }, 2000)) << spoken();
  // From the first button to the second, and away with it.
  EXPECT_TRUE(press("Down"));
  shoot();
  const std::string first = spoken();
  EXPECT_TRUE(press("Delete"));
  EXPECT_TRUE(waitFor([&] { return spoken() != first; }));
  quit();
}

// A tool in a terminal, played by the test, calls the hooks that were put into its settings.
TEST_F(Keyboard, ShowsAtOnceWhatAnAgentAsks) {
  const auto home = folder_ / "home";
  const QString homeName = QString::fromStdString(home);
  const auto now = std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
  folder_.write("home/.claude/projects/-x/s1.jsonl",
                R"({"type":"user","cwd":"/home/mira/web-shop","message":{"content":"ship it"},"timestamp":")" +
                    iso8601(now) + "\"}\n");
  const std::string stat = readFile("/proc/self/stat").value();
  folder_.write("home/.claude/sessions/" + std::to_string(getpid()) + ".json",
                compactJSON({{"pid", getpid()},
                             {"sessionId", "s1"},
                             {"procStart", std::string(processStart(stat).value())},
                             {"status", "busy"},
                             {"statusUpdatedAt",
                              std::chrono::floor<std::chrono::milliseconds>(now).time_since_epoch().count()}}));
  const Outcome connected = run(TILEBAYCTL_PROGRAM, {"--home", homeName, "--data", homeName + "/.local/share/Ambrel",
                                                     "agents", "connect", "claudeCode"});
  ASSERT_EQ(connected.status, 0) << connected.output;
  ASSERT_NO_FATAL_FAILURE(start({"agents", "buddy"}));
  const auto command = [&](const char* event) {
    const auto settings = parseJSON(readFile(home / ".claude/settings.json").value());
    return settings->at("hooks").at(event).at(0).at("hooks").at(0).at("command").get<std::string>();
  };
  const auto tell = [&](const char* event) {
    const JSON input{{"hook_event_name", event},
                     {"session_id", "s1"},
                     {"tool_name", "Bash"},
                     {"tool_input", {{"command", "make deploy"}}}};
    folder_.write("input.json", compactJSON(input));
    run("env", {"-u", "XDG_DATA_HOME", "HOME=" + homeName, "sh", "-c",
                QString::fromStdString(command(event) + " <" + (folder_ / "input.json").string())});
  };
  ASSERT_EQ(run(TILEBAY_PROGRAM, {"--toggle-agents"}).status, 0);
  // The row in the list, by its name.
  const std::function<QString(const QString&, int)> rowBelow = [&](const QString& path, int depth) {
    if (const auto item = reader_.item(path); item.name.startsWith("web-shop, ")) return item.name;
    for (const QString& child : depth > 0 ? reader_.children(path) : std::vector<QString>())
      if (const QString found = rowBelow(child, depth - 1); !found.isEmpty()) return found;
    return QString();
  };
  const auto row = [&] {
    for (const QString& window : visibleWindows())
      if (reader_.item(window).name.isEmpty())
        if (const QString found = rowBelow(window, 8); !found.isEmpty()) return found;
    return QString();
  };
  ASSERT_TRUE(waitFor([&] { return row().contains("Working"); }, 10000)) << row().toStdString() << said();

  tell("PermissionRequest");
  // Long before a poll comes round.
  QElapsedTimer clock;
  clock.start();
  EXPECT_TRUE(waitFor([&] { return row().contains("Bash: make deploy, Needs you"); })) << row().toStdString();
  const auto delay = clock.elapsed();
  shoot();
  EXPECT_LT(delay, 2500);
  press("Escape");
  const auto bubble = [&] {
    const auto shown = visibleWindows();
    return std::ranges::any_of(shown, [&](const QString& window) { return isMessage(window); });
  };
  EXPECT_TRUE(waitFor(bubble)) << "nobody speaks";
  shoot();
  // While the keyboard is on the bubble it stays.
  press("Escape");
  tell("PostToolUse");
  // His rules are asked every ten seconds.
  EXPECT_TRUE(waitFor([&] { return !bubble(); }, 15000)) << "it has been answered";
  quit();
}

TEST_F(Keyboard, AsksTheModelAndThenTheGrammar) {
  using Reply = ScriptedModelServer::Reply;
  ScriptedModelServer server;
  const QByteArray told =
      "data: {\"choices\":[{\"delta\":{\"content\":\"The processor \"}}]}\n\n"
      "data: {\"choices\":[{\"delta\":{\"content\":\"is in the bar.\"},"
      "\"finish_reason\":\"stop\"}]}\n\n";
  server.script = {Reply{.body = R"({"choices":[{"message":{"content":null,"tool_calls":[
        {"function":{"name":"addWidgetToDock","arguments":"{\"widgetName\":\"CPU\"}"}},
        {"function":{"name":"removeWidget","arguments":{"itemName":"clock"}}}]},"finish_reason":"tool_calls"}]})"},
                   Reply{.body = told, .atFirst = told.indexOf("\n\n") + 2}};
  ASSERT_NO_FATAL_FAILURE(start({"buddy", "clock"}, server.url()));
  // While the bar asks for the keyboard.
  const auto before = visibleWindows();
  send("super+alt+b");
  std::optional<QString> panel;
  ASSERT_TRUE(waitFor([&] { return (panel = opened(before)).has_value(); })) << said();
  EXPECT_TRUE(waitFor([&] { return server.looks == 1; }));
  type("Swap clock and processor");
  send("Return");
  ASSERT_TRUE(waitFor([&] { return says(*panel, "Swap clock and processor. The processor"); })) << (shoot(), said());
  shoot();
  EXPECT_FALSE(says(*panel, "is in the bar"));
  server.goOn();
  EXPECT_TRUE(waitFor([&] { return says(*panel, "The processor is in the bar."); }));
  ASSERT_EQ(server.asked.size(), 2);
  EXPECT_TRUE(server.asked[1].contains("Added the CPU widget."));
  EXPECT_TRUE(server.asked[1].contains("Removed the Clock widget."));
  const auto profiles = loadProfiles(folder_ / "home/.local/share/Ambrel/profiles.json").profiles;
  EXPECT_TRUE(profiles.front().contains("cpu") && !profiles.front().contains("clock"));
  shoot();

  // The server goes, and the next question is for the grammar.
  server.close();
  press("Escape");
  EXPECT_TRUE(waitFor([&] { return !isVisible(*panel); }));
  ASSERT_EQ(run(TILEBAY_PROGRAM, {"--ask", "pin nobody"}).status, 0);
  EXPECT_TRUE(waitFor([&] { return isVisible(*panel); }));
  EXPECT_TRUE(waitFor([&] { return says(*panel, "pin nobody. No profile matches nobody. Profiles: All."); }));
  EXPECT_TRUE(says(*panel, "No model server is running here. Simple commands still work."));
  shoot();
  quit();
}

TEST_F(Keyboard, WalksThroughWindowsAndSheets) {
  ASSERT_NO_FATAL_FAILURE(start({"clock"}));
  run("sh", {"-c", "echo a text | xclip -selection clipboard >/dev/null 2>&1"});
  const auto openBy = [&](const char* wish) {
    const auto before = visibleWindows();
    EXPECT_EQ(run(TILEBAY_PROGRAM, {wish}).status, 0);
    std::optional<QString> window;
    waitFor([&] { return (window = opened(before)).has_value(); });
    EXPECT_TRUE(window) << wish;
    return window;
  };
  for (const char* wish : {"--toggle-agents", "--toggle-clipboard", "--open-disk-doctor", "--capture-notes"}) {
    SCOPED_TRACE(wish);
    if (const auto window = openBy(wish)) walkAndClose(*window);
  }
  if (const auto settings = openBy("--settings")) {
    for (const char* tab : {"General", "Appearance", "Tiles", "Buddy", "Agents", "Clipboard", "About"}) {
      SCOPED_TRACE(tab);
      ASSERT_TRUE(pressUntil("Tab", tab));
      press("Return");
      walk();
      shoot();
    }
    press("Escape");
    EXPECT_TRUE(waitFor([&] { return !isVisible(*settings); }));
  }
  // By the menu of a tile.
  ASSERT_NO_FATAL_FAILURE(takeBar());
  press("Right");
  auto before = visibleWindows();
  press("Menu");
  const auto menu = opened(before);
  ASSERT_TRUE(menu);
  shoot();
  ASSERT_TRUE(pressUntil("Down", "Customize Dock…"));
  before = visibleWindows();
  press("Return");
  const auto customize = opened(before);
  ASSERT_TRUE(customize);
  walkAndClose(*customize);
  quit();
}

}  // namespace
}  // namespace ambrel
