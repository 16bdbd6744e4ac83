#include <gtest/gtest.h>
#include <random>

#include "core/clipboard/ClipboardHistory.h"
#include "tests/core/clipboard/Clips.h"

namespace ambrel {
namespace {

using namespace clips;
using Numbers = std::vector<int>;
using Names = std::vector<std::string>;

const CaptureSettings settings;

ClipboardHistory historyOf(std::vector<ClipItem> items) {
  return ClipboardHistory({.items = std::move(items), .collections = {{id(70), "Recipes"}}}, 5);
}

bool isNeverSensitive(const ClipItem&) { return false; }

TEST(ClipboardHistory, ReadsNewChangesUnlessItIsToldNotTo) {
  CaptureSettings off = settings, ignoring = settings;
  off.isEnabled = false;
  ignoring.ignoredBundleIDs = {"com.example.vault"};
  const struct {
    const char* name;
    CaptureSettings settings;
    std::int64_t count;
    std::optional<std::string> frontmost;
    bool isRead, isCurrentKept;
  } rows[] = {
      {"no change", settings, 5, "org.example.editor", false, true},
      {"a change", settings, 6, "org.example.editor", true, false},
      {"a count that went back", settings, 1, "org.example.editor", true, false},
      {"nothing in front", ignoring, 6, std::nullopt, true, false},
      {"switched off", off, 6, "org.example.editor", false, false},
      {"an ignored application", ignoring, 6, "com.example.vault", false, false},
      {"another application", ignoring, 6, "com.example.vault2", true, false},
  };
  for (const auto& row : rows) {
    ClipboardHistory history = historyOf({text(1, "a")});
    EXPECT_EQ(history.noticeChange(row.count, row.settings, row.frontmost), row.isRead) << row.name;
    EXPECT_EQ(history.lastChangeCount(), row.count) << row.name;
    EXPECT_EQ(history.currentItemID().has_value(), row.isCurrentKept) << row.name;
    EXPECT_FALSE(history.noticeChange(row.count, settings, {})) << row.name;
  }
}

TEST(ClipboardHistory, ItsOwnWriteIsNoNewCopy) {
  ClipboardHistory history = historyOf({text(2, "b"), text(1, "a")});
  EXPECT_EQ(history.currentItemID(), id(2)) << "at the start, the newest is what is on the pasteboard";
  history.noticeOwnWrite(6, id(1));
  EXPECT_FALSE(history.noticeChange(6, settings, {}));
  EXPECT_EQ(history.currentItemID(), id(1));
  EXPECT_EQ(numbers(history.library().items), (Numbers{2, 1}));
}

TEST(ClipboardHistory, AnAddedClipIsTheCurrentOneUnderItsOldIdentity) {
  ClipboardHistory history = historyOf({text(2, "b"), text(1, "a")});
  EXPECT_TRUE(history.add(text(3, "a", 9), settings).needsSave);
  EXPECT_EQ(history.currentItemID(), id(1));
  CaptureSettings none = settings;
  none.limit = 0;
  ClipboardHistory keepsNothing = historyOf({});
  keepsNothing.add(text(3, "a"), none);
  EXPECT_EQ(keepsNothing.currentItemID(), std::nullopt);
}

TEST(ClipboardHistory, PicturesOfEvictedItemsGoUnlessTheyAreUsed) {
  CaptureSettings two = settings;
  two.limit = 2;
  ClipItem twin = image(1, "used.png");
  twin.kind = ClipKind::text;  // another clip that names the same file
  ClipboardHistory history = historyOf({twin, image(2, "alone.png"), image(3, "used.png")});
  const auto effects = history.add(text(4, "new"), two);
  EXPECT_EQ(effects.unusedImages, (Names{"alone.png"}));
  EXPECT_EQ(numbers(history.library().items), (Numbers{4, 1}));
}

TEST(ClipboardHistory, NumbersTheFirstNinePins) {
  std::vector<ClipItem> items;
  for (int i = 1; i <= 12; ++i) items.push_back(i == 2 ? text(i, "free") : pinned(text(i, std::to_string(i))));
  const ClipboardHistory history = historyOf(items);
  EXPECT_EQ(history.pinNumber(id(1)), 1);
  EXPECT_EQ(history.pinNumber(id(2)), std::nullopt);
  EXPECT_EQ(history.pinNumber(id(3)), 2);
  EXPECT_EQ(history.pinNumber(id(10)), 9);
  EXPECT_EQ(history.pinNumber(id(11)), std::nullopt);
  EXPECT_EQ(history.pinnedItem(9)->id, id(10));
  for (const int number : {0, 10, -1}) EXPECT_EQ(history.pinnedItem(number), nullptr) << number;
  EXPECT_EQ(historyOf({pinned(text(1, "a"))}).pinnedItem(2), nullptr);
}

TEST(ClipboardHistory, PinsAndCollectionsToggle) {
  ClipboardHistory history = historyOf({text(1, "a")});
  EXPECT_TRUE(history.togglePin(id(1)).needsSave);
  EXPECT_TRUE(history.item(id(1))->isPinned);
  history.togglePin(id(1));
  EXPECT_FALSE(history.item(id(1))->isPinned);
  history.toggleCollection(id(1), id(70));
  EXPECT_TRUE(history.item(id(1))->collectionIDs.contains(id(70)));
  history.toggleCollection(id(1), id(70));
  EXPECT_TRUE(history.item(id(1))->collectionIDs.empty());
  EXPECT_FALSE(history.togglePin(id(9)).needsSave);
  EXPECT_FALSE(history.toggleCollection(id(9), id(70)).needsSave);
}

TEST(ClipboardHistory, CollectionsAreMadeRenamedAndDeleted) {
  ClipboardHistory history = historyOf({collected(text(1, "a"), 70)});
  EXPECT_TRUE(history.createCollection(id(71), " \tWork ").needsSave);
  EXPECT_FALSE(history.createCollection(id(72), " \t").needsSave);
  EXPECT_TRUE(history.createCollection(id(73), "\n").needsSave);
  EXPECT_TRUE(history.renameCollection(id(71), " Home ").needsSave);
  EXPECT_FALSE(history.renameCollection(id(99), "x").needsSave);
  EXPECT_TRUE(history.deleteCollection(id(70)).needsSave);
  const auto& library = history.library();
  EXPECT_EQ(library.collections, (std::vector<ClipCollection>{{id(71), " Home "}, {id(73), "\n"}}));
  ASSERT_EQ(library.items.size(), 1u);
  EXPECT_FALSE(library.items[0].isProtected());
}

TEST(ClipboardHistory, ADeletedCollectionComesBackWithItsItems) {
  ClipboardHistory history = historyOf({collected(text(2, "b"), 70), text(1, "a")});
  history.createCollection(id(71), "Notes");
  history.deleteCollection(id(70));
  EXPECT_TRUE(history.undoRemove().needsSave);
  EXPECT_EQ(history.library().collections.front(), (ClipCollection{id(70), "Recipes"}));
  EXPECT_EQ(history.item(id(2))->collectionIDs, std::set<UUID>{id(70)});
  EXPECT_FALSE(history.undoRemove().needsSave);
  // Only what was done last can be undone.
  history.deleteCollection(id(70));
  history.remove(std::vector{id(1)}, true);
  history.undoRemove();
  EXPECT_EQ(history.library().collections.size(), 1u);
  EXPECT_NE(history.item(id(1)), nullptr);
}

// Whatever is done, the steps that it names lead from one library to the next.
TEST(ClipboardHistory, ItsChangesAreAllThatHasChanged) {
  std::mt19937 random(7);
  const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  CaptureSettings five = settings;
  five.limit = 5;
  ClipboardHistory history = historyOf({});
  ClipboardLibrary saved = history.library();
  int steps = 0;
  for (int i = 0; i < 2000; ++i) {
    HistoryEffects effects;
    const int act = any(8);
    if (act < 4)
      effects = history.add(text(100 + i, std::to_string(any(12)), i), five);
    else if (!history.library().items.empty()) {
      const UUID chosen =
          history.library().items[static_cast<std::size_t>(any(static_cast<int>(history.library().items.size())))].id;
      effects = act == 4   ? history.togglePin(chosen)
                : act == 5 ? history.toggleCollection(chosen, id(70))
                : act == 6 ? history.remove(std::vector{chosen}, true)
                           : history.undoRemove();
    }
    if (!effects.needsSave) continue;
    if (effects.changes.empty())
      saved = history.library();
    else
      carryOut(effects.changes, saved), ++steps;
    ASSERT_EQ(saved, history.library()) << i;
  }
  EXPECT_GT(steps, 500);
}

TEST(ClipboardHistory, RemovedItemsComeBackBetweenTheirNeighbours) {
  ClipboardHistory history = historyOf({text(3, "c", 3), text(2, "b", 2), text(1, "a", 1)});
  EXPECT_TRUE(history.remove(std::vector{id(2), id(3), id(9)}, true).needsSave);
  EXPECT_EQ(history.undoableCount(), 2u);
  EXPECT_EQ(history.currentItemID(), std::nullopt);
  history.add(text(4, "d", 4), settings);
  EXPECT_TRUE(history.undoRemove().needsSave);
  EXPECT_EQ(numbers(history.library().items), (Numbers{4, 3, 2, 1}));
  EXPECT_EQ(history.undoableCount(), 0u);
  EXPECT_EQ(history.undoRemove(), HistoryEffects{});
}

TEST(ClipboardHistory, UndoMakesNoSecondClipOfContentThatWasCopiedAnew) {
  ClipboardHistory history = historyOf({pinned(text(1, "a", 1))});
  history.remove(std::vector{id(1)}, true);
  history.add(text(2, "a", 2), settings);
  history.undoRemove();
  EXPECT_EQ(numbers(history.library().items), (Numbers{2}));
  EXPECT_TRUE(history.library().items[0].isPinned);
}

TEST(ClipboardHistory, OnlyTheLatestBatchCanBeUndone) {
  ClipboardHistory history = historyOf({image(1, "one.png"), image(2, "two.png")});
  EXPECT_TRUE(history.remove(std::vector{id(1)}, true).unusedImages.empty());
  EXPECT_EQ(history.remove(std::vector{id(9)}, true), HistoryEffects{}) << "nothing removed ends no batch";
  EXPECT_EQ(history.undoableCount(), 1u);
  EXPECT_EQ(history.remove(std::vector{id(2)}, true).unusedImages, (Names{"one.png"}));
  EXPECT_EQ(history.usedImages(), (std::set<std::string>{"two.png"}));
  history.undoRemove();
  EXPECT_EQ(numbers(history.library().items), (Numbers{2}));
  history.remove(std::vector{id(2)}, true);
  EXPECT_EQ(history.endUndo(), (HistoryEffects{.needsSave = false, .unusedImages = {"two.png"}}));
  EXPECT_EQ(history.undoRemove(), HistoryEffects{});
}

TEST(ClipboardHistory, ClearingLeavesWhatIsProtected) {
  ClipboardHistory history =
      historyOf({image(1, "x.png"), pinned(text(2, "b")), collected(text(3, "c"), 70), text(4, "d")});
  const auto effects = history.clear();
  EXPECT_EQ(effects.unusedImages, (Names{"x.png"}));
  EXPECT_EQ(numbers(history.library().items), (Numbers{2, 3}));
  EXPECT_EQ(history.currentItemID(), std::nullopt);
  EXPECT_EQ(history.undoableCount(), 0u);
}

TEST(ClipboardHistory, SweepsAtMostEveryFiveMinutes) {
  CaptureSettings aging = settings;
  aging.maxAgeDays = 1;
  const double day = 86400;
  ClipboardHistory history = historyOf({text(3, "c", 400), text(2, "b", 200), text(1, "a", 0)});
  EXPECT_TRUE(history.sweep(at(day + 1), aging, isNeverSensitive).needsSave);
  EXPECT_EQ(numbers(history.library().items), (Numbers{3, 2}));
  EXPECT_FALSE(history.sweep(at(day + 301), aging, isNeverSensitive).needsSave);
  EXPECT_TRUE(history.sweep(at(day + 301.001), aging, isNeverSensitive).needsSave);
  EXPECT_EQ(numbers(history.library().items), (Numbers{3}));
  EXPECT_EQ(history.undoableCount(), 0u);
}

TEST(ClipboardHistory, AClockSetBackDoesNotStopTheSweeps) {
  int asked = 0;
  const auto isSensitive = [&](const ClipItem&) { return ++asked > 0; };
  ClipboardHistory history = historyOf({text(1, "a", -5000)});
  history.sweep(at(10'000), settings, isNeverSensitive);
  EXPECT_TRUE(history.sweep(at(0), settings, isSensitive).needsSave);
  EXPECT_EQ(asked, 1);
  CaptureSettings keeping = settings;
  keeping.forgetsSensitive = false;
  EXPECT_FALSE(historyOf({text(1, "a", -5000)}).sweep(at(10'000), keeping, isSensitive).needsSave);
}

}  // namespace
}  // namespace ambrel
