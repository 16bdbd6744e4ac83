#include "core/clipboard/CodeWords.h"

#include <algorithm>
#include <array>

namespace ambrel {
namespace {

constexpr std::array<std::string_view, 97> keywords{
    "FROM",    "INSERT",    "SELECT",   "UPDATE",   "WHERE",  "and",     "as",      "async",    "auto",    "await",
    "bool",    "break",     "case",     "catch",    "char",   "class",   "const",   "continue", "def",     "default",
    "del",     "delete",    "do",       "done",     "double", "echo",    "elif",    "else",     "end",     "enum",
    "esac",    "except",    "export",   "extends",  "false",  "fi",      "final",   "finally",  "float",   "fn",
    "for",     "from",      "func",     "function", "go",     "if",      "impl",    "import",   "in",      "include",
    "int",     "interface", "is",       "lambda",   "let",    "local",   "long",    "match",    "mod",     "module",
    "mut",     "namespace", "new",      "nil",      "not",    "null",    "nullptr", "or",       "package", "pass",
    "private", "protected", "pub",      "public",   "raise",  "require", "return",  "self",     "static",  "struct",
    "super",   "switch",    "template", "then",     "this",   "throw",   "true",    "try",      "type",    "typename",
    "using",   "val",       "var",      "void",     "while",  "with",    "yield"};
static_assert(std::ranges::is_sorted(keywords));

bool isNameStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool isNamePart(char c) { return isNameStart(c) || (c >= '0' && c <= '9'); }

// Whether what follows a name makes it the target of an assignment: "= ", "+= ", ":= ", but not "==" or "=>".
bool isAssigned(std::string_view rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
  if (!rest.empty() && std::string_view("+-*/%|&^:").find(rest.front()) != std::string_view::npos)
    rest.remove_prefix(1);
  return rest.starts_with('=') && !rest.starts_with("==") && !rest.starts_with("=>");
}

// The length of the text in quotes at the beginning of `rest`; 1 when the line ends before the quote does.
std::size_t quotedLength(std::string_view rest) {
  for (std::size_t i = 1; i < rest.size() && rest[i] != '\n'; ++i) {
    if (rest[i] == '\\')
      ++i;
    else if (rest[i] == rest.front())
      return i + 1;
  }
  return 1;
}

// The comment at `at`, to the end of its line; 0 when there is none.
std::size_t commentLength(std::string_view code, std::size_t at) {
  const std::string_view rest = code.substr(at);
  const bool beginsWord = at == 0 || std::string_view(" \t\n").find(code[at - 1]) != std::string_view::npos;
  // "#include" and "#fff" are not comments, nor is what follows the colon of an address.
  const bool isComment = beginsWord && (rest.starts_with("//") || rest.starts_with("# ") || rest.starts_with("#!") ||
                                        rest.starts_with("-- "));
  return isComment ? std::min(rest.find('\n'), rest.size()) : 0;
}

}  // namespace

std::vector<CodePiece> codePieces(std::string_view code) {
  std::vector<CodePiece> pieces;
  std::size_t plainBegin = 0;
  const auto add = [&](std::size_t begin, std::size_t length, CodeWord word) {
    if (begin > plainBegin) pieces.push_back({code.substr(plainBegin, begin - plainBegin), CodeWord::plain});
    if (length > 0) pieces.push_back({code.substr(begin, length), word});
    plainBegin = begin + length;
  };
  for (std::size_t at = 0; at < code.size();) {
    std::size_t length = 1;
    if (const std::size_t comment = commentLength(code, at); comment > 0) {
      add(at, length = comment, CodeWord::comment);
    } else if (code[at] == '"' || code[at] == '\'' || code[at] == '`') {
      length = quotedLength(code.substr(at));
      if (length > 1) add(at, length, CodeWord::quoted);
    } else if (isNamePart(code[at])) {
      while (at + length < code.size() && isNamePart(code[at + length])) ++length;
      const std::string_view name = code.substr(at, length);
      if (std::ranges::binary_search(keywords, name))
        add(at, length, CodeWord::keyword);
      else if (isNameStart(name.front()) && isAssigned(code.substr(at + length)))
        add(at, length, CodeWord::assigned);
    }
    at += length;
  }
  add(code.size(), 0, CodeWord::plain);
  return pieces;
}

}  // namespace ambrel
