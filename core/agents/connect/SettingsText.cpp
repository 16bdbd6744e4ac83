#include "core/agents/connect/SettingsText.h"

#include <algorithm>
#include <fmt/format.h>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

using Node = SettingsText::Node;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view blanks = " \t\r\n";

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  Node document() {
    if (!isValidUTF8(text_)) throw DecodingError("not valid UTF-8");
    if (text_.starts_with(byteOrderMark)) at_ = byteOrderMark.size();
    skip();
    Node root = value(0);
    skip();
    if (at_ != text_.size()) fail("something follows the document");
    if (root.kind != Node::Kind::object) throw DecodingError("not a JSON object");
    return root;
  }

  // Behind blanks and comments.
  void skip() {
    for (;;) {
      at_ = std::min(text_.find_first_not_of(blanks, at_), text_.size());
      const auto rest = text_.substr(at_);
      if (rest.starts_with("//")) {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (rest.starts_with("/*")) {
        const auto end = text_.find("*/", at_ + 2);
        if (end == text_.npos) fail("a comment has no end");
        at_ = end + 2;
      } else {
        return;
      }
    }
  }

 private:
  static constexpr int deepest = 200;

  [[noreturn]] void fail(std::string_view what) const {
    const auto line = 1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at_), '\n');
    throw DecodingError(fmt::format("line {}: {}", line, what));
  }

  char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool takes(char c) {
    if (peek() != c || at_ == text_.size()) return false;
    ++at_;
    return true;
  }

  Node value(int depth) {
    if (depth > deepest) fail("nested too deep");
    Node node;
    node.begin = node.whole = at_;
    if (takes('{')) {
      node.kind = Node::Kind::object;
      children(node, '}', depth);
    } else if (takes('[')) {
      node.kind = Node::Kind::array;
      children(node, ']', depth);
    } else {
      node.kind = peek() == '"' ? Node::Kind::text : Node::Kind::other;
      scalar();
    }
    node.end = at_;
    return node;
  }

  void children(Node& node, char close, int depth) {
    for (;;) {
      skip();
      if (takes(close)) return;
      if (!node.children.empty() && node.children.back().comma == text_.npos) fail("expected ',' or the end");
      const std::size_t whole = at_;
      std::string key;
      if (node.kind == Node::Kind::object) {
        if (peek() != '"') fail("expected a key in quotes");
        key = scalar();
        skip();
        if (!takes(':')) fail("expected ':' behind a key");
        skip();
      }
      Node& child = node.children.emplace_back(value(depth + 1));
      child.whole = whole;
      child.key = std::move(key);
      skip();
      if (takes(',')) child.comma = at_ - 1;
    }
  }

  // The decoded text of a text in quotes; empty for the others. The bytes are checked by the parser for documents.
  std::string scalar() {
    const std::size_t begin = at_;
    if (takes('"')) {
      while (!takes('"')) {
        if (at_ >= text_.size()) fail("a text has no end");
        at_ += text_[at_] == '\\' ? 2 : 1;
      }
    } else {
      at_ = std::min(text_.find_first_of(" \t\r\n,:]}[{\"/", at_), text_.size());
    }
    const auto parsed = at_ > begin && at_ <= text_.size() ? parseJSON(text_.substr(begin, at_ - begin)) : std::nullopt;
    if (!parsed || parsed->is_structured()) {
      at_ = begin;
      fail("expected a value");
    }
    return parsed->is_string() ? parsed->get<std::string>() : std::string();
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

// Behind the comments on the line of `at`, so that they stay with what they are about.
std::size_t behindComments(std::string_view text, std::size_t at, std::size_t limit) {
  std::size_t behind = at;
  while (at < limit) {
    const auto rest = text.substr(at);
    if (rest.starts_with("//")) return std::min(text.find('\n', at), limit);
    if (rest.starts_with("/*")) {
      behind = at = text.find("*/", at + 2) + 2;
    } else if (text[at] == ' ' || text[at] == '\t') {
      ++at;
    } else {
      break;
    }
  }
  return behind;
}

const Node* parentOf(const Node& from, const Node& node) {
  for (const Node& child : from.children) {
    if (&child == &node) return &from;
    if (const Node* found = parentOf(child, node)) return found;
  }
  return nullptr;
}

}  // namespace

const Node* SettingsText::Node::find(std::string_view name) const {
  if (kind != Kind::object) return nullptr;
  const auto found =
      std::find_if(children.rbegin(), children.rend(), [&](const Node& each) { return each.key == name; });
  return found == children.rend() ? nullptr : &*found;
}

