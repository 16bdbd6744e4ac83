// JSON, checked and laid out in one pass over its text: no value is read, so that numbers keep their digits, objects
// their order and keys that are there twice.

#include <fmt/format.h>

#include "core/base/LocalText.h"
#include "core/tools/Tools.h"

namespace ambrel::tools {
namespace {

// A small text that is nested deeply could become larger than the memory of any machine.
constexpr std::size_t deepest = 512, mostOutput = 128u << 20;

struct JsonFault {
  std::size_t at;
  std::string what;
};

class JsonLayout {
 public:
  // `indent`: of each level; without one everything is on one line.
  JsonLayout(std::string_view text, std::string_view indent) : text_(text), indent_(indent) {
    if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;
  }

  // Throws JsonFault.
  std::string laidOut() {
    out_.reserve(text_.size());
    do {
      valueOrOpening();
      while (!open_.empty() && closing()) {
      }
    } while (!open_.empty());
    if (!isAtEnd()) throw JsonFault{at_, "there is more text after the end"};
    return std::move(out_);
  }

 private:
  bool isAtEnd() {
    while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) != std::string_view::npos) ++at_;
    return at_ == text_.size();
  }
  // 0 at the end.
  char next() { return isAtEnd() ? '\0' : text_[at_]; }
  [[noreturn]] void fail(std::string what) const { throw JsonFault{at_, std::move(what)}; }

  void newLine() {
    if (indent_.empty()) return;
    if (out_.size() + open_.size() * indent_.size() > mostOutput)
      fail("with its indents the text is larger than 128 MiB");
    out_ += '\n';
    for (std::size_t i = 0; i < open_.size(); ++i) out_ += indent_;
  }
  void take(std::size_t count) {
    out_ += text_.substr(at_, count);
    at_ += count;
  }

  // A value that is whole, or the opening of one with its first key.
  void valueOrOpening() {
    const char c = next();
    if (c == '{' || c == '[') {
      if (open_.size() == deepest) fail(fmt::format("the text is nested deeper than {} levels", deepest));
      take(1);
      open_ += c == '{' ? '}' : ']';
      if (next() == open_.back()) {
        open_.pop_back();
        take(1);
        isValueDone_ = true;
        return;
      }
      newLine();
      if (c == '{') key();
      isValueDone_ = false;
      return;
    }
    isValueDone_ = true;
    if (c == '"') return string();
    if (c == '-' || (c >= '0' && c <= '9')) return number();
    for (const std::string_view word : {"true", "false", "null"})
      if (text_.substr(at_).starts_with(word)) return take(word.size());
    if (at_ == text_.size()) fail("the text ends where a value is expected");
    fail(c == ']' && !open_.empty() && open_.back() == ']' ? "a comma comes before the ]" : "a value is expected here");
  }

  // After a value: the end of what it is in, or the comma before the next. Says whether the end came.
  bool closing() {
    if (!isValueDone_) return false;
    const char c = next();
    if (c == open_.back()) {
      open_.pop_back();
      newLine();
      take(1);
      return true;
    }
    if (c != ',')
      fail(at_ == text_.size() ? fmt::format("the text ends before its {}", open_.back())
                               : fmt::format("a comma or {} is expected here", open_.back()));
    take(1);
    newLine();
    if (open_.back() == '}') key();
    return false;
  }

  void key() {
    const char c = next();
    if (c == '}') fail("a comma comes before the }");
    if (c != '"')
      fail(at_ == text_.size() ? "the text ends where a key is expected" : "a key in double quotes is expected here");
    string();
    if (next() != ':') fail("a colon is expected here");
    take(1);
    if (!indent_.empty()) out_ += ' ';
  }

  void string() {
    std::size_t end = at_ + 1;
    for (;; ++end) {
      if (end == text_.size()) fail("this double quote is not closed");
      const char c = text_[end];
      if (c == '"') break;
      if (static_cast<unsigned char>(c) < 0x20) {
        at_ = end;
        fail("inside double quotes, line breaks, tabs and the like are written as \\n, \\t, \\u0000");
      }
      if (c == '\\') end = escapeEnd(end);
    }
    take(end + 1 - at_);
  }

  // The last character of the escape that begins there.
  std::size_t escapeEnd(std::size_t begin) {
    const char kind = begin + 1 < text_.size() ? text_[begin + 1] : '\0';
    if (kind != '\0' && std::string_view("\"\\/bfnrt").find(kind) != std::string_view::npos) return begin + 1;
    constexpr std::string_view hex = "0123456789abcdefABCDEF";
    if (kind == 'u' && begin + 5 < text_.size() &&
        text_.substr(begin + 2, 4).find_first_not_of(hex) == std::string_view::npos)
      return begin + 5;
    at_ = begin;
    fail("this backslash begins no known escape");
  }

  std::size_t digitsFrom(std::size_t at) const {
    return std::min(text_.size(), text_.find_first_not_of("0123456789", at));
  }

  void number() {
    const auto digits = [this](std::size_t from) {
      const std::size_t end = digitsFrom(from);
      if (end == from) {
        at_ = from;
        fail("a digit is expected here");
      }
      return end;
    };
    const auto at = [this](std::size_t i) { return i < text_.size() ? text_[i] : '\0'; };
    const std::size_t first = at_ + (text_[at_] == '-');
    std::size_t end = digits(first);
    if (text_[first] == '0' && end > first + 1) fail("a number has no leading zero");
    if (at(end) == '.') end = digits(end + 1);
    if (at(end) == 'e' || at(end) == 'E') end = digits(end + 1 + (at(end + 1) == '+' || at(end + 1) == '-'));
    take(end - at_);
  }

  std::string_view text_, indent_;
  std::size_t at_ = 0;
  std::string open_;  // the closing brackets to come, innermost last
  std::string out_;
  bool isValueDone_ = false;
};

// Both from one; columns in characters.
std::pair<std::size_t, std::size_t> lineAndColumn(std::string_view text, std::size_t at) {
  std::size_t line = 1, column = 1;
  for (const char c : text.substr(0, at)) {
    if (c == '\n') {
      ++line;
      column = 1;
    } else if ((c & 0xC0) != 0x80) {
      ++column;
    }
  }
  return {line, column};
}

constexpr std::string_view linePrefix = "Line ";

}  // namespace

ToolOutcome jsonLayout(const ToolCall& call) {
  const std::string_view indent = call.choice == "compact" ? ""
                                  : call.choice == "tabs"  ? "\t"
                                  : call.choice == "4"     ? "    "
                                                           : "  ";
  try {
    return {JsonLayout(call.input, indent).laidOut(), {}};
  } catch (const JsonFault& fault) {
    const auto [line, column] = lineAndColumn(call.input, fault.at);
    return {{}, fmt::format("{}{}, column {}: {}", linePrefix, line, column, fault.what)};
  }
}

ToolGlance jsonGlance(const ToolCall& call, const ToolOutcome& outcome) {
  if (outcome.fault.empty())
    return {"Valid", fileSize(call.source.calendar, static_cast<std::int64_t>(call.input.size())), {}};
  if (!outcome.fault.starts_with(linePrefix)) return {"Not JSON", "Not UTF-8", {}};
  return {"Not JSON", outcome.fault.substr(0, outcome.fault.find(':')), {}};
}

}  // namespace ambrel::tools
