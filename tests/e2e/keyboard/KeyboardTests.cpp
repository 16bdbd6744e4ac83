// The whole program by keyboard alone, as somebody uses it who sees nothing, or has no pointer. Each tile of the
// catalogue is on the bar, so that a new one is covered by being in it.

#include "core/agents/attention/Processes.h"
#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/widgets.h"
#include "tests/e2e/keyboard/KeyboardFixture.h"
#include "tests/fakes/ScriptedModelServer.h"

namespace ambrel {
namespace {

std::vector<std::string> allWidgets() {
  std::vector<std::string> names;
  for (const auto& [widget, name] : EnumText<DockWidget>::table) names.emplace_back(name);
  return names;
}

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
    ASSERT_TRUE(waitFor([&] { return reader_.focusChanges() > changes; }))
        << "the keyboard is stuck at " << focused().name.toStdString();
    reader_.settle();
    const auto tile = focused();
    SCOPED_TRACE(tile.name.toStdString());
    if (seen.contains(tile.path)) break;
    seen.insert(tile.path);
    expectSensible(tile);

    const auto before = visibleWindows();
    ASSERT_TRUE(press("Return")) << said();
    std::optional<QString> window;
    // A capture of the screen takes its moment.
    const bool hasLoupe = tile.name.contains(QLatin1String("Picker"));
    const auto isElsewhere = [&] { return hasLoupe ? activeWindow() != bar_ : (window = opened(before)).has_value(); };
    if (!waitFor(isElsewhere, hasLoupe ? 3000 : 400)) {
      EXPECT_FALSE(hasLoupe) << "no loupe";
      continue;
    }
    if (hasLoupe) {
      // It is a picture alone, with nothing to walk through.
      ASSERT_TRUE(press("Escape")) << said();
      ASSERT_NO_FATAL_FAILURE(takeBar());
      EXPECT_TRUE(waitFor([&] { return reader_.focusPath() == tile.path; }));
      continue;
    }
    ++panels;
    // The keyboard comes back from panels to their tile.
    const QString name = reader_.item(*window).name;
    const bool isPanel = name != "Clipboard" && name != "Disk Doctor" && name != "Screen Notes";
    walkAndClose(*window);
    ASSERT_TRUE(lives()) << said();
    if (!isPanel || !waitFor([&] { return activeWindow() == bar_; }, 3000)) {
      EXPECT_FALSE(isPanel) << "the bar does not get the keyboard back";
      ASSERT_NO_FATAL_FAILURE(takeBar());
    }
    reader_.settle();
    EXPECT_TRUE(waitFor([&] { return reader_.focusPath() == tile.path; }))
        << "it is at " << focused().name.toStdString();
  }
  EXPECT_GE(seen.size(), static_cast<qsizetype>(widgets.size()));
  EXPECT_GT(panels, 25);
  quit();
}

TEST_F(Keyboard, AnswersTheBubble) {
  const auto home = folder_ / "home";
  std::filesystem::create_directories(home);
  run("bash", {"-c", ". \"$1/lib/demo-home.sh\"; demo_home \"$2\"", "-", AMBREL_SCRIPTS, QString::fromStdString(home)});
  // Somebody types in another program meanwhile.
  const auto typed = folder_ / "typed";
  QProcess terminal;
  terminal.start("xterm", {"-e", "sh", "-c", "exec cat >\"$0\"", QString::fromStdString(typed)});
  ASSERT_TRUE(waitFor([&] { return std::filesystem::exists(typed); }, 10000));
  ASSERT_NO_FATAL_FAILURE(BarFixture::start({"clock", "buddy"}));
  const auto bubble = [&] {
    const auto shown = visibleWindows();
    return std::ranges::any_of(shown, [&](const QString& window) { return isMessage(window); });
  };
  ASSERT_TRUE(waitFor(bubble, 15000)) << "nobody needs the user";
  type("go on\n");
  EXPECT_TRUE(waitFor([&] { return readFile(typed) == "go on\n"; }, 5000)) << "the bubble takes the keyboard";
  terminal.kill();
  terminal.waitForFinished(2000);
  ASSERT_NO_FATAL_FAILURE(takeBar());
  const auto spoken = [&] { return focused().name.toStdString(); };
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
      if (reader_.item(window).name != QLatin1String("Tilebay"))
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
