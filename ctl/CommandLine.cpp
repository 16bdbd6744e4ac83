#include "ctl/CommandLine.h"

#include <CLI/CLI.hpp>
#include <deque>
#include <sstream>

namespace ambrel {
namespace {

// What CLI11 fills in for one command; it keeps pointers, so the places must not move.
struct Slot {
  const Command* command = nullptr;
  CLI::App* app = nullptr;
  std::deque<bool> flags;
  std::deque<std::vector<std::string>> values;
};

class Parser {
 public:
  explicit Parser(const std::vector<Command>& commands)
      : app_("Shows what Tilebay knows, for people and for scripts.", "tilebayctl") {
    app_.set_help_flag("-h,--help", "Print this help and end");
    app_.set_version_flag("--version", "tilebayctl " AMBREL_VERSION, "Print the version and end");
    app_.add_option("--home", home_, "The home folder that the readers look under [$HOME]")->type_name("DIR");
    app_.add_option("--data", data_, "The folder of the program's own files [$XDG_DATA_HOME/Ambrel]")->type_name("DIR");
    app_.add_option("--now", now_, "The present instant, ISO 8601 with a zone [the clock]")->type_name("INSTANT");
    app_.add_flag("--json", json_, "JSON on standard output");
    app_.allow_extras();
    add(app_, commands);
  }

  ParsedCommandLine parse(int count, const char* const* words) {
    ParsedCommandLine parsed;
    try {
      app_.parse(count, words);
    } catch (const CLI::Success& wish) {  // help or version
      std::ostringstream out, error;
      app_.exit(wish, out, error);
      parsed.answer = out.str();
      return parsed;
    } catch (const CLI::ParseError& problem) {
      refuseExtras();
      throw UsageError(std::string(problem.what()) + "; see '" + helpCommand() + " --help'");
    }
    refuseExtras();

    const Slot* slot = chosen();
    if (!slot || !slot->command->run)
      throw UsageError(std::string(slot ? "this command needs one of its own" : "no command is given") + "; see '" +
                       helpCommand() + " --help'");
    parsed.command = slot->command;
    std::size_t flag = 0, value = 0;
    for (const CommandOption& option : slot->command->options) {
      if (option.kind == CommandOption::Kind::flag) {
        if (slot->flags[flag++]) parsed.arguments.add(option.name, {});
      } else if (const auto& given = slot->values[value++]; !given.empty()) {
        parsed.arguments.add(option.name, given);
      }
    }
    parsed.global = globalOptions();
    return parsed;
  }

  CommandWords words() const { return wordsOf(app_); }

 private:
  void add(CLI::App& parent, const std::vector<Command>& commands) {
    for (const Command& command : commands) {
      CLI::App* app = parent.add_subcommand(command.name, command.summary);
      app->allow_extras();
      app->fallthrough();
      app->footer(command.details);
      if (command.isHidden) app->group("");
      Slot& slot = slots_.emplace_back();
      slot.command = &command;
      slot.app = app;
      for (const CommandOption& option : command.options) addOption(*app, slot, option);
      add(*app, command.commands);
    }
  }

  void addOption(CLI::App& app, Slot& slot, const CommandOption& option) {
    using enum CommandOption::Kind;
    if (option.kind == flag) {
      app.add_flag(option.name, slot.flags.emplace_back(false), option.help);
      return;
    }
    CLI::Option* added = app.add_option(option.name, slot.values.emplace_back(), option.help);
    if (!option.placeholder.empty()) added->type_name(option.placeholder);
    // One value each time that it is given; otherwise it would take the positional after it, too.
    added->allow_extra_args(false);
    if (option.kind != values) added->expected(1);
    if (option.kind == positional) added->required();
  }

  // The innermost command that was given.
  const Slot* chosen() const {
    const Slot* found = nullptr;
    for (const Slot& slot : slots_)
      if (slot.app->parsed()) found = &slot;
    return found;
  }

  CommandWords wordsOf(const CLI::App& app) const {
    CommandWords words{.name = app.get_name(), .summary = app.get_description(), .options = {}, .commands = {}};
    for (const CLI::Option* option : app.get_options()) {
      CommandWords::Option& added = words.options.emplace_back();
      if (option->get_positional()) added.names = {option->get_name()};
      for (const std::string& name : option->get_snames()) added.names.push_back("-" + name);
      for (const std::string& name : option->get_lnames()) added.names.push_back("--" + name);
      if (!option->get_positional() && option->get_items_expected_max() > 0) added.value = option->get_type_name();
      added.help = option->get_description();
      added.choices = choicesOf(app, added.names.front());
    }
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
      if (!command->get_group().empty()) words.commands.push_back(wordsOf(*command));
    return words;
  }

  std::vector<std::string> choicesOf(const CLI::App& app, const std::string& name) const {
    for (const Slot& slot : slots_)
      if (slot.app == &app)
        for (const CommandOption& option : slot.command->options)
          if (option.name == name) return option.choices;
    return {};
  }

  std::string helpCommand() const {
    std::string words;
    if (const Slot* slot = chosen())
      for (const CLI::App* app = slot->app; app != &app_; app = app->get_parent())
        words = " " + app->get_name() + words;
    return "tilebayctl" + words;
  }

  void refuseExtras() const {
    const auto extras = app_.remaining(true);
    if (extras.empty()) return;
    const std::string& word = extras.front();
    const Slot* slot = chosen();
    const CLI::App& app = slot ? *slot->app : app_;
    std::vector<std::string> known;
    if (word.starts_with("-")) {
      for (const CLI::App* from = &app; from; from = from->get_parent())
        for (const CLI::Option* option : from->get_options())
          for (const std::string& name : option->get_lnames()) known.push_back("--" + name);
      throw UsageError("unknown option '" + word + "'" + hint(word, known, "'" + helpCommand() + " --help'"));
    }
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
      known.push_back(command->get_name());
    const bool takesNone = known.empty() || (slot && slot->command->run);
    throw UsageError((takesNone ? "unexpected argument '" : "unknown command '") + word + "'" +
                     hint(word, known, "'" + helpCommand() + " --help'"));
  }

  GlobalOptions globalOptions() const {
    GlobalOptions options;
    if (!home_.empty()) options.home = home_;
    if (!data_.empty()) options.data = data_;
    if (!now_.empty()) {
      options.now = parseISO8601(now_);
      if (!options.now) throw UsageError("--now '" + now_ + "' is no instant; it is written like 2026-11-21T09:00:00Z");
    }
    options.json = json_;
    return options;
  }

  CLI::App app_;
  std::string home_, data_, now_;
  bool json_ = false;
  std::deque<Slot> slots_;
};

}  // namespace

ParsedCommandLine parseCommandLine(const std::vector<Command>& commands, int count, const char* const* words) {
  return Parser(commands).parse(count, words);
}

CommandWords commandWords(const std::vector<Command>& commands) { return Parser(commands).words(); }

}  // namespace ambrel
