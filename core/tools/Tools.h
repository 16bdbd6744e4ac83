#pragma once
// What each of the tools does; the table of TextTools.cpp gathers them.

#include "core/tools.h"

namespace ambrel::tools {

// "1,234" in the user's form, "1,234 words", "1 word".
std::string figure(const ToolCall& call, std::int64_t count);
std::string counted(const ToolCall& call, std::int64_t count, std::string_view one, std::string_view many);

ToolOutcome uuid(const ToolCall& call);
ToolOutcome password(const ToolCall& call);
ToolOutcome placeholderText(const ToolCall& call);
ToolOutcome jsonLayout(const ToolCall& call);
ToolOutcome base64(const ToolCall& call);
ToolOutcome digest(const ToolCall& call);
ToolOutcome counts(const ToolCall& call);
ToolOutcome wordCase(const ToolCall& call);
ToolOutcome qrText(const ToolCall& call);
ToolOutcome link(const ToolCall& call);
ToolOutcome colorNotation(const ToolCall& call);

ToolGlance uuidGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance passwordGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance placeholderGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance jsonGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance base64Glance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance digestGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance countsGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance wordCaseGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance qrGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance linkGlance(const ToolCall& call, const ToolOutcome& outcome);
ToolGlance colorGlance(const ToolCall& call, const ToolOutcome& outcome);

}  // namespace ambrel::tools
