#include "core/settings/PropertyList.h"

#include <charconv>
#include <pugixml.hpp>

#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr int deepest = 100;

template <typename Number>
std::optional<Number> number(std::string_view text) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// Built in place: g++ 12 takes the temporary's destructor for a use of uninitialised bytes.
template <typename T>
std::optional<DefaultsValue> wrapped(std::optional<T> value) {
  std::optional<DefaultsValue> out;
  if (value) out.emplace().value = std::move(*value);
  return out;
}

std::optional<DefaultsData> dataFrom(std::string_view text) {
  std::string packed;
  for (const char c : text)
    if (!trimmed({&c, 1}).empty()) packed += c;
  auto bytes = base64Decoded(packed);
  if (!bytes) return std::nullopt;
  return DefaultsData{std::move(*bytes)};
}

// Absent where there is an element inside.
std::optional<std::string> textOf(const pugi::xml_node& node) {
  const auto first = node.first_child();
  if (first.next_sibling() || first.type() == pugi::node_element) return std::nullopt;
  return std::string(first.value());
}

std::optional<DefaultsValue> valueOf(const pugi::xml_node& node, int depth);

std::optional<DefaultsValue> dictionaryOf(const pugi::xml_node& node, int depth) {
  DefaultsDictionary values;
  for (auto key = node.first_child(); key; key = key.next_sibling()) {
    auto name = key.name() == std::string_view("key") ? textOf(key) : std::nullopt;
    key = key.next_sibling();
    auto value = valueOf(key, depth + 1);
    if (!name || !value) return std::nullopt;
    values.insert_or_assign(std::move(*name), std::move(*value));
  }
  return wrapped(std::optional(std::move(values)));
}

std::optional<DefaultsValue> valueOf(const pugi::xml_node& node, int depth) {
  if (node.type() != pugi::node_element || depth > deepest) return std::nullopt;
  const std::string_view tag = node.name();
  if (tag == "dict") return dictionaryOf(node, depth);
  if (tag == "array") {
    DefaultsArray values;
    for (const auto& child : node.children()) {
      auto value = valueOf(child, depth + 1);
      if (!value) return std::nullopt;
      values.push_back(std::move(*value));
    }
    return wrapped(std::optional(std::move(values)));
  }
  if (tag == "true" || tag == "false") {
    if (node.first_child()) return std::nullopt;
    return DefaultsValue{tag == "true"};
  }
  const auto text = textOf(node);
  if (!text) return std::nullopt;
  if (tag == "string") return DefaultsValue{*text};
  if (tag == "integer") return wrapped(number<std::int64_t>(trimmed(*text)));
  if (tag == "real") return wrapped(number<double>(trimmed(*text)));
  if (tag == "date") return wrapped(parseISO8601(trimmed(*text)));
  if (tag == "data") return wrapped(dataFrom(*text));
  return std::nullopt;
}

}  // namespace

std::optional<DefaultsDictionary> parsePropertyList(std::string_view text) {
  if (!isValidUTF8(text)) return std::nullopt;
  pugi::xml_document document;
  constexpr unsigned flags = pugi::parse_default | pugi::parse_ws_pcdata_single;
  if (!document.load_buffer(text.data(), text.size(), flags, pugi::encoding_utf8)) return std::nullopt;
  const pugi::xml_node root = document.first_child();
  const pugi::xml_node top = root.first_child();
  if (root.name() != std::string_view("plist") || root.next_sibling() || top.next_sibling() ||
      top.name() != std::string_view("dict"))
    return std::nullopt;
  auto value = valueOf(top, 0);
  if (!value) return std::nullopt;
  return std::get<DefaultsDictionary>(std::move(value->value));
}

}  // namespace ambrel
