// Web addresses: encoded, decoded, without what follows their reader, and in their parts.

#include <algorithm>
#include <array>
#include <cctype>

#include "core/base/Text.h"
#include "core/tools/Tools.h"

namespace ambrel::tools {
namespace {

// What senders add to a link to know who follows it, by their own documents; names that sites use for anything else
// are not among them.
constexpr std::array<std::string_view, 36> trackers{
    "fbclid",  "gclid",       "gclsrc",     "dclid",           "gbraid",    "wbraid",   "gad_source", "gad_campaignid",
    "msclkid", "twclid",      "ttclid",     "li_fat_id",       "yclid",     "ysclid",   "_openstat",  "igshid",
    "igsh",    "mc_cid",      "mc_eid",     "_hsenc",          "_hsmi",     "__hssc",   "__hstc",     "__hsfp",
    "mkt_tok", "oly_anon_id", "oly_enc_id", "vero_id",         "vero_conv", "wickedid", "srsltid",    "mibextid",
    "ref_src", "s_cid",       "rb_clickid", "_branch_match_id"};

bool isTracker(std::string_view parameter) {
  const std::string name = asciiLower(parameter.substr(0, parameter.find('=')));
  return name.starts_with("utm_") || name.starts_with("hsa_") || name.starts_with("pk_") || name.starts_with("mtm_") ||
         std::ranges::find(trackers, name) != trackers.end();
}

bool isLink(std::string_view word) {
  const std::string start = asciiLower(word.substr(0, 8));
  return (start.starts_with("http://") && word.size() > 7) || (start == "https://" && word.size() > 8);
}

struct Parts {
  std::string_view base, query,
      fragment;  // the base ends before '?'; the query and the fragment begin behind their marks
  bool hasQuery = false, hasFragment = false;
};

Parts partsOf(std::string_view link) {
  Parts parts;
  if (const std::size_t at = link.find('#'); at != std::string_view::npos) {
    parts.fragment = link.substr(at + 1);
    parts.hasFragment = true;
    link = link.substr(0, at);
  }
  if (const std::size_t at = link.find('?'); at != std::string_view::npos) {
    parts.query = link.substr(at + 1);
    parts.hasQuery = true;
    link = link.substr(0, at);
  }
  parts.base = link;
  return parts;
}

struct Cleaned {
  std::string text;
  std::int64_t links = 0, trackers = 0;
};

void appendClean(Cleaned& cleaned, std::string_view link) {
  const Parts parts = partsOf(link);
  ++cleaned.links;
  cleaned.text += parts.base;
  char mark = '?';
  std::string_view rest = parts.query;
  for (bool isLast = !parts.hasQuery; !isLast;) {
    const std::size_t end = rest.find('&');
    const std::string_view parameter = rest.substr(0, end);
    isLast = end == std::string_view::npos;
    if (!isLast) rest.remove_prefix(end + 1);
    if (isTracker(parameter)) {
      ++cleaned.trackers;
      continue;
    }
    cleaned.text += mark;
    cleaned.text += parameter;
    mark = '&';
  }
  if (parts.hasFragment) cleaned.text.append("#").append(parts.fragment);
}

constexpr std::string_view blanks = " \t\r\n\"<>", sentenceMarks = ".,;:!?'*";

bool beginsHost(char c) { return (c & 0x80) != 0 || c == '[' || c == '_' || std::isalnum(c) != 0; }

// Where the first link begins; npos without one.
std::size_t linkStart(std::string_view text) {
  constexpr std::string_view behind = "://";
  for (std::size_t at = text.find(behind); at != std::string_view::npos; at = text.find(behind, at + 1)) {
    if (at + behind.size() == text.size() || !beginsHost(text[at + behind.size()])) continue;
    for (const std::string_view scheme : {"https", "http"})
      if (at >= scheme.size() && asciiLower(text.substr(at - scheme.size(), scheme.size())) == scheme)
        return at - scheme.size();
  }
  return std::string_view::npos;
}

// The link with which the text begins: without the bracket around it, the marks of its sentence and the next of a list.
std::string_view linkOf(std::string_view text) {
  std::string closing;
  std::size_t end = 0;
  for (; end < text.size() && blanks.find(text[end]) == std::string_view::npos; ++end) {
    const char c = text[end];
    if (c == '(' || c == '[') closing += c == '(' ? ')' : ']';
    if (c == ')' || c == ']') {
      if (closing.empty() || closing.back() != c) break;
      closing.pop_back();
    }
    if ((c == ',' || c == ';') && isLink(text.substr(end + 1))) break;
  }
  return text.substr(0, text.substr(0, end).find_last_not_of(sentenceMarks) + 1);
}

// Every link of a text; what is between them stays.
Cleaned cleaned(std::string_view text) {
  Cleaned result;
  for (std::size_t start = linkStart(text); start != std::string_view::npos; start = linkStart(text)) {
    result.text += text.substr(0, start);
    const std::string_view link = linkOf(text.substr(start));
    appendClean(result, link);
    text.remove_prefix(start + link.size());
  }
  result.text += text;
  return result;
}

std::string readable(std::string_view encoded) {
  const auto decoded = percentDecoded(encoded);
  return decoded && isValidUTF8(*decoded) ? *decoded : std::string(encoded);
}
// As a form writes it: a plus is a blank.
std::string readableValue(std::string_view encoded) {
  std::string text(encoded);
  std::ranges::replace(text, '+', ' ');
  return readable(text);
}

std::string described(std::string_view link) {
  const Parts parts = partsOf(link);
  const std::size_t host = parts.base.find("://") + 3;
  const std::size_t path = std::min(parts.base.size(), parts.base.find('/', host));
  std::string text = "Scheme    " + std::string(link.substr(0, host - 3)) + "\nHost      " +
                     std::string(parts.base.substr(host, path - host));
  if (path < parts.base.size()) text += "\nPath      " + readable(parts.base.substr(path));
  if (parts.hasQuery)
    for (const std::string_view parameter : split(parts.query, '&')) {
      const std::size_t equals = parameter.find('=');
      text += "\nQuery     " + readableValue(parameter.substr(0, equals));
      if (equals != std::string_view::npos) text += " = " + readableValue(parameter.substr(equals + 1));
    }
  if (parts.hasFragment) text += "\nFragment  " + readable(parts.fragment);
  return text;
}

constexpr const char* noLink = "There is no web link in the text";

}  // namespace

ToolOutcome link(const ToolCall& call) {
  if (call.choice == "encode") {
    std::string text;
    for (const char c : percentEncodedPath(call.input)) c == '/' ? text += "%2F" : text += c;
    return {std::move(text), {}};
  }
  if (call.choice == "decode") {
    auto text = percentDecoded(call.input);
    if (!text) return {{}, "A % is not followed by two hexadecimal digits"};
    if (!isValidUTF8(*text)) return {{}, "The decoded text is not UTF-8"};
    return {std::move(*text), {}};
  }
  if (call.choice == "parts")
    return isLink(call.input) ? ToolOutcome{described(call.input), {}} : ToolOutcome{{}, noLink};
  Cleaned result = cleaned(call.input);
  if (result.links == 0) return {{}, noLink};
  return {std::move(result.text), {}};
}

ToolGlance linkGlance(const ToolCall& call, const ToolOutcome&) {
  const Cleaned result = cleaned(call.input);
  if (result.links == 0) return {"Text", "No web link", {}};
  if (result.trackers == 0) return {"Clean", counted(call, result.links, "link", "links"), {}};
  return {counted(call, result.trackers, "tracker", "trackers"), counted(call, result.links, "link", "links"), {}};
}

}  // namespace ambrel::tools
