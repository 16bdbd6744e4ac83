#include <algorithm>
#include <gtest/gtest.h>
#include <unordered_set>

#include "core/clipboard.h"
#include "tests/core/clipboard/Clips.h"

namespace ambrel {
namespace {

using namespace clips;
using Numbers = std::vector<int>;

TEST(ClipboardLibrary, ASecondCopyMovesToTheTopAndKeepsItsIdentity) {
  ClipboardLibrary library;
  library.add(collected(pinned(text(1, "a", 1)), 70), 10);
  library.add(text(2, "b", 2), 10);
  ClipItem again = text(3, "a", 3);
  again.sourceBundleID = "org.example.editor";
  EXPECT_TRUE(library.add(again, 10).empty());
  ASSERT_EQ(numbers(library.items), (Numbers{1, 2}));
  const ClipItem& first = library.items.front();
  EXPECT_EQ(first.createdAt, at(3));
  EXPECT_EQ(first.sourceBundleID, "org.example.editor");
  EXPECT_TRUE(first.isPinned);
  EXPECT_TRUE(first.collectionIDs.contains(id(70)));
  EXPECT_EQ(library.items.back(), text(2, "b", 2));
}

TEST(ClipboardLibrary, TheSameContentIsTheSameKindAndTheSameBytes) {
  ClipItem link = text(2, "a");
  link.kind = ClipKind::link;
  ClipItem none = text(3, "");
  none.text.reset();
  using Row = std::tuple<ClipItem, ClipItem, bool>;
  for (const auto& [one, other, isSame] :
       {Row{text(1, "a", 1), text(2, "a", 9), true}, Row{text(1, "a"), text(2, "a\n"), false},
        Row{text(1, "a"), link, false}, Row{image(1, "x.png"), image(2, "x.png"), true},
        Row{image(1, "x.png"), image(2, "y.png"), false}, Row{text(1, ""), none, true}}) {
    ClipboardLibrary library;
    library.add(one, 10);
    library.add(other, 10);
    EXPECT_EQ(library.items.size(), isSame ? 1u : 2u) << one.text.value_or("image");
  }
}

TEST(ClipboardLibrary, TheLimitEvictsTheOldestUnprotected) {
  using Row = std::tuple<std::int64_t, std::vector<ClipItem>, Numbers, Numbers>;
  for (const auto& [limit, before, evicted, left] :
       {Row{2, {text(1, "a"), text(2, "b"), pinned(text(3, "c"))}, {2}, {9, 1, 3}},
        Row{3, {text(1, "a"), text(2, "b"), pinned(text(3, "c"))}, {}, {9, 1, 2, 3}},
        Row{1, {text(1, "a"), collected(text(2, "b"), 70), text(3, "c")}, {3, 1}, {9, 2}},
        Row{0, {text(1, "a"), pinned(text(2, "b"))}, {1, 9}, {2}}, Row{-5, {text(1, "a")}, {1, 9}, {}}}) {
    ClipboardLibrary library{.items = before, .collections = {}};
    EXPECT_EQ(numbers(library.add(text(9, "new"), limit)), evicted) << limit;
    EXPECT_EQ(numbers(library.items), left) << limit;
  }
}

TEST(ClipboardLibrary, LargeTextsGoBeforeSmallOnesAndTheFirstStays) {
  const std::string large(3 << 20, 'x');
  const auto sized = [&](int number) { return text(number, large + std::to_string(number)); };
  using Row = std::tuple<std::vector<ClipItem>, std::size_t, Numbers>;
  for (const auto& [items, bytes, evicted] :
       {Row{{sized(1), text(2, "small"), sized(3), pinned(sized(4)), text(5, "small")}, 4 << 20, {3}},
        Row{{sized(1), sized(2), sized(3)}, 7 << 20, {3}}, Row{{sized(1), sized(2)}, 1, {2}},
        Row{{sized(1), text(2, "small")}, 1, {2}}, Row{{sized(1), text(2, "small")}, 4 << 20, {}}}) {
    ClipboardLibrary library{.items = items, .collections = {}};
    EXPECT_EQ(numbers(library.evictBeyond(bytes)), evicted);
    EXPECT_EQ(library.items.size() + evicted.size(), items.size());
  }
}

TEST(ClipFilter, AdmitsByKindCollectionAndPin) {
  ClipItem link = text(2, "http://example.org");
  link.kind = ClipKind::link;
  const std::vector<ClipItem> items{text(1, "a"), link, pinned(text(3, "c")), collected(text(4, "d"), 70)};
  const std::pair<ClipFilter, Numbers> rows[] = {
      {{ClipFilter::All{}}, {1, 2, 3, 4}},       {{ClipFilter::Pinned{}}, {3}},
      {{ClipFilter::Kind{ClipKind::link}}, {2}}, {{ClipFilter::Kind{ClipKind::image}}, {}},
      {{ClipFilter::Collection{id(70)}}, {4}},   {{ClipFilter::Collection{id(71)}}, {}},
  };
  for (const auto& [filter, found] : rows)
    EXPECT_EQ(numbers(ClipboardLibrary::filtered(items, filter, "", {})), found) << filter.value.index();
  // Ordered by case and then payload, and hashed.
  const std::vector<ClipFilter> inOrder{{ClipFilter::Kind{ClipKind::text}},
                                        {ClipFilter::Kind{ClipKind::file}},
                                        {ClipFilter::Collection{id(1)}},
                                        {ClipFilter::Collection{id(2)}},
                                        {ClipFilter::All{}},
                                        {ClipFilter::Pinned{}}};
  EXPECT_TRUE(std::ranges::is_sorted(inOrder));
  EXPECT_EQ(std::unordered_set<ClipFilter>(inOrder.begin(), inOrder.end()).size(), inOrder.size());
}

}  // namespace
}  // namespace ambrel
