#include "core/clipboard/ClipPreview.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fmt/core.h>

#include "core/base/Text.h"
#include "core/base/Whitespace.h"
#include "core/clipboard/Capture.h"

namespace ambrel {
namespace {

constexpr std::size_t mostPreviewBytes = 600;
constexpr std::size_t mostPreviewLines = 12;
constexpr std::size_t mostFileNames = 3;
constexpr std::size_t mostNameBytes = 60;

// The first `count` bytes, cut before a character that would not fit.
std::string_view beginning(std::string_view text, std::size_t count) {
  if (text.size() <= count) return text;
  while (count > 0 && (static_cast<unsigned char>(text[count]) & 0xC0) == 0x80) --count;
  return text.substr(0, count);
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  return (c | 0x20) - 'a' + 10;
}

std::optional<ClipColor> parseHexColor(std::string_view digits) {
  if (digits.find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos) return std::nullopt;
  const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(hexDigit(digits[i])); };
  const auto pair = [&](std::size_t i) { return static_cast<std::uint8_t>(at(i) * 16 + at(i + 1)); };
  const auto twice = [&](std::size_t i) { return static_cast<std::uint8_t>(at(i) * 17); };
  if (digits.size() == 3) return ClipColor{twice(0), twice(1), twice(2), 255};
  if (digits.size() == 6) return ClipColor{pair(0), pair(2), pair(4), 255};
  if (digits.size() == 8) return ClipColor{pair(0), pair(2), pair(4), pair(6)};
  return std::nullopt;
}

struct Argument {
  double value = 0;
  bool isPercent = false;
};

// Numbers between blanks, commas and slashes, each perhaps in per cent; absent for anything else.
std::optional<std::vector<Argument>> parseArguments(std::string_view text) {
  constexpr std::string_view separators = " ,/\t\r\n\f\v";
  std::vector<Argument> arguments;
  for (;;) {
    const std::size_t begin = text.find_first_not_of(separators);
    if (begin == std::string_view::npos) return arguments;
    text.remove_prefix(begin);
    Argument argument;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), argument.value);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (text.starts_with('%')) {
      argument.isPercent = true;
      text.remove_prefix(1);
    }
    arguments.push_back(argument);
    if (arguments.size() > 4) return std::nullopt;
  }
}

std::uint8_t byteOf(double fraction) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(fraction, 0.0, 1.0) * 255));
}

// Hue in degrees, the others between 0 and 1.
ClipColor fromHSL(double hue, double saturation, double lightness) {
  const double amplitude = saturation * std::min(lightness, 1 - lightness);
  const auto component = [&](double offset) {
    const double k = std::fmod(offset + hue / 30 + 12, 12);
    return byteOf(lightness - amplitude * std::clamp(std::min(k - 3, 9 - k), -1.0, 1.0));
  };
  return {component(0), component(8), component(4), 255};
}

std::optional<ClipColor> parseFunctionalColor(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos || !text.ends_with(')')) return std::nullopt;
  const std::string name = asciiLower(text.substr(0, open));
  const auto arguments = parseArguments(text.substr(open + 1, text.size() - open - 2));
  if (!arguments || arguments->size() < 3) return std::nullopt;
  const auto fraction = [&](std::size_t i, double whole) {
    const Argument& argument = (*arguments)[i];
    return std::clamp(argument.isPercent ? argument.value / 100 : argument.value / whole, 0.0, 1.0);
  };
  ClipColor color;
  if (name.starts_with("rgb"))
    color = {byteOf(fraction(0, 255)), byteOf(fraction(1, 255)), byteOf(fraction(2, 255)), 255};
  else if (name.starts_with("hsl"))
    color = fromHSL(std::fmod((*arguments)[0].value, 360), fraction(1, 100), fraction(2, 100));
  else
    return std::nullopt;
  if (arguments->size() == 4) color.alpha = byteOf(fraction(3, 1));
  return color;
}

std::vector<std::string_view> firstLines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::string_view line : split(beginning(text, mostPreviewBytes), '\n')) {
    while (line.ends_with('\r')) line.remove_suffix(1);
    if (lines.empty() && trimmedOfWhitespace(line).empty()) continue;
    lines.push_back(line);
    if (lines.size() == mostPreviewLines) break;
  }
  while (!lines.empty() && trimmedOfWhitespace(lines.back()).empty()) lines.pop_back();
  return lines;
}

std::size_t indentation(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first == std::string_view::npos ? line.size() : first;
}

std::string withoutSharedIndentation(const std::vector<std::string_view>& lines) {
  std::size_t shared = std::string_view::npos;
  for (const std::string_view line : lines)
    if (!trimmedOfWhitespace(line).empty()) shared = std::min(shared, indentation(line));
  std::string text;
  for (const std::string_view& line : lines) {
    if (&line != &lines.front()) text += '\n';
    text += line.substr(std::min(shared, line.size()));
  }
  return text;
}

