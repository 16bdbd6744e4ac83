#include "core/base/LineJSON.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <simdjson.h>
#include <string>

namespace ambrel {

namespace dom = simdjson::dom;

struct LineParser::Impl {
  dom::parser parser;

  std::optional<LineObject> parseObject(std::string_view line, bool copied);
};

namespace {

// A dom::element is a document and an index into it, both trivially copyable.
template <typename Element>
Element pack(dom::element element) {
  static_assert(sizeof(dom::element) == sizeof(Element) && std::is_trivially_copyable_v<dom::element>);
  Element packed;
  std::memcpy(static_cast<void*>(&packed), &element, sizeof packed);
  return packed;
}

template <typename Element>
dom::element unpack(const Element& packed) {
  dom::element element;
  std::memcpy(static_cast<void*>(&element), &packed, sizeof packed);
  return element;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The unit of an escape "\uXXXX" at the beginning of the text.
std::optional<unsigned> escapedUnit(std::string_view text) {
  unsigned unit = 0;
  if (text.size() < 6 || text[0] != '\\' || text[1] != 'u') return std::nullopt;
  const auto [end, error] = std::from_chars(text.data() + 2, text.data() + 6, unit, 16);
  return error == std::errc() && end == text.data() + 6 ? std::optional(unit) : std::nullopt;
}

// Appends the text in quotes that `line` begins with, half a surrogate pair as U+FFFD; returns its length.
std::size_t appendText(std::string& out, std::string_view line) {
  std::size_t i = 1;
  out += '"';
  while (i < line.size()) {
    std::size_t length = line[i] == '\\' ? std::min<std::size_t>(2, line.size() - i) : 1;
    const bool isEnd = line[i] == '"';
    std::string_view piece = line.substr(i, length);
    if (const auto unit = escapedUnit(line.substr(i)); unit && *unit >= 0xD800 && *unit < 0xE000) {
      const auto next = escapedUnit(line.substr(i + 6));
      const bool isPair = *unit < 0xDC00 && next && *next >= 0xDC00 && *next < 0xE000;
      length = isPair ? 12 : 6;
      piece = isPair ? line.substr(i, length) : "\\ufffd";
    }
    out += piece;
    i += length;
    if (isEnd) break;
  }
  return i;
}

// Appends the number that `line` begins with; returns its length. An integer beyond 64 bits becomes a real number,
// and what no real number holds becomes null.
std::size_t appendNumber(std::string& out, std::string_view line) {
  const std::size_t length = std::min(line.find_first_not_of("+-.0123456789eE"), line.size());
  const std::string_view token = line.substr(0, length);
  const char* const end = token.data() + length;
  const auto isBeyond = [&](auto value) {
    const auto [stop, error] = std::from_chars(token.data(), end, value);
    return error == std::errc::result_out_of_range && stop == end;
  };
  const auto digits = token.substr(token.front() == '-' ? 1 : 0);
  if (isBeyond(double()) && token.find("e-") == token.npos && token.find("E-") == token.npos) {
    out += "null";
  } else {
    out += token;
    if (std::ranges::all_of(digits, isDigit) && isBeyond(std::int64_t()) &&
        (token.front() == '-' || isBeyond(std::uint64_t())))
      out += ".0";
  }
  return length;
}

// The line with those things put in other words that JSON allows and the parser refuses.
std::string reworded(std::string_view line) {
  std::string out;
  out.reserve(line.size() + 8);
  while (!line.empty()) {
    std::size_t taken = 1;
    if (line.front() == '"')
      taken = appendText(out, line);
    else if (isDigit(line.front()) || line.front() == '-')
      taken = appendNumber(out, line);
    else
      out += line.front();
    line.remove_prefix(taken);
  }
  return out;
}

template <typename Value>
bool parsed(dom::parser& parser, std::string_view text, bool copied, Value& value) {
  const auto error = parser.parse(text.data(), text.size(), copied).get(value);
  if (error == simdjson::SUCCESS) return true;
  if (error == simdjson::DEPTH_ERROR || error == simdjson::UTF8_ERROR || error == simdjson::INCORRECT_TYPE)
    return false;
  const std::string other = reworded(text);
  return other != text && parser.parse(other).get(value) == simdjson::SUCCESS;
}

}  // namespace

std::optional<LineObject> LineParser::Impl::parseObject(std::string_view line, bool copied) {
  dom::element element;
  if (!parsed(parser, line, copied, element) || !element.is_object()) return std::nullopt;
  return LineObject(pack<LineObject::Element>(element));
}

LineParser::LineParser() : impl_(std::make_unique<Impl>()) {}
LineParser::~LineParser() = default;
LineParser::LineParser(LineParser&&) noexcept = default;
LineParser& LineParser::operator=(LineParser&&) noexcept = default;

std::optional<LineObject> LineParser::parse(std::string_view line) { return impl_->parseObject(line, true); }

std::optional<LineObject> LineParser::parsePadded(std::string_view line) {
  static_assert(padding >= simdjson::SIMDJSON_PADDING);
  return impl_->parseObject(line, false);
}

std::optional<std::string_view> LineObject::text(std::string_view key) const {
  std::string_view value;
  if (unpack(element_)[key].get(value) != simdjson::SUCCESS) return std::nullopt;
  return value;
}

std::optional<double> LineObject::number(std::string_view key) const {
  double value = 0;
  if (unpack(element_)[key].get(value) != simdjson::SUCCESS) return std::nullopt;
  return value;
}

std::optional<std::int64_t> LineObject::integer(std::string_view key) const {
  std::int64_t value = 0;
  const auto field = unpack(element_)[key];
  if (field.get(value) == simdjson::SUCCESS) return value;
  double real = 0;
  if (field.get(real) != simdjson::SUCCESS || !(std::abs(real) < 9.2e18)) return std::nullopt;
  return static_cast<std::int64_t>(real);
}

std::optional<bool> LineObject::boolean(std::string_view key) const {
  bool value = false;
  if (unpack(element_)[key].get(value) != simdjson::SUCCESS) return std::nullopt;
  return value;
}

std::optional<LineObject> LineObject::object(std::string_view key) const {
  dom::element value;
  if (unpack(element_)[key].get(value) != simdjson::SUCCESS || !value.is_object()) return std::nullopt;
  return LineObject(pack<Element>(value));
}

bool LineObject::eachObject(std::string_view key, const std::function<bool(const LineObject&)>& visit) const {
  dom::array array;
  if (unpack(element_)[key].get(array) != simdjson::SUCCESS) return false;
  for (const dom::element element : array)
    if (element.is_object() && !visit(LineObject(pack<Element>(element)))) break;
  return true;
}

}  // namespace ambrel
