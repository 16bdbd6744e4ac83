#include <gtest/gtest.h>
#include <string>

#include "core/clipboard/CodeWords.h"

namespace ambrel {
namespace {

// "k(for) x k(in) parts": keywords, a(ssigned) names, q(uoted) texts, c(omments).
std::string marked(std::string_view code) {
  std::string out;
  for (const CodePiece& piece : codePieces(code)) {
    const char* sign[] = {"", "k", "a", "q", "c"};
    const std::string text(piece.text);
    out += piece.word == CodeWord::plain ? text : sign[static_cast<int>(piece.word)] + ("(" + text + ")");
  }
  return out;
}

TEST(CodeWords, AreToldApart) {
  using Row = std::pair<std::string_view, std::string_view>;
  for (const auto& [code, expected] :
       {Row{"for x in parts:\n  total += x.size\nreturn total",
            "k(for) x k(in) parts:\n  a(total) += x.size\nk(return) total"},
        Row{"forty = format(2)", "a(forty) = format(2)"},
        Row{"if (a == b && c >= d) x=>y", "k(if) (a == b && c >= d) x=>y"},
        Row{"const n := 1; m |= 2", "k(const) a(n) := 1; a(m) |= 2"},
        Row{"print('for \\'x\\'', \"in\")", "print(q('for \\'x\\''), q(\"in\"))"},
        Row{"it's open\nlet s", "it's open\nk(let) s"}, Row{"x(1) // for us\ny", "x(1) c(// for us)\ny"},
        Row{"# a note\n#include <x>\n#!/bin/sh", "c(# a note)\n#k(include) <x>\nc(#!/bin/sh)"},
        Row{"see https://a.example", "see https://a.example"},
        Row{"SELECT a -- why\nFROM t", "k(SELECT) a c(-- why)\nk(FROM) t"}, Row{"größe = 3", "a(größe) = 3"},
        Row{"x1 = 0x10 = 2 = 3", "a(x1) = 0x10 = 2 = 3"}, Row{"'", "'"}, Row{"\"\\", "\"\\"}, Row{"", ""}})
    EXPECT_EQ(marked(code), expected);
}

TEST(CodeWords, NothingIsLostAndPlainPiecesAreWhole) {
  const std::string_view codes[] = {"for for", "a = 'b' // c\n", "\n\n\"\"\"\\", "# ", "//", "`x`y=='", "\xff = \xfe"};
  for (const auto& code : codes) {
    std::string whole;
    bool wasPlain = false;
    for (const CodePiece& piece : codePieces(code)) {
      EXPECT_FALSE(piece.text.empty());
      const bool isPlain = piece.word == CodeWord::plain;
      EXPECT_FALSE(wasPlain && isPlain) << code;
      wasPlain = isPlain;
      whole += piece.text;
    }
    EXPECT_EQ(whole, code);
  }
}

}  // namespace
}  // namespace ambrel
