// A text of any bytes through every tool: what comes out is text or a fault. Laid out JSON is JSON that says the same,
// and a clean link stays as it is.

#include <cstddef>
#include <cstdint>

#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "core/tools.h"
#include "fuzz/Require.h"

using namespace ambrel;

namespace {

std::string worked(DockWidget widget, std::string_view choice, std::string_view input, const ToolSource& source) {
  return runTool(*textTool(widget), {.choice = choice, .input = input, .source = source}).output;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ToolSource source{.random = fillRandomly, .now = Instant(), .calendar = Calendar("UTC", "en_US")};
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  for (const TextTool& tool : textTools())
    for (const ToolChoice& choice : tool.choices) {
      const ToolCall call{.choice = choice.id, .input = input, .source = source};
      const ToolOutcome outcome = runTool(tool, call);
      const bool isBytes = tool.widget == DockWidget::base64;
      require(isBytes || isValidUTF8(outcome.output));
      require(outcome.fault.empty() || outcome.output.empty());
      glanceAt(tool, call, outcome);
    }
  const std::string compact = worked(DockWidget::jsonFormatter, "compact", input, source);
  const std::string wide = worked(DockWidget::jsonFormatter, "4", input, source);
  require(worked(DockWidget::jsonFormatter, "compact", wide, source) == compact);
  // What the library takes as JSON, this does, too.
  require(!compact.empty() || !isValidUTF8(input) || !parseJSON(input));
  const std::string clean = worked(DockWidget::urlTools, "clean", input, source);
  require(clean.empty() || worked(DockWidget::urlTools, "clean", clean, source) == clean);
  return 0;
}
