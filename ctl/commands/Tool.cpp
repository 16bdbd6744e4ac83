#include <cerrno>
#include <cstring>
#include <iostream>
#include <iterator>
#include <unistd.h>

#include "core/base/JSON.h"
#include "core/settings.h"
#include "core/tools.h"
#include "ctl/Context.h"
#include "ctl/Folders.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

const TextTool& toolOf(const Arguments& arguments) {
  const std::string name = arguments.value("NAME").value();
  const auto widget = fromName<DockWidget>(name);
  if (const TextTool* tool = widget ? textTool(*widget) : nullptr) return *tool;
  std::vector<std::string> known;
  for (const TextTool& tool : textTools()) known.emplace_back(nameOf(tool.widget));
  known.emplace_back(nameOf(DockWidget::calculator));
  throw UsageError("unknown tool '" + name + "'" + hint(name, known, "'tilebayctl tool --help'"));
}

// "--to snake" and "--with sha256" are one option with two names, each for the tools that it reads well with.
std::string choiceOf(const TextTool& tool, const Arguments& arguments) {
  if (arguments.has("--to") && arguments.has("--with")) throw UsageError("--to and --with are the same; give one");
  const auto given = arguments.value(arguments.has("--to") ? "--to" : "--with");
  if (!given) return std::string(tool.choices.front().id);
  if (tool.choice(*given)) return *given;
  std::vector<std::string> known;
  for (const ToolChoice& choice : tool.choices) known.emplace_back(choice.id);
  throw UsageError(std::string(nameOf(tool.widget)) + " knows no '" + *given + "'" +
                   hint(*given, known, "'tilebayctl tool --help'"));
}

int passwordLength(const Arguments& arguments, const Context& context) {
  const SettingRow& row = setting::passwordLength;
  const auto given = arguments.value("--length");
  if (!given) return static_cast<int>(valueOf(UserDefaults(context.config / "defaults.json"), setting::passwordLength));
  try {
    return static_cast<int>(std::get<std::int64_t>(parseSetting(row, *given).value));
  } catch (const SettingError& error) {
    throw UsageError("'" + *given + "' is no --length, which " + error.what());
  }
}

// Hands over to the process that works out an expression and ends.
[[noreturn]] void calculate(const Context& context) {
  const std::string program = calculatorProgram();
  const char* json = context.json ? "--json" : nullptr;
  execl(program.c_str(), program.c_str(), context.calendar.locale().c_str(), json, nullptr);
  if (errno == ENOENT) throw CommandError("The calculator is not installed: it is the package tilebay-calculator");
  throw CommandError(program + " cannot be run: " + std::string(std::strerror(errno)));
}

void useTool(const Arguments& arguments, Context& context) {
  if (arguments.value("NAME") == nameOf(DockWidget::calculator)) calculate(context);
  const TextTool& tool = toolOf(arguments);
  const std::string choice = choiceOf(tool, arguments);
  const ToolSource source{.random = fillRandomly,
                          .now = context.now(),
                          .calendar = context.calendar,
                          .passwordLength = passwordLength(arguments, context)};
  std::string input;
  if (tool.input != ToolInput::none) {
    input.assign(std::istreambuf_iterator<char>(std::cin), {});
    if (std::cin.bad()) throw CommandError("cannot read standard input");
  }
  const ToolOutcome outcome = runTool(tool, {.choice = choice, .input = input, .source = source});
  if (!outcome.fault.empty()) throw CommandError(outcome.fault);
  if (context.json)
    return context.print({{"tool", nameOf(tool.widget)}, {"choice", choice}, {"output", outcome.output}});
  context.out << outcome.output;
  // What Base64 decodes to may be no text, in which a newline more would be wrong.
  const bool isBytes = tool.widget == DockWidget::base64 && choice == "decode";
  if (!isBytes && !outcome.output.ends_with('\n')) context.out << "\n";
}

// The tools with their choices, the usual one first.
std::string listed() {
  std::string text = "Tools, and what each takes after --to or --with (the first unless another is given):";
  for (const TextTool& tool : textTools()) {
    text.append("\n  ").append(nameOf(tool.widget)).append(":");
    for (const ToolChoice& choice : tool.choices) text.append(" ").append(choice.id);
  }
  text.append("\n  ").append(nameOf(DockWidget::calculator)).append(": an expression, such as 5 mi to km");
  return text;
}

}  // namespace

Command toolCommand() {
  using enum CommandOption::Kind;
  CommandOption name{positional, "NAME", "", "The tool, such as hash"};
  for (const TextTool& tool : textTools()) name.choices.emplace_back(nameOf(tool.widget));
  return {.name = "tool",
          .summary = "One of the text tools, standard input to standard output",
          .options = {name,
                      {value, "--to", "CHOICE", "What it makes, such as snake"},
                      {value, "--with", "CHOICE", "The same, such as sha256"},
                      {value, "--length", "CHARACTERS", "Of a password [the setting passwordLength]"}},
          .commands = {},
          .run = useTool,
          .details = listed()};
}

}  // namespace ambrel
