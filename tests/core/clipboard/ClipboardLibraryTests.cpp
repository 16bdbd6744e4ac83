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
  const struct {
    ClipItem one, other;
    bool isSame;
  } rows[] = {
      {text(1, "a", 1), text(2, "a", 9), true},
      {text(1, "a"), text(2, "a\n"), false},
      {text(1, "a"), link, false},
      {image(1, "x.png"), image(2, "x.png"), true},
      {image(1, "x.png"), image(2, "y.png"), false},
      {text(1, ""), none, true},
  };
  for (const auto& row : rows) {
    ClipboardLibrary library;
    library.add(row.one, 10);
    library.add(row.other, 10);
    EXPECT_EQ(library.items.size(), row.isSame ? 1u : 2u) << row.one.text.value_or("image");
  }
}

TEST(ClipboardLibrary, TheLimitEvictsTheOldestUnprotected) {
  const struct {
    std::int64_t limit;
    std::vector<ClipItem> before;
    Numbers evicted, left;
  } rows[] = {
      {2, {text(1, "a"), text(2, "b"), pinned(text(3, "c"))}, {2}, {9, 1, 3}},
      {3, {text(1, "a"), text(2, "b"), pinned(text(3, "c"))}, {}, {9, 1, 2, 3}},
      {1, {text(1, "a"), collected(text(2, "b"), 70), text(3, "c")}, {3, 1}, {9, 2}},
      {0, {text(1, "a"), pinned(text(2, "b"))}, {1, 9}, {2}},
      {-5, {text(1, "a")}, {1, 9}, {}},
  };
  for (const auto& row : rows) {
    ClipboardLibrary library{.items = row.before, .collections = {}};
    EXPECT_EQ(numbers(library.add(text(9, "new"), row.limit)), row.evicted) << row.limit;
    EXPECT_EQ(numbers(library.items), row.left) << row.limit;
  }
}

TEST(ClipboardLibrary, LargeTextsGoBeforeSmallOnesAndTheFirstStays) {
  const std::string large(3 << 20, 'x');
  const auto sized = [&](int number) { return text(number, large + std::to_string(number)); };
  const struct {
    std::vector<ClipItem> items;
    std::size_t bytes;
    Numbers evicted;
  } rows[] = {
      {{sized(1), text(2, "small"), sized(3), pinned(sized(4)), text(5, "small")}, 4 << 20, {3}},
      {{sized(1), sized(2), sized(3)}, 7 << 20, {3}},
      {{sized(1), sized(2)}, 1, {2}},
      {{sized(1), text(2, "small")}, 1, {2}},
      {{sized(1), text(2, "small")}, 4 << 20, {}},
  };
  for (const auto& row : rows) {
    ClipboardLibrary library{.items = row.items, .collections = {}};
    EXPECT_EQ(numbers(library.evictBeyond(row.bytes)), row.evicted);
    EXPECT_EQ(library.items.size() + row.evicted.size(), row.items.size());
  }
}

TEST(ClipFilter, AdmitsByKindCollectionAndPin) {
  ClipItem link = text(2, "http://example.org");
  link.kind = ClipKind::link;
  const std::vector<ClipItem> items{text(1, "a"), link, pinned(text(3, "c")), collected(text(4, "d"), 70)};
  const struct {
    ClipFilter filter;
    Numbers found;
  } rows[] = {
      {{ClipFilter::All{}}, {1, 2, 3, 4}},       {{ClipFilter::Pinned{}}, {3}},
      {{ClipFilter::Kind{ClipKind::link}}, {2}}, {{ClipFilter::Kind{ClipKind::image}}, {}},
      {{ClipFilter::Collection{id(70)}}, {4}},   {{ClipFilter::Collection{id(71)}}, {}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(numbers(ClipboardLibrary::filtered(items, row.filter, "", {})), row.found) << row.filter.value.index();
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
