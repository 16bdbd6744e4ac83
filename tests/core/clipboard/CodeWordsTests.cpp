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
  const struct {
    std::string_view code, expected;
  } rows[] = {
      {"for x in parts:\n  total += x.size\nreturn total",
       "k(for) x k(in) parts:\n  a(total) += x.size\nk(return) total"},
      {"forty = format(2)", "a(forty) = format(2)"},
      {"if (a == b && c >= d) x=>y", "k(if) (a == b && c >= d) x=>y"},
      {"const n := 1; m |= 2", "k(const) a(n) := 1; a(m) |= 2"},
      {"print('for \\'x\\'', \"in\")", "print(q('for \\'x\\''), q(\"in\"))"},
      {"it's open\nlet s", "it's open\nk(let) s"},
      {"x(1) // for us\ny", "x(1) c(// for us)\ny"},
      {"# a note\n#include <x>\n#!/bin/sh", "c(# a note)\n#k(include) <x>\nc(#!/bin/sh)"},
      {"see https://a.example", "see https://a.example"},
      {"SELECT a -- why\nFROM t", "k(SELECT) a c(-- why)\nk(FROM) t"},
      {"größe = 3", "a(größe) = 3"},
      {"x1 = 0x10 = 2 = 3", "a(x1) = 0x10 = 2 = 3"},
      {"'", "'"},
      {"\"\\", "\"\\"},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(marked(row.code), row.expected);
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
