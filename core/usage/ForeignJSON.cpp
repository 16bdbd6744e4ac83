#include "core/usage/ForeignJSON.h"

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <numeric>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

void appendUTF8(std::string& out, std::uint32_t point) {
  const auto add = [&](std::uint32_t byte) { out += static_cast<char>(byte); };
  if (point < 0x80) return add(point);
  if (point < 0x800) {
    add(0xC0 | point >> 6);
  } else {
    if (point < 0x10000) {
      add(0xE0 | point >> 12);
    } else {
      add(0xF0 | point >> 18);
      add(0x80 | (point >> 12 & 0x3F));
    }
    add(0x80 | (point >> 6 & 0x3F));
  }
  add(0x80 | (point & 0x3F));
}

std::uint32_t hexadecimal(std::string_view digits) {
  std::uint32_t value = 0;
  for (const char c : digits)
    value = value * 16 + static_cast<std::uint32_t>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
  return value;
}

// `spelling` is a checked text with its quotes.
std::string decoded(std::string_view spelling) {
  constexpr std::uint32_t replacement = 0xFFFD;
  std::string out;
  const std::string_view in = spelling.substr(1, spelling.size() - 2);
  for (std::size_t i = 0; i < in.size(); ++i) {
    if (in[i] != '\\') {
      out += in[i];
      continue;
    }
    switch (in[++i]) {
      case 'b':
        out += '\b';
        break;
      case 'f':
        out += '\f';
        break;
      case 'n':
        out += '\n';
        break;
      case 'r':
        out += '\r';
        break;
      case 't':
        out += '\t';
        break;
      case 'u': {
        std::uint32_t unit = hexadecimal(in.substr(i + 1, 4));
        i += 4;
        const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
        if (isHigh && in.substr(i + 1, 2) == "\\u") {
          const std::uint32_t low = hexadecimal(in.substr(i + 3, 4));
          if (low >= 0xDC00 && low < 0xE000) {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
            i += 6;
          }
        }
        appendUTF8(out, unit >= 0xD800 && unit < 0xE000 ? replacement : unit);
        break;
      }
      default:
        out += in[i];  // a quote, a backslash or a slash
    }
  }
  return out;
}

std::string withoutEscapedSlashes(std::string_view spelling) {
  std::string out;
  out.reserve(spelling.size());
  for (std::size_t i = 0; i < spelling.size(); ++i) {
    if (spelling[i] == '\\') {
      if (spelling[i + 1] != '/') out += '\\';
      ++i;
    }
    out += spelling[i];
  }
  return out;
}

std::string spelled(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\t') {
      out += "\\t";
    } else if (static_cast<unsigned char>(c) < 0x20) {
      out += fmt::format("\\u{:04x}", static_cast<unsigned>(c));
    } else {
      out += c;
    }
  }
  return out + '"';
}

}  // namespace

// Recursive descent; the depth is bounded.
class ForeignJSONParser {
 public:
  explicit ForeignJSONParser(std::string_view text) : text_(text) {}

  ForeignJSON document() {
    if (!isValidUTF8(text_)) throw DecodingError("not valid UTF-8");
    ForeignJSON value = this->value(0);
    skipBlanks();
    if (at_ != text_.size()) fail("something follows the document");
    return value;
  }

 private:
  static constexpr int deepest = 1000;

