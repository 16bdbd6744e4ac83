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
  for (const auto& [content, words] : {std::pair{"Meeting at noon", "MEETING"},
                                       {"Meeting at noon", "  \t meet"},
                                       {"Meeting at noon", "noon "},
                                       {"Une Crème brûlée", "creme BRULEE"},
                                       {"Cafe\u0301", "café"},
                                       {"cafe", "café"},
                                       {"Hauptstraße", "STRASSE"},
                                       {"ΑΘΗΝΑ", "αθήνα"},
                                       {"Ёлка", "елка"},
                                       {"İstanbul", "istanbul"},
                                       {"one\ntwo", "\n"},
                                       {"one\ntwo", "e\nt"},
                                       {"anything", "   "},
                                       {"bad \xFF byte", "byte"},
                                       {"emoji 🙂 here", "🙂"}})
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
  const struct {
    std::string locale;
    bool findsDotted;
  } rows[] = {{"en_US", true}, {"tr_TR.UTF-8", false}, {"az", false}, {"TR", false}, {"trv_TW", true}, {"", true}};
  for (const auto& row : rows) {
    const auto folding = SearchFolding::forLocale(row.locale);
    EXPECT_EQ(ClipQuery("istanbul", folding).matches(text(1, "ISTANBUL")), row.findsDotted) << row.locale;
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