SettingsText::SettingsText(std::string text) : text_(std::move(text)) {
  if (trimmed(text_).empty()) text_ = "{}\n";
  read();
  // As the first member is indented; a text on one line stays on one.
  if (!root_.children.empty()) {
    const auto line = text_.rfind('\n', root_.children.front().whole);
    if (line != std::string::npos && line > root_.begin)
      unit_ = text_.substr(line + 1, std::min(text_.find_first_not_of(" \t", line + 1), text_.size()) - line - 1);
    if (unit_.empty() && std::string_view(text_).substr(0, root_.end).find('\n') != std::string::npos) unit_ = "  ";
  } else {
    unit_ = "  ";
  }
}

void SettingsText::read() { root_ = Reader(text_).document(); }

std::string SettingsText::value(const Node& node) const {
  const auto parsed =
      node.kind == Node::Kind::text ? parseJSON(text_.substr(node.begin, node.end - node.begin)) : std::nullopt;
  return parsed && parsed->is_string() ? parsed->get<std::string>() : std::string();
}

std::size_t SettingsText::depthOf(const Node& node) const {
  std::size_t depth = 0;
  for (const Node* at = &node; (at = parentOf(root_, *at)) != nullptr;) ++depth;
  return depth;
}

// `depth`: of the line on which it begins.
std::string SettingsText::laidOut(std::string_view json, std::size_t depth) const {
  if (unit_.empty()) return std::string(json);
  std::string out;
  bool isText = false;
  const auto newLine = [&] {
    out += '\n';
    for (std::size_t i = 0; i < depth; ++i) out += unit_;
  };
  for (std::size_t i = 0; i < json.size(); ++i) {
    const char c = json[i];
    if (isText) {
      out += c;
      if (c == '\\') out += json[++i];
      if (c == '"') isText = false;
    } else if (c == '{' || c == '[') {
      out += c;
      ++depth;
      newLine();
    } else if (c == '}' || c == ']') {
      --depth;
      newLine();
      out += c;
    } else if (c == ',') {
      out += c;
      newLine();
    } else {
      out += c;
      if (c == ':') out += ' ';
      isText = c == '"';
    }
  }
  return out;
}

std::string SettingsText::lineAt(std::size_t depth) const {
  if (unit_.empty()) return {};
  std::string out = "\n";
  for (std::size_t i = 0; i < depth; ++i) out += unit_;
  return out;
}

void SettingsText::append(const Node& container, std::optional<std::string_view> key, std::string_view json) {
  const std::size_t depth = depthOf(container) + 1, close = container.end - 1;
  std::string entry = lineAt(depth);
  if (key) entry += compactJSON(JSON(std::string(*key))) + (unit_.empty() ? ":" : ": ");
  entry += laidOut(json, depth);
  if (container.children.empty()) {
    // Comments stay in front.
    const std::size_t from = text_.find_last_not_of(blanks, close - 1) + 1;
    text_.replace(from, close - from, entry + lineAt(depth - 1));
  } else {
    const Node& last = container.children.back();
    const std::size_t comma = last.comma;
    const std::size_t end = last.end;
    text_.insert(behindComments(text_, comma == std::string::npos ? end : comma + 1, close), entry);
    if (comma == std::string::npos) text_.insert(end, ",");
  }
  read();
}

void SettingsText::remove(const Node& container, std::size_t child) {
  const Node& gone = container.children[child];
  const std::size_t before = child > 0 ? container.children[child - 1].comma : std::string::npos;
  const bool isLast = gone.comma == std::string::npos;
  const std::size_t end = isLast ? gone.end : gone.comma + 1;
  std::size_t begin = text_.find_last_not_of(" \t", gone.whole - 1) + 1;
  // A line that is left empty goes with it.
  const std::size_t next = std::min(text_.find_first_not_of(" \t\r", end), text_.size());
  const bool isAtLineEnd = next == text_.size() || text_[next] == '\n' || unit_.empty();
  if (isAtLineEnd && begin > 0 && text_[begin - 1] == '\n') begin -= begin > 1 && text_[begin - 2] == '\r' ? 2 : 1;
  const bool wasAlone = container.children.size() == 1;
  const std::size_t close = container.end - 1;
  const bool isBlankBehind =
      std::string_view(text_).substr(end, close - end).find_first_not_of(blanks) == std::string_view::npos;
  const bool isBlankBefore =
      std::string_view(text_).substr(container.begin + 1, begin - container.begin - 1).find_first_not_of(blanks) ==
      std::string_view::npos;
  if (wasAlone && isBlankBefore && isBlankBehind)
    text_.erase(container.begin + 1, close - container.begin - 1);
  else
    text_.erase(begin, end - begin);
  if (isLast && before != std::string::npos) text_.erase(before, 1);
  read();
}

}  // namespace ambrel
