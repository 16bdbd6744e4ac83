#include <gtest/gtest.h>

#include "core/clipboard.h"
#include "tests/core/clipboard/Clips.h"

namespace ambrel {
namespace {

using namespace clips;

TEST(ClipSearch, IgnoresCaseAndDiacritics) {
  const struct {
    std::string text, query;
    bool isFound;
  } rows[] = {
      {"Meeting at noon", "MEETING", true},
      {"Meeting at noon", "  \t meet", true},
      {"Meeting at noon", "noon ", true},
      {"Meeting at noon", "moon", false},
      {"Une Crème brûlée", "creme BRULEE", true},
      {"Cafe\u0301", "café", true},
      {"cafe", "café", true},
      {"Hauptstraße", "STRASSE", true},
      {"ΑΘΗΝΑ", "αθήνα", true},
      {"Ёлка", "елка", true},
      {"İstanbul", "istanbul", true},
      {"か", "が", false},
      {"각", "가", false},
      {"a b", "a  b", false},
      {"one\ntwo", "\n", true},
      {"one two", "\n", false},
      {"one\ntwo", "e\nt", true},
      {"", "x", false},
      {"anything", "   ", true},
      {"bad \xFF byte", "byte", true},
      {"emoji 🙂 here", "🙂", true},
  };
  for (const auto& row : rows) {
    const auto item = text(1, row.text);
    EXPECT_EQ(ClipQuery(row.query, {}).matches(item), row.isFound) << row.text << " / " << row.query;
    const ClipQuery query(row.query, {});
    EXPECT_TRUE(query.isEmpty() || query.matchesFolded(SearchFolding().folded(row.text)) == row.isFound);
  }
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
