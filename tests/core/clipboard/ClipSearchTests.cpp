#include <gtest/gtest.h>

#include "core/clipboard.h"
#include "tests/core/clipboard/Clips.h"

namespace ambrel {
namespace {

using namespace clips;

TEST(ClipSearch, IgnoresCaseAndDiacritics) {
  const auto expect = [](const char* content, const char* words, bool isFound) {
    const ClipQuery query(words, {});
    EXPECT_EQ(query.matches(text(1, content)), isFound) << content << " / " << words;
    EXPECT_TRUE(query.isEmpty() || query.matchesFolded(SearchFolding().folded(content)) == isFound) << content;
  };
  using Row = std::pair<const char*, const char*>;
  for (const auto& [content, words] :
       {Row{"Meeting at noon", "MEETING"}, Row{"Meeting at noon", "  \t meet"}, Row{"Meeting at noon", "noon "},
        Row{"Une Crème brûlée", "creme BRULEE"}, Row{"Cafe\u0301", "café"}, Row{"cafe", "café"},
        Row{"Hauptstraße", "STRASSE"}, Row{"ΑΘΗΝΑ", "αθήνα"}, Row{"Ёлка", "елка"}, Row{"İstanbul", "istanbul"},
        Row{"one\ntwo", "\n"}, Row{"one\ntwo", "e\nt"}, Row{"anything", "   "}, Row{"bad \xFF byte", "byte"},
        Row{"emoji 🙂 here", "🙂"}})
    expect(content, words, true);
  for (const auto& [content, words] : {std::pair{"Meeting at noon", "moon"},
                                       {"か", "が"},
                                       {"각", "가"},
                                       {"a b", "a  b"},
                                       {"one two", "\n"},
                                       {"", "x"}})
    expect(content, words, false);
}

TEST(ClipSearch, KeepsTheDotlessIApartWhereItIsALetter) {
  const std::pair<std::string, bool> rows[] = {{"en_US", true}, {"tr_TR.UTF-8", false}, {"az", false},
                                               {"TR", false},   {"trv_TW", true},       {"", true}};
  for (const auto& [locale, findsDotted] : rows) {
    const auto folding = SearchFolding::forLocale(locale);
    EXPECT_EQ(ClipQuery("istanbul", folding).matches(text(1, "ISTANBUL")), findsDotted) << locale;
    EXPECT_TRUE(ClipQuery("ıSPARTA", SearchFolding::forLocale("tr")).matches(text(1, "ISPARTA")));
  }
}

TEST(ClipSearch, APictureHasNoTextToFind) {
  EXPECT_FALSE(ClipQuery("png", {}).matches(image(1, "png.png")));
  EXPECT_TRUE(ClipQuery(" ", {}).matches(image(1, "png.png")));
}

TEST(ClipSearch, KeepsTheOrderAndHeedsTheFilterToo) {
  const std::vector<ClipItem> items{text(3, "Apple"), pinned(text(1, "apple pie")), text(2, "pear"),
                                    pinned(text(4, "APPLE"))};
  EXPECT_EQ(numbers(ClipboardLibrary::filtered(items, {ClipFilter::All{}}, "apple", {})), (std::vector{3, 1, 4}));
  EXPECT_EQ(numbers(ClipboardLibrary::filtered(items, {ClipFilter::Pinned{}}, "apple", {})), (std::vector{1, 4}));
}

}  // namespace
}  // namespace ambrel
