#include "core/base/LineJSON.h"

#include <simdjson.h>

#include <bit>
#include <cmath>
#include <cstring>

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

}  // namespace

std::optional<LineObject> LineParser::Impl::parseObject(std::string_view line, bool copied) {
  dom::element element;
  if (parser.parse(line.data(), line.size(), copied).get(element) != simdjson::SUCCESS) return std::nullopt;
  if (!element.is_object()) return std::nullopt;
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

bool LineParser::parseTexts(std::string_view text, const std::function<void(std::string_view)>& visit) {
  dom::array array;
  if (impl_->parser.parse(text.data(), text.size(), true).get(array) != simdjson::SUCCESS) return false;
  for (const dom::element element : array) {
    std::string_view value;
    if (element.get(value) == simdjson::SUCCESS) visit(value);
  }
  return true;
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
