#pragma once
// What the commands with --watch share.

#include <functional>
#include <optional>
#include <string>

#include "ctl/Command.h"
#include "ctl/Context.h"

namespace ambrel {

// "--watch" and "--every SECONDS".
CommandOption watchOption(std::string help);
CommandOption everyOption(std::string help);

// The time between two polls; absent when the command is to run once. Throws UsageError.
std::optional<Seconds> watchInterval(const Arguments& arguments, Seconds usual);

// Prints what `render` gives: once, or again on each poll that gives another text. As JSON, and where the output is no
// terminal, one text follows the other; on a terminal each takes the place of the last.
void printWatching(Context& context, std::optional<Seconds> interval, const std::function<std::string()>& render);

}  // namespace ambrel
