#include "core/assistant.h"
#include "core/base/Overloaded.h"
#include "tests/Matchers.h"
#include "tests/core/profiles/Tiles.h"

namespace ambrel {
namespace {

// A bar whose edits take effect at once, as the program's do.
struct Bar {
  std::vector<Profile> profiles;
  std::optional<UUID> pinned;
  std::vector<AgentSession> sessions;
  SearchFolding folding;
  Instant now{std::chrono::hours(1000)};

  explicit Bar(const std::vector<std::string>& widgets = {"clock", "clipboard"}) {
    for (const char* name : {"Laptop", "Desk", "Work München"})
      profiles.push_back({.id = UUID::random(), .name = name, .trigger = {}, .items = {}});
    profiles.front().items = holding(widgets);
  }
  std::string ask(std::string_view text) {
    return commandReply(text, [&](const AssistantCall& call) {
      const auto outcome = carryOut(call, {.profiles = profiles,
                                           .active = profiles.empty() ? nullptr : &profiles.front(),
                                           .sessions = sessions,
                                           .now = now,
                                           .folding = folding});
      if (outcome.change)
        std::visit(Overloaded{[&](const assistant_change::AddWidget& add) {
                                addWidget(profiles, nameOf(add.widget), add.profile);
                              },
                              [&](const assistant_change::RemoveWidget& remove) {
                                removeWidget(profiles, nameOf(remove.widget), remove.profile);
                              },
                              [&](const assistant_change::PinProfile& pin) { pinned = pin.profile; }},
                   *outcome.change);
      return outcome.reply;
    });
  }
  std::string widgets() const {
    std::string all;
    for (const DockItem& item : profiles.front().items) all += item.widget.value_or("?") + " ";
    return all;
  }
};

constexpr std::string_view notReady =
    "The language model is not ready yet. Until then, try: “What are my agents doing?”, “Add CPU and Battery”, “Remove "
    "Clock”, “Switch to Laptop”.";
constexpr std::string_view noAgents = "No agent sessions are active.";

TEST(CommandGrammar, AnswersInOrder) {
  const struct {
    std::string_view text, reply, widgets;
  } rows[] = {
      {"Add CPU and Battery", "Added the CPU widget. Added the Battery widget.", "clock clipboard cpu battery "},
      {"ADD cpu, battery & memory", "Added the CPU widget. Added the Battery widget. Added the Memory widget.",
       "clock clipboard cpu battery memory "},
      {"add the CPU and Battery widgets", "Added the CPU widget. Added the Battery widget.",
       "clock clipboard cpu battery "},
      {"Add the Focus Timer", "Added the Focus Timer widget.", "clock clipboard pomodoro "},
      {"show CPU and CPU", "Added the CPU widget. CPU is already in the bar.", "clock clipboard cpu "},
      {"remove the clock widget", "Removed the Clock widget.", "clipboard "},
      // Only what is in the bar can go.
      {"hide CPU", "No widget in the bar matches CPU.", "clock clipboard "},
      {"delete clip", "Removed the Clipboard widget.", "clock "},
      {"Add Frobnicator", "No widget matches Frobnicator.", "clock clipboard "},
      // A word that ends in "the" loses it: the removals are plain.
      {"add Bathe tub", "No widget matches Batub.", "clock clipboard "},
      // "and" is a word of its own; with a capital it is none.
      {"Add CPU And Battery", "Added the CPU widget.", "clock clipboard cpu "},
      {"add ,", "", "clock clipboard "},
      {"add", notReady, "clock clipboard "},
      {"open clock", notReady, "clock clipboard "},
      {"please add CPU", notReady, "clock clipboard "},
      {"What are my agents doing?", noAgents, "clock clipboard "},
      {"show sessions", noAgents, "clock clipboard "},
      {"Add AGENTS", noAgents, "clock clipboard "},
  };
  for (const auto& row : rows) {
    Bar bar;
    EXPECT_EQ(bar.ask(row.text), row.reply) << row.text;
    EXPECT_EQ(bar.widgets(), row.widgets) << row.text;
  }
}

TEST(CommandGrammar, SwitchesProfiles) {
  const struct {
    std::string_view text, reply;
    int pinned;  // index of a profile; -1: the displays choose
  } rows[] = {
      {"Switch to Laptop, Desk", "Pinned the Laptop profile.", 0},
      {"use work profile", "Pinned the Work München profile.", 2},
      {"pin MUNCHEN", "Pinned the Work München profile.", 2},
      {"pin auto", "The dock follows the display again.", -1},
      {"use automatic", "The dock follows the display again.", -1},
      {"pin Home", "No profile matches Home. Profiles: Laptop, Desk, Work München.", 1},
      {"use  profile", "No profile matches . Profiles: Laptop, Desk, Work München.", 1},
      {"use ,", "No profile matches ,. Profiles: Laptop, Desk, Work München.", 1},
  };
  for (const auto& row : rows) {
    Bar bar;
    bar.pinned = bar.profiles[1].id;
    EXPECT_EQ(bar.ask(row.text), row.reply) << row.text;
    EXPECT_EQ(bar.pinned, row.pinned < 0 ? std::nullopt : std::optional(bar.profiles[std::size_t(row.pinned)].id))
        << row.text;
  }
}

TEST(CommandGrammar, SaysThatThereIsNoProfile) {
  Bar bar;
  bar.profiles.clear();
  EXPECT_EQ(bar.ask("Add CPU and Clock"), "There is no active profile. There is no active profile.");
  EXPECT_EQ(bar.ask("Remove CPU"), "There is no active profile.");
}

TEST(WidgetFinder, TakesTheTitleThenTheShortest) {
  const struct {
    std::string_view name, title;
  } rows[] = {
      {"clock", "Clock"},  // and not Analog Clock, which holds it
      {" WEATHER ", "Weather"},
      {"wéather", "Weather"},
      {"the big clock of my village", "Clock"},
      {"Chart", "CPU Chart"},
      // A title with an accent too many is only held: the shorter one that is held as well comes first.
      {"Fócus Timer", "Timer"},
      {"", ""},
      {"  ", ""},
      {"zzz", ""},
  };
  std::vector<DockWidget> all;
  for (const DockWidget widget : allCases<DockWidget>()) all.push_back(widget);
  for (const auto& row : rows) {
    const auto found = findWidget(row.name, all, {});
    EXPECT_EQ(found ? title(*found) : "", row.title) << row.name;
  }
}

// In Turkish, I is no capital of i: the title alone, which is English, is compared without regard to that.
TEST(WidgetFinder, FoldsUnderTheLocale) {
  const DockWidget all[] = {DockWidget::disk, DockWidget::wifi};
  const auto turkish = SearchFolding::forLocale("tr_TR.UTF-8");
  EXPECT_EQ(findWidget("DISK", all, turkish), DockWidget::disk);
  EXPECT_EQ(findWidget("MY DISK", all, turkish), std::nullopt);
  EXPECT_EQ(findWidget("MY DISK", all, {}), DockWidget::disk);
}

TEST(AgentsStatus, HasALineForEachThatIsNotIdle) {
  Bar bar;
  const auto session = [&](AgentKind kind, AgentStatus status, Seconds age) {
    return AgentSession{.id = "x",
                        .kind = kind,
                        .title = "t",
                        .status = status,
                        .updatedAt = bar.now - std::chrono::round<std::chrono::microseconds>(age)};
  };
  bar.sessions = {session(AgentKind::codex, AgentStatus::needsInput, Seconds(59)),
                  session(AgentKind::claudeCode, AgentStatus::working, Seconds(179)),
                  session(AgentKind::cursor, AgentStatus::idle, Seconds(1))};
  bar.sessions[1].project = "tilebay";
  bar.sessions[1].detail = "Thinking";
  EXPECT_EQ(bar.ask("what are they doing"),
            "Codex · - · needsInput ·  · 0 min ago\nClaude Code · tilebay · working · Thinking · 2 min ago");
}

TEST(Instructions, NameEveryWidget) {
  const std::string text = assistantInstructions();
  EXPECT_THAT(text, StartsWith("You are Buddy, the assistant inside Tilebay, a dock app for Linux.\nAnswer in"));
  EXPECT_THAT(text, HasSubstr("Never invent widgets or sessions.\nWidgets: "));
  for (const DockWidget widget : allCases<DockWidget>()) EXPECT_THAT(text, HasSubstr(std::string(title(widget))));
  EXPECT_THAT(text, EndsWith("."));
}

}  // namespace
}  // namespace ambrel
