#pragma once
// Program code in pieces, for colouring what a card shows of it. No language in particular: the words that most have
// in common, texts in quotes, comments, and names that something is assigned to.

#include <string_view>
#include <vector>

namespace ambrel {

enum class CodeWord { plain, keyword, assigned, quoted, comment };

struct CodePiece {
  std::string_view text;
  CodeWord word = CodeWord::plain;

  friend bool operator==(const CodePiece&, const CodePiece&) = default;
};

// Put together they give the code again; two plain pieces never follow each other. Linear in its length.
std::vector<CodePiece> codePieces(std::string_view code);

}  // namespace ambrel
