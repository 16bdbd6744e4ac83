#pragma once
// The text tools of the catalogue: each makes one text out of another, or out of chance. What they need of the world is
// lent by a ToolSource, so that the bar, tilebayctl and the tests run the same functions.

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"
#include "core/widgets/DockWidget.h"

namespace ambrel {

struct ToolSource {
  // Fills with bytes that nobody can foretell.
  std::function<void(std::span<std::uint8_t>)> random;
  Instant now;
  Calendar calendar;            // for letters, words and figures
  int passwordLength = 20;      // characters
  std::int64_t loremIndex = 0;  // which placeholder text
};

// Bytes of the kernel's random source.
void fillRandomly(std::span<std::uint8_t> bytes);

struct ToolOutcome {
  std::string output;  // UTF-8, but for what Base64 decodes to
  std::string fault;   // why there is no output, in a sentence without its full stop; empty when there is
  friend bool operator==(const ToolOutcome&, const ToolOutcome&) = default;
};

// Each from 0 to 1, in sRGB.
struct ToolColor {
  double red = 0, green = 0, blue = 0, alpha = 1;
  friend bool operator==(const ToolColor&, const ToolColor&) = default;
};

// What a tile says of a tool: never the text itself, which may be private.
struct ToolGlance {
  std::string value, detail;
  std::optional<ToolColor> swatch;
  friend bool operator==(const ToolGlance&, const ToolGlance&) = default;
};

struct ToolChoice {
  std::string_view id;
  std::string_view title;  // empty for one that is for scripts alone
};

enum class ToolInput {
  none,
  line,   // white space at both ends does not count
  text,   // UTF-8
  bytes,  // of any kind
};

struct ToolCall {
  std::string_view choice, input;
  const ToolSource& source;
};

struct TextTool {
  DockWidget widget;
  ToolInput input;
  std::span<const ToolChoice> choices;  // the first is the usual one; none for a tool that does one thing
  ToolOutcome (*run)(const ToolCall& call);
  // `outcome` is that of the same call.
  ToolGlance (*glance)(const ToolCall& call, const ToolOutcome& outcome);

  const ToolChoice* choice(std::string_view id) const;
};

// In the order of the catalogue.
std::span<const TextTool> textTools();
const TextTool* textTool(DockWidget widget);

// An unknown choice is the usual one. Linear in the input; no outcome is larger than a few times its input, or than 128
// MiB.
ToolOutcome runTool(const TextTool& tool, const ToolCall& call);
// Without an input, what is missing.
ToolGlance glanceAt(const TextTool& tool, const ToolCall& call, const ToolOutcome& outcome);

// The modules of a QR code, row by row, without the quiet zone.
struct QrCode {
  int size = 0;  // modules a side; 0 where the text does not fit
  std::vector<bool> isDark;
  friend bool operator==(const QrCode&, const QrCode&) = default;
};
// `choice`: one of the tool's, how much of the code may be damaged.
QrCode qrCode(std::string_view choice, std::string_view text);

}  // namespace ambrel
