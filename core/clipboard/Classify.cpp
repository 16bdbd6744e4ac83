#include "core/base/Text.h"
#include "core/base/Whitespace.h"
#include "core/clipboard.h"
#include "core/clipboard/Expressions.h"

namespace ambrel {
namespace {

// The patterns hold ASCII alone, so they are matched byte by byte; that is quicker and indifferent to bad UTF-8.
struct ColorPatterns {
  RE2 hexadecimal{"#(?:[0-9a-fA-F]{3}|[0-9a-fA-F]{6}|[0-9a-fA-F]{8})", RE2::Latin1};
  RE2 functional{R"((?i)(?:rgb|rgba|hsl|hsla)\(\s*[0-9.%,\s\/]+\))", RE2::Latin1};
};

bool isColor(std::string_view text) {
  static const ColorPatterns patterns;
  const re2::StringPiece input = expressionInput(text);
  return RE2::FullMatch(input, patterns.hexadecimal) || RE2::FullMatch(input, patterns.functional);
}

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The scheme of a URL in lower case; empty when the text has none.
std::string schemeOf(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0 || !isLetter(text.front())) return {};
  const std::string_view scheme = text.substr(0, colon);
  for (const char c : scheme)
    if (!isLetter(c) && !isDigit(c) && c != '+' && c != '-' && c != '.') return {};
  return asciiLower(scheme);
}

// The host in the authority of an address (after "//" and "user@", before ":port"); empty when there is none or when
// the authority is not valid.
std::string_view hostOf(std::string_view afterScheme) {
  if (!afterScheme.starts_with("//")) return {};
  std::string_view authority = afterScheme.substr(2);
  authority = authority.substr(0, authority.find_first_of("/?#"));
  if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) authority.remove_prefix(at + 1);
  std::string_view host = authority, port;
  if (authority.starts_with('[')) {
    const std::size_t close = authority.find(']');
    if (close == std::string_view::npos || close == 1) return {};
    host = authority.substr(0, close + 1);
    if (host.find_first_not_of("[]0123456789abcdefABCDEF:.%") != std::string_view::npos) return {};
    port = authority.substr(close + 1);
    if (!port.empty() && port.front() != ':') return {};
  } else if (const std::size_t colon = authority.find(':'); colon != std::string_view::npos) {
    host = authority.substr(0, colon);
    port = authority.substr(colon);
  }
  if (!port.empty() && port.substr(1).find_first_not_of("0123456789") != std::string_view::npos) return {};
  if (!host.starts_with('[') && host.find_first_of("[]<>\"\\^`{|}") != std::string_view::npos) return {};
  return host;
}

}  // namespace

ClipKind classify(std::string_view text) {
  const std::string_view whole = trimmedOfWhitespace(text);
  if (isColor(whole)) return ClipKind::color;
  if (hasWhitespace(whole)) return ClipKind::text;
  for (const char c : whole)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return ClipKind::text;
  const std::string scheme = schemeOf(whole);
  if (scheme != "http" && scheme != "https") return ClipKind::text;
  return hostOf(whole.substr(scheme.size() + 1)).empty() ? ClipKind::text : ClipKind::link;
}

}  // namespace ambrel
