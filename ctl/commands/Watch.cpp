#include "ctl/commands/Watch.h"

#include <algorithm>

namespace ambrel {

CommandOption watchOption(std::string help) {
  return {.kind = CommandOption::Kind::flag, .name = "--watch", .placeholder = "", .help = std::move(help)};
}

CommandOption everyOption(std::string help) {
  return {.kind = CommandOption::Kind::value, .name = "--every", .placeholder = "SECONDS", .help = std::move(help)};
}

std::optional<Seconds> watchInterval(const Arguments& arguments, Seconds usual) {
  const auto every = arguments.positiveNumber("--every");
  if (!arguments.has("--watch")) {
    if (every) throw UsageError("--every needs --watch");
    return std::nullopt;
  }
  return every ? Seconds(*every) : usual;
}

void printWatching(Context& context, std::optional<Seconds> interval, const std::function<std::string()>& render) {
  const bool redraws = context.out.isTerminal() && !context.json;
  std::optional<std::string> shown;
  for (;;) {
    std::string text = render();
    if (shown != text) {
      if (shown && redraws) {
        const auto lines = std::count(shown->begin(), shown->end(), '\n');
        if (lines > 0) context.out << "\x1b[" + std::to_string(lines) + "F\x1b[J";
      } else if (shown && !context.json) {
        context.out << "\n";
      }
      context.out << text;
      context.out.flush();
      shown = std::move(text);
    }
    if (!interval) return;
    context.out.wait(*interval);
  }
}

}  // namespace ambrel
