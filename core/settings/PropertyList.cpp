#include "core/settings/PropertyList.h"

#include <charconv>

#include "core/base/Text.h"

namespace ambrel {
namespace {

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text, int base = 10) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<double> realNumber(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

bool appendUTF8(std::string& out, std::uint32_t code) {
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return false;
  if (code < 0x80) {
    out += static_cast<char>(code);
    return true;
  }
  const int tail = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  constexpr unsigned marks[] = {0, 0xC0, 0xE0, 0xF0};
  out += static_cast<char>(marks[tail] | code >> 6 * tail);
  for (int i = tail - 1; i >= 0; --i) out += static_cast<char>(0x80 | (code >> 6 * i & 0x3F));
  return true;
}

// The text between two tags, its entities replaced.
std::optional<std::string> unescaped(std::string_view text) {
  constexpr std::pair<std::string_view, char> names[] = {
      {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
  std::string out;
  while (!text.empty()) {
    const std::size_t mark = text.find('&');
    out += text.substr(0, mark);
    if (mark == std::string_view::npos) break;
    const std::size_t end = text.find(';', mark);
    if (end == std::string_view::npos) return std::nullopt;
    std::string_view entity = text.substr(mark + 1, end - mark - 1);
    text.remove_prefix(end + 1);
    if (entity.starts_with('#')) {
      const bool isHex = entity.starts_with("#x");
      const auto code = wholeNumber<std::uint32_t>(entity.substr(isHex ? 2 : 1), isHex ? 16 : 10);
      if (!code || !appendUTF8(out, *code)) return std::nullopt;
      continue;
    }
    const auto* known = std::begin(names);
    while (known != std::end(names) && known->first != entity) ++known;
    if (known == std::end(names)) return std::nullopt;
    out += known->second;
  }
  return out;
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

std::optional<DefaultsValue> scalar(std::string_view tag, const std::string& text) {
  if (tag == "string") return DefaultsValue{text};
  if (tag == "integer") return wrapped(wholeNumber<std::int64_t>(trimmed(text)));
  if (tag == "real") return wrapped(realNumber(trimmed(text)));
  if (tag == "date") return wrapped(parseISO8601(trimmed(text)));
  if (tag == "data") return wrapped(dataFrom(text));
  return std::nullopt;
}

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  std::optional<DefaultsDictionary> document() {
    const auto outer = openTag();
    if (!outer || outer->name != "plist" || outer->isEmpty) return std::nullopt;
    auto value = element(0);
    if (!value || !closes("plist")) return std::nullopt;
    skipNoise();
    auto* dictionary = std::get_if<DefaultsDictionary>(&value->value);
    return dictionary && rest_.empty() ? std::optional(std::move(*dictionary)) : std::nullopt;
  }

 private:
  struct Tag {
    std::string_view name;
    bool isEmpty = false;
  };

  bool skipPast(std::string_view end) {
    const std::size_t at = rest_.find(end);
    rest_.remove_prefix(at == std::string_view::npos ? rest_.size() : at + end.size());
    return at != std::string_view::npos;
  }

  // White space, comments, the XML declaration and the document type.
  void skipNoise() {
    for (;;) {
      while (!rest_.empty() && trimmed(rest_.substr(0, 1)).empty()) rest_.remove_prefix(1);
      if (rest_.starts_with("<!--"))
        skipPast("-->");
      else if (rest_.starts_with("<?") || rest_.starts_with("<!DOCTYPE"))
        skipPast(">");
      else
        return;
    }
  }

  std::optional<Tag> openTag() {
    skipNoise();
    const std::size_t end = rest_.find('>');
    if (!rest_.starts_with('<') || rest_.starts_with("</") || end == std::string_view::npos) return std::nullopt;
    std::string_view inside = rest_.substr(1, end - 1);
    rest_.remove_prefix(end + 1);
    const bool isEmpty = inside.ends_with('/');
    if (isEmpty) inside.remove_suffix(1);
    return Tag{inside.substr(0, inside.find_first_of(" \t\r\n")), isEmpty};
  }

  bool closes(std::string_view name) {
    skipNoise();
    const std::string tag = "</" + std::string(name) + ">";
    if (!rest_.starts_with(tag)) return false;
    rest_.remove_prefix(tag.size());
    return true;
  }

  std::optional<std::string> textUntilClosed(const Tag& tag) {
    if (tag.isEmpty) return std::string();
    const std::string_view text = rest_.substr(0, rest_.find('<'));
    rest_.remove_prefix(text.size());
    const std::string end = "</" + std::string(tag.name) + ">";
    if (!rest_.starts_with(end)) return std::nullopt;
    rest_.remove_prefix(end.size());
    return unescaped(text);
  }

  std::optional<DefaultsValue> element(int depth) {
    constexpr int deepest = 100;
    const auto tag = openTag();
    if (!tag || depth > deepest) return std::nullopt;
    if (tag->name == "dict") return dictionary(*tag, depth);
    if (tag->name == "array") return array(*tag, depth);
    if ((tag->name == "true" || tag->name == "false") && (tag->isEmpty || closes(tag->name)))
      return DefaultsValue{tag->name == "true"};
    const auto text = textUntilClosed(*tag);
    if (!text) return std::nullopt;
    return scalar(tag->name, *text);
  }

  std::optional<DefaultsValue> dictionary(const Tag& tag, int depth) {
    DefaultsDictionary values;
    while (!tag.isEmpty && !closes("dict")) {
      const auto keyTag = openTag();
      if (!keyTag || keyTag->name != "key") return std::nullopt;
      auto key = textUntilClosed(*keyTag);
      if (!key) return std::nullopt;
      auto value = element(depth + 1);
      if (!value) return std::nullopt;
      values.insert_or_assign(std::move(*key), std::move(*value));
    }
    return wrapped(std::optional(std::move(values)));
  }

  std::optional<DefaultsValue> array(const Tag& tag, int depth) {
    DefaultsArray values;
    while (!tag.isEmpty && !closes("array")) {
      auto value = element(depth + 1);
      if (!value) return std::nullopt;
      values.push_back(std::move(*value));
    }
    return wrapped(std::optional(std::move(values)));
  }

  std::string_view rest_;
};

}  // namespace

std::optional<DefaultsDictionary> parsePropertyList(std::string_view text) {
  if (!isValidUTF8(text)) return std::nullopt;
  return Reader(text).document();
}

}  // namespace ambrel