// A line that only a programmer, or a program, would write.
bool isCodeLine(std::string_view line) {
  // Words that open no sentence, and words that do, whose lines must go on as code does.
  constexpr std::array<std::string_view, 18> openings{"#include", "#!/",     "def ",    "if (",  "if(",  "while (",
                                                      "while(",   "return ", "return;", "fn ",   "pub ", "void ",
                                                      "SELECT ",  "<div",    "</",      "sudo ", "git ", "$ "};
  constexpr std::array<std::string_view, 15> ambiguous{"for ",    "import ",  "from ",  "const ",  "let ",
                                                       "var ",    "function", "class ", "public ", "private ",
                                                       "static ", "struct",   "func ",  "using ",  "namespace "};
  constexpr std::string_view brackets = "(){}[]<>=;:";
  constexpr std::array<std::string_view, 12> signs{
      "=>", "->", "::", "()", "==", "!=", "+=", "&&", "||", "</", "/>", " = "};
  constexpr std::string_view endings = "{};";
  line = trimmedOfWhitespace(line);
  if (line.empty()) return false;
  if (endings.find(line.back()) != std::string_view::npos) return true;
  const auto opensWith = [&](const auto& words) {
    return std::ranges::any_of(words, [&](std::string_view word) { return line.starts_with(word); });
  };
  // "import sys", "class Clip", but not "for Anna" or "from home".
  const bool isShort = std::ranges::count(line, ' ') <= 1 && !line.starts_with("for ") && !line.starts_with("from ");
  const bool opens = opensWith(openings) || line.starts_with("//") ||
                     (opensWith(ambiguous) && (isShort || line.find_first_of(brackets) != std::string_view::npos ||
                                               line.find(" import ") != std::string_view::npos));
  const auto hasSign =
      std::ranges::any_of(signs, [&](std::string_view sign) { return line.find(sign) != std::string_view::npos; });
  return hasSign || (opens && line.back() != '.' && line.back() != ',' && line.find(". ") == std::string_view::npos);
}

struct LinkParts {
  std::string host;
  std::string rest;
};

LinkParts partsOf(std::string_view link) {
  const std::size_t begin = link.find("//");
  if (begin == std::string_view::npos) return {std::string(link), {}};
  link.remove_prefix(begin + 2);
  const std::size_t end = std::min(link.find_first_of("/?#"), link.size());
  std::string_view host = link.substr(0, end);
  if (const std::size_t at = host.rfind('@'); at != std::string_view::npos) host.remove_prefix(at + 1);
  if (host.starts_with("www.")) host.remove_prefix(4);
  std::string_view rest = link.substr(end);
  if (rest == "/") rest = {};
  const auto readable = percentDecoded(rest);
  const bool isReadable = readable && isValidUTF8(*readable) && readable->find('\n') == std::string::npos;
  return {std::string(host), isReadable ? *readable : std::string(rest)};
}

std::string fileName(const std::string& path) {
  std::string_view rest = path;
  while (rest.size() > 1 && rest.ends_with('/')) rest.remove_suffix(1);
  const std::size_t slash = rest.rfind('/');
  return repairedUTF8(slash == std::string_view::npos || rest.size() == 1 ? rest : rest.substr(slash + 1));
}

}  // namespace

std::optional<ClipColor> parseColor(std::string_view text) {
  text = trimmedOfWhitespace(text);
  return text.starts_with('#') ? parseHexColor(text.substr(1)) : parseFunctionalColor(text);
}

bool looksLikeCode(std::string_view text) {
  int lines = 0, codeLines = 0;
  bool isIndented = false;
  for (const std::string_view line : firstLines(text)) {
    if (trimmedOfWhitespace(line).empty()) continue;
    ++lines;
    if (isCodeLine(line)) ++codeLines;
    isIndented = isIndented || (lines > 1 && indentation(line) >= 2);
  }
  // One line in five is enough when the lines are indented, as those of code are.
  if (lines <= 1) return codeLines == 1;
  return codeLines * 2 >= lines || (isIndented && codeLines * 5 >= lines);
}

ClipPreview previewOf(const ClipItem& item, bool isSensitive) {
  ClipPreview preview;
  const std::string_view text = item.text ? std::string_view(*item.text) : std::string_view();
  switch (item.kind) {
    case ClipKind::text:
      preview.look = isSensitive ? ClipLook::secret : looksLikeCode(text) ? ClipLook::code : ClipLook::text;
      preview.title = withoutSharedIndentation(firstLines(text));
      break;
    case ClipKind::link: {
      preview.look = ClipLook::link;
      LinkParts parts = partsOf(beginning(trimmedOfWhitespace(text), mostPreviewBytes));
      preview.title = std::move(parts.host);
      preview.detail = std::move(parts.rest);
      break;
    }
    case ClipKind::color:
      preview.look = ClipLook::color;
      preview.title = beginning(trimmedOfWhitespace(text), mostNameBytes);
      preview.color = parseColor(text);
      if (preview.color)
        preview.detail = fmt::format("{} {} {}", preview.color->red, preview.color->green, preview.color->blue);
      break;
    case ClipKind::image:
      preview.look = ClipLook::image;
      if (const auto lines = firstLines(text); !lines.empty())
        preview.detail = beginning(trimmedOfWhitespace(lines.front()), mostNameBytes);
      std::ranges::replace(preview.detail, '\t', ' ');
      break;
    case ClipKind::file: {
      preview.look = ClipLook::files;
      const std::vector<std::string> paths = filePaths(item);
      preview.fileCount = paths.size();
      for (std::size_t i = 0; i < std::min(paths.size(), mostFileNames); ++i)
        preview.fileNames.push_back(fileName(paths[i]));
      break;
    }
  }
  return preview;
}

std::string clipName(const ClipItem& item) {
  if (item.kind == ClipKind::file) {
    const std::vector<std::string> paths = filePaths(item);
    if (!paths.empty()) return fileName(paths.front());
  }
  if (!item.text || item.kind == ClipKind::image) return "Image";
  const auto lines = firstLines(*item.text);
  return lines.empty() ? std::string() : std::string(beginning(trimmedOfWhitespace(lines.front()), mostNameBytes));
}

}  // namespace ambrel
