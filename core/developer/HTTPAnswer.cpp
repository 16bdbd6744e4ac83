#include "core/developer/HTTPAnswer.h"

#include <charconv>
#include <cstdint>

#include "core/base/Text.h"

namespace ambrel {
namespace {

std::optional<std::uint64_t> number(std::string_view text, int base) {
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

// Pieces with their sizes before them; the last one has none.
std::optional<std::string> joinedChunks(std::string_view rest) {
  std::string body;
  for (;;) {
    const std::size_t line = rest.find("\r\n");
    if (line == std::string_view::npos) return std::nullopt;
    const auto size = number(rest.substr(0, line).substr(0, rest.find(';')), 16);
    rest.remove_prefix(line + 2);
    if (!size || *size > rest.size()) return std::nullopt;
    if (*size == 0) return body;
    body += rest.substr(0, *size);
    rest.remove_prefix(*size);
    if (!rest.starts_with("\r\n")) return std::nullopt;
    rest.remove_prefix(2);
  }
}

}  // namespace

std::optional<HTTPAnswer> parseHTTPAnswer(std::string_view bytes) {
  constexpr std::string_view start = "HTTP/1.1 ";
  const std::size_t end = bytes.find("\r\n\r\n");
  if (end == std::string_view::npos || !bytes.starts_with(start.substr(0, 7))) return std::nullopt;
  const auto status = number(bytes.substr(start.size(), 3), 10);
  if (!status) return std::nullopt;
  HTTPAnswer answer{.status = static_cast<int>(*status), .body = {}};
  const std::string_view body = bytes.substr(end + 4);
  if (answer.status == 204 || answer.status == 304) return answer;
  for (const std::string_view line : split(bytes.substr(0, end), '\n')) {
    const std::size_t colon = line.find(':');
    const std::string name = asciiLower(line.substr(0, colon));
    const std::string_view value = colon == std::string_view::npos ? "" : trimmed(line.substr(colon + 1));
    if (name == "transfer-encoding" && asciiLower(value).ends_with("chunked")) {
      auto joined = joinedChunks(body);
      if (!joined) return std::nullopt;
      answer.body = std::move(*joined);
      return answer;
    }
    if (name != "content-length") continue;
    const auto length = number(value, 10);
    if (!length || *length > body.size()) return std::nullopt;
    answer.body = body.substr(0, *length);
    return answer;
  }
  answer.body = body;
  return answer;
}

}  // namespace ambrel
