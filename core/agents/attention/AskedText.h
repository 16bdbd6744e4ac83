#pragma once
// What a tool call asks of the user, in one line.

#include <optional>
#include <string>
#include <string_view>

#include "core/agents.h"
#include "core/base/LineJSON.h"

namespace ambrel {

// The first line with something in it, without the marks of a heading, as valid UTF-8 of at most 120 characters; the
// last of them is "…" where text was left out. Absent when there is nothing.
std::optional<std::string> askedLine(std::string_view text);

// What a call of this tool asks for, were it to wait: AskUserQuestion and request_user_input a question, ExitPlanMode
// a plan, every other tool a permission.
AgentWait::Reason reasonOf(std::string_view tool);

// The question; the first line of the plan; else the tool and what it would work on: "Bash: make test".
std::optional<std::string> askedText(std::string_view tool, const std::optional<LineObject>& input);

}  // namespace ambrel