  [[noreturn]] void fail(std::string_view what) const {
    const auto line = 1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at_), '\n');
    throw DecodingError(fmt::format("line {}: {}", line, what));
  }

  char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  void skipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }
  bool takes(char c) {
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  ForeignJSON value(int depth) {
    if (depth > deepest) fail("nested too deep");
    skipBlanks();
    ForeignJSON out;
    if (takes('{')) {
      out.value_ = object(depth);
    } else if (takes('[')) {
      out.value_ = array(depth);
    } else {
      out.value_ = ForeignJSON::Scalar{scalar()};
    }
    return out;
  }

  ForeignJSON::Object object(int depth) {
    ForeignJSON::Object members;
    skipBlanks();
    if (takes('}')) return members;
    do {
      skipBlanks();
      if (peek() != '"') fail("expected a key in quotes");
      std::string spelling = string();
      std::string key = decoded(spelling);
      skipBlanks();
      if (!takes(':')) fail("expected ':' behind a key");
      members.push_back({std::move(key), std::move(spelling), value(depth + 1)});
      skipBlanks();
    } while (takes(','));
    if (!takes('}')) fail("expected ',' or '}'");
    return members;
  }

  ForeignJSON::Array array(int depth) {
    ForeignJSON::Array elements;
    skipBlanks();
    if (takes(']')) return elements;
    do {
      elements.push_back(value(depth + 1));
      skipBlanks();
    } while (takes(','));
    if (!takes(']')) fail("expected ',' or ']'");
    return elements;
  }

  std::string scalar() {
    if (peek() == '"') return string();
    for (const std::string_view literal : {"true", "false", "null"}) {
      if (text_.substr(at_).starts_with(literal)) {
        at_ += literal.size();
        return std::string(literal);
      }
    }
    return number();
  }

  std::string number() {
    const std::size_t start = at_;
    takes('-');
    if (!takes('0')) digits();
    if (takes('.')) digits();
    if (takes('e') || takes('E')) {
      if (!takes('+')) takes('-');
      digits();
    }
    return std::string(text_.substr(start, at_ - start));
  }

  void digits() {
    const std::size_t start = at_;
    while (peek() >= '0' && peek() <= '9') ++at_;
    if (at_ == start) fail("expected a value");
  }

  std::string string() {
    const std::size_t start = at_++;
    while (!takes('"')) {
      if (at_ == text_.size()) fail("a text has no end");
      if (static_cast<unsigned char>(peek()) < 0x20) fail("a control character in a text");
      if (takes('\\'))
        escape();
      else
        ++at_;
    }
    return withoutEscapedSlashes(text_.substr(start, at_ - start));
  }

  void escape() {
    if (takes('u')) {
      if (text_.substr(at_, 4).size() != 4 ||
          text_.substr(at_, 4).find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos)
        fail("expected four hexadecimal digits");
      at_ += 4;
    } else if (at_ == text_.size() || std::string_view("\"\\/bfnrt").find(peek()) == std::string_view::npos) {
      fail("an unknown escape in a text");
    } else {
      ++at_;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

ForeignJSON::ForeignJSON() : value_(Object{}) {}

ForeignJSON ForeignJSON::ofText(std::string_view text) {
  ForeignJSON value;
  value.value_ = Scalar{spelled(text)};
  return value;
}

ForeignJSON ForeignJSON::parse(std::string_view text) { return ForeignJSONParser(text).document(); }

std::optional<std::string> ForeignJSON::text() const {
  const auto* scalar = std::get_if<Scalar>(&value_);
  if (!scalar || scalar->spelling.front() != '"') return std::nullopt;
  return decoded(scalar->spelling);
}

const ForeignJSON* ForeignJSON::find(std::string_view key) const {
  const auto* members = std::get_if<Object>(&value_);
  if (!members) return nullptr;
  const auto found =
      std::find_if(members->rbegin(), members->rend(), [&](const Member& member) { return member.key == key; });
  return found == members->rend() ? nullptr : &found->value;
}

void ForeignJSON::set(std::string_view key, ForeignJSON value) {
  remove(key);
  std::get<Object>(value_).push_back({std::string(key), spelled(key), std::move(value)});
}

void ForeignJSON::remove(std::string_view key) {
  std::erase_if(std::get<Object>(value_), [&](const Member& member) { return member.key == key; });
}

bool operator==(const ForeignJSON& a, const ForeignJSON& b) { return a.value_ == b.value_; }

std::string ForeignJSON::pretty() const {
  std::string out;
  print(out, 0);
  return out + '\n';
}

void ForeignJSON::print(std::string& out, std::size_t indent) const {
  const auto newLine = [&](std::size_t depth) { out.append(1, '\n').append(2 * depth, ' '); };
  if (const auto* scalar = std::get_if<Scalar>(&value_)) {
    out += scalar->spelling;
  } else if (const auto* array = std::get_if<Array>(&value_)) {
    out += '[';
    for (const ForeignJSON& element : *array) {
      if (&element != &array->front()) out += ',';
      newLine(indent + 1);
      element.print(out, indent + 1);
    }
    if (!array->empty()) newLine(indent);
    out += ']';
  } else {
    const auto& members = std::get<Object>(value_);
    std::vector<const Member*> sorted;
    for (const Member& member : members) sorted.push_back(&member);
    std::stable_sort(sorted.begin(), sorted.end(), [](const Member* a, const Member* b) { return a->key < b->key; });
    out += '{';
    for (const Member* member : sorted) {
      if (member != sorted.front()) out += ',';
      newLine(indent + 1);
      out.append(member->spelling).append(": ");
      member->value.print(out, indent + 1);
    }
    if (!members.empty()) newLine(indent);
    out += '}';
  }
}

}  // namespace ambrel
