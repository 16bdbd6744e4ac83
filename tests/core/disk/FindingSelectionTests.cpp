#include "core/disk/FindingSelection.h"
#include "tests/Matchers.h"
#include "tests/core/disk/SomeFindings.h"

namespace ambrel {
namespace {

using Extent = FindingSelection::Extent;

using test::findings;
using test::item;

struct FindingSelectionTest : testing::Test {
  FindingSelection selection;
  FindingSelectionTest() { selection.setFindings(findings()); }

  Extent extentOf(FindingGroup group) const {
    for (const GroupedFindings& entry : grouped(selection.findings()))
      if (entry.group == group) return selection.extent(entry.findings);
    return Extent::none;
  }
};

TEST_F(FindingSelectionTest, GroupsAndRulesHaveTheirOrderWhateverThatOfTheFindings) {
  std::vector<std::string> order;
  for (const GroupedFindings& entry : grouped(selection.findings())) {
    order.push_back(groupID(entry.group));
    for (const DiskFinding* finding : entry.findings) order.push_back(ruleID(finding->rule));
  }
  EXPECT_THAT(order, ElementsAre("group:developerJunk", "rule:developerCaches", "rule:appCaches", "group:bigOldFiles",
                                 "rule:largeOldFiles", "group:trash", "rule:trash", "group:ungrouped",
                                 "rule:oldSimulatorRuntimes"));
}

TEST_F(FindingSelectionTest, AGroupOrRuleMeansAllItsItems) {
  EXPECT_TRUE(selection.select("/home/u/.npm", true));
  EXPECT_EQ(extentOf(FindingGroup::developerJunk), Extent::some);
  EXPECT_EQ(selection.bytes(), 20);
  EXPECT_TRUE(selection.select("group:developerJunk", true));
  EXPECT_EQ(extentOf(FindingGroup::developerJunk), Extent::all);
  EXPECT_EQ(selection.items().size(), 3u);
  EXPECT_TRUE(selection.select("rule:appCaches", false));
  EXPECT_FALSE(selection.select("rule:appCaches", false));
  EXPECT_EQ(extentOf(FindingGroup::developerJunk), Extent::some);
  EXPECT_EQ(selection.movableCount(), 4u);
}

TEST_F(FindingSelectionTest, WhatNoRuleMovesCannotBeChosen) {
  for (const char* id : {"", "/", "/home/u", "/home/u/.Trash", "/runtimes/17", "group:trash", "rule:trash",
                         "group:", "group:ungrouped", "reason:developerCaches"})
    EXPECT_FALSE(selection.select(id, true)) << id;
  EXPECT_THAT(selection.paths(), ElementsAre());
}

TEST_F(FindingSelectionTest, OnlyWhatIsSafeIsChosenAtOnce) {
  EXPECT_TRUE(selection.hasSafeItems());
  selection.selectSafe();
  EXPECT_THAT(selection.paths(), ElementsAre("/home/u/.cargo", "/home/u/.npm"));
  // One that needs more care than its rule says is left out.
  auto list = findings();
  list[1].items[1].ownRisk = CleanupRisk::review;
  selection.setFindings(list);
  EXPECT_THAT(selection.paths(), ElementsAre());
  selection.selectSafe();
  EXPECT_THAT(selection.paths(), ElementsAre("/home/u/.npm"));
}

TEST_F(FindingSelectionTest, AReportLeavesWhatIsLeft) {
  for (const char* id : {"rule:developerCaches", "rule:largeOldFiles", "rule:appCaches"}) selection.select(id, true);
  DiskAdvice::TrashReport report{.moved = {item("/home/u/film.mkv", 900)}, .failed = {}, .bytesMoved = 915};
  report.failed = {item("/home/u/.npm", 5), item("/home/u/.cache", 0)};
  report.failed[0].stayed = StayReason::diskFull;
  report.failed[1].stayed = StayReason::gone;
  selection.takeReport(report);
  // What is left is not chosen any more; what was not asked for still is.
  EXPECT_THAT(selection.paths(), ElementsAre("/home/u/.cargo"));
  EXPECT_EQ(DiskAdvice::freeableBytes(selection.findings()), 15);
  ASSERT_EQ(selection.findings().size(), 3u);
  const std::vector<CleanupItem>& left = selection.findings().front().items;
  ASSERT_EQ(left.size(), 2u);
  // Largest first.
  EXPECT_EQ(left[1].url, "/home/u/.npm");
  EXPECT_EQ(left[1].stayed, StayReason::diskFull);
}

}  // namespace
}  // namespace ambrel
