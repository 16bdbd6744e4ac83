#include "core/agents/attention/AgentPoll.h"
#include "core/assistant.h"
#include "core/base/JSON.h"
#include "core/base/Overloaded.h"
#include "core/base/UserDefaults.h"
#include "core/base/Whitespace.h"
#include "ctl/Context.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

class StoredBar {
 public:
  explicit StoredBar(Context& context) : context_(context), file_(context.data / "profiles.json") {
    LoadedProfiles loaded = loadProfiles(file_);
    problem_ = std::move(loaded.problem);
    const UserDefaults defaults(context.config / "defaults.json");
    profiles_ = updated(std::move(loaded.profiles), defaults.strings("dockWidgets")).profiles;
  }

  std::string perform(const AssistantCall& call) {
    const Instant now = context_.now();
    std::vector<AgentSession> sessions;
    if (call.action == AssistantAction::agentsStatus)
      sessions = AgentPoll(context_.data, context_.agentFolders).sessions(context_.home, now);
    const AssistantOutcome outcome = carryOut(call, {.profiles = profiles_,
                                                     .active = resolve(profiles_, {}, std::nullopt),
                                                     .sessions = sessions,
                                                     .now = now,
                                                     .folding = SearchFolding::forLocale(context_.calendar.locale())});
    if (outcome.change)
      std::visit(
          Overloaded{[&](const assistant_change::AddWidget& add) {
                       isEdited_ |= addWidget(profiles_, nameOf(add.widget), add.profile);
                     },
                     [&](const assistant_change::RemoveWidget& remove) {
                       isEdited_ |= removeWidget(profiles_, nameOf(remove.widget), remove.profile);
                     },
                     [&](const assistant_change::PinProfile&) {
                       context_.warn("a pin lasts as long as the bar runs; the stored profiles are as they were");
                     }},
          *outcome.change);
    return outcome.reply;
  }

  void save() const {
    if (!isEdited_) return;
    // What is in a damaged file is for a person to mend; saving would leave it behind.
    if (problem_) throw CommandError(*problem_ + "; nothing was changed");
    saveProfiles(file_, profiles_);
  }

 private:
  Context& context_;
  std::filesystem::path file_;
  std::optional<std::string> problem_;
  std::vector<Profile> profiles_;
  bool isEdited_ = false;
};

void runAsk(const Arguments& arguments, Context& context) {
  const std::string given = arguments.value("TEXT").value();
  const std::string_view text = trimmedOfWhitespace(given);
  if (text.empty()) throw UsageError("ask needs a text, as in: tilebayctl ask \"Add the clock\"");
  StoredBar bar(context);
  const std::string reply = commandReply(text, [&](const AssistantCall& call) { return bar.perform(call); });
  bar.save();
  if (context.json) return context.print({{"reply", reply}});
  context.out << reply << "\n";
}

}  // namespace

Command askCommand() {
  return {.name = "ask",
          .summary = "Ask Buddy's commands: the agents, and the widgets of the bar",
          .options = {{CommandOption::Kind::positional, "TEXT", "", "What to ask, as one argument"}},
          .commands = {},
          .run = runAsk};
}

}  // namespace ambrel
