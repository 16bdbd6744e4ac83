// The table of the tools.

#include <algorithm>
#include <fmt/format.h>
#include <unicode/utf8.h>

#include "core/base/LocalText.h"
#include "core/base/Text.h"
#include "core/base/Whitespace.h"
#include "core/tools/Tools.h"

namespace ambrel {
namespace {

using tools::figure;

constexpr ToolChoice uuidChoices[]{{"v4", "Random (v4)"}, {"v7", "Time-ordered (v7)"}};
constexpr ToolChoice passwordChoices[]{{"symbols", "Letters, digits, symbols"},
                                       {"letters", "Letters, digits"},
                                       {"digits", "Digits"},
                                       {"words", "Speakable"}};
constexpr ToolChoice jsonChoices[]{{"2", "2 spaces"}, {"4", "4 spaces"}, {"tabs", "Tabs"}, {"compact", "One line"}};
constexpr ToolChoice base64Choices[]{{"encode", "Encode"}, {"decode", "Decode"}, {"url", "Encode for URLs"}};
constexpr ToolChoice hashChoices[]{
    {"sha256", "SHA-256"},     {"sha512", "SHA-512"}, {"sha384", "SHA-384"}, {"sha3-256", "SHA3-256"},
    {"blake2b512", "BLAKE2b"}, {"sha1", "SHA-1"},     {"md5", "MD5"}};
constexpr ToolChoice countChoices[]{{"all", "All"},    {"characters", ""}, {"words", ""},
                                    {"sentences", ""}, {"lines", ""},      {"bytes", ""}};
constexpr ToolChoice caseChoices[]{{"upper", "UPPER"},       {"lower", "lower"},      {"title", "Title Case"},
                                   {"sentence", "Sentence"}, {"camel", "camelCase"},  {"pascal", "PascalCase"},
                                   {"snake", "snake_case"},  {"kebab", "kebab-case"}, {"constant", "CONSTANT_CASE"}};
constexpr ToolChoice qrChoices[]{{"medium", "15 %"}, {"low", "7 %"}, {"quartile", "25 %"}, {"high", "30 %"}};
constexpr ToolChoice linkChoices[]{{"clean", "Clean"}, {"encode", "Encode"}, {"decode", "Decode"}, {"parts", "Parts"}};
constexpr ToolChoice loremChoices[]{{"paragraph", "Paragraph"}, {"sentence", "Sentence"}, {"words", "Five words"}};
constexpr ToolChoice colorChoices[]{{"rgb", "RGB"}, {"hex", "Hex"}, {"hsl", "HSL"}, {"hwb", "HWB"}, {"oklch", "OKLCH"}};

using enum ToolInput;
constexpr TextTool table[]{
    {DockWidget::uuid, none, uuidChoices, tools::uuid, tools::uuidGlance},
    {DockWidget::password, none, passwordChoices, tools::password, tools::passwordGlance},
    {DockWidget::jsonFormatter, text, jsonChoices, tools::jsonLayout, tools::jsonGlance},
    {DockWidget::base64, bytes, base64Choices, tools::base64, tools::base64Glance},
    {DockWidget::hash, bytes, hashChoices, tools::digest, tools::digestGlance},
    {DockWidget::textCounter, text, countChoices, tools::counts, tools::countsGlance},
    {DockWidget::caseConverter, text, caseChoices, tools::wordCase, tools::wordCaseGlance},
    {DockWidget::qrCode, line, qrChoices, tools::qrText, tools::qrGlance},
    {DockWidget::urlTools, line, linkChoices, tools::link, tools::linkGlance},
    {DockWidget::loremIpsum, none, loremChoices, tools::placeholderText, tools::placeholderGlance},
    {DockWidget::colorConverter, line, colorChoices, tools::colorNotation, tools::colorGlance},
};

// With what the tool is given to see of the input, and a choice that it knows.
ToolCall prepared(const TextTool& tool, const ToolCall& call) {
  return {.choice = tool.choice(call.choice) ? call.choice : tool.choices.front().id,
          .input = tool.input == none   ? std::string_view()
                   : tool.input == line ? trimmedOfWhitespace(call.input)
                                        : call.input,
          .source = call.source};
}

// Where the first byte is that is no part of UTF-8.
std::size_t faultyByte(std::string_view text) {
  std::size_t at = 0;
  for (std::size_t next = 0; next < text.size(); at = next) {
    UChar32 character = 0;
    U8_NEXT(text.data(), next, text.size(), character);
    if (character < 0) break;
  }
  return at;
}

}  // namespace

const ToolChoice* TextTool::choice(std::string_view id) const {
  const auto found = std::ranges::find(choices, id, &ToolChoice::id);
  return found == choices.end() ? nullptr : &*found;
}

std::span<const TextTool> textTools() { return table; }

const TextTool* textTool(DockWidget widget) {
  const auto found = std::ranges::find(table, widget, &TextTool::widget);
  return found == std::end(table) ? nullptr : found;
}

ToolOutcome runTool(const TextTool& tool, const ToolCall& given) {
  const ToolCall call = prepared(tool, given);
  constexpr std::size_t mostInput = 256u << 20;
  if (call.input.size() > mostInput) return {{}, "The text is larger than 256 MiB"};
  if ((tool.input == text || tool.input == line) && !isValidUTF8(call.input))
    return {{}, fmt::format("Not UTF-8 text: byte {} is wrong", faultyByte(call.input) + 1)};
  return tool.run(call);
}

ToolGlance glanceAt(const TextTool& tool, const ToolCall& given, const ToolOutcome& outcome) {
  const ToolCall call = prepared(tool, given);
  if (tool.input != none && call.input.empty()) return {"–", "No text copied", {}};
  return tool.glance(call, outcome);
}

namespace tools {

std::string figure(const ToolCall& call, std::int64_t count) {
  return decimal(call.source.calendar, static_cast<double>(count), 0);
}

std::string counted(const ToolCall& call, std::int64_t count, std::string_view one, std::string_view many) {
  return fmt::format("{} {}", figure(call, count), count == 1 ? one : many);
}

}  // namespace tools
}  // namespace ambrel
