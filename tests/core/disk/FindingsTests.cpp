#include "core/disk/DiskAnalyzer.h"
#include "core/disk/FindingSelection.h"
#include "core/disk/Findings.h"
#include "core/disk/UserFolders.h"
#include "tests/Matchers.h"
#include "tests/core/disk/SomeFindings.h"

namespace ambrel {
namespace {

using Extent = FindingSelection::Extent;
using test::findings;
using test::item;

TEST(CleanupTargets, TableRowsAreWholeAndTheirPathsRelative) {
  std::set<std::string_view> ids, paths;
  for (const auto& table :
       {cleanupTargets(), packageManagerTargets(), linuxDeveloperTargets(), linuxApplicationTargets()})
    for (const CleanupTarget& row : table) {
      EXPECT_TRUE(ids.insert(row.id).second) << row.id;
      EXPECT_TRUE(paths.insert(row.relativePath).second) << row.relativePath;
      EXPECT_FALSE(row.title.empty() || row.detail.empty() || row.symbol.empty()) << row.id;
      EXPECT_FALSE(row.relativePath.starts_with('/') || row.relativePath.ends_with('/')) << row.id;
    }
  // What is offered on its own stays when the rest of the cache folder goes; only a direct child can be named so.
  constexpr std::string_view cache = ".cache/";
  for (const auto& table : {linuxDeveloperTargets(), linuxApplicationTargets()})
    for (const CleanupTarget& row : table)
      EXPECT_TRUE(!row.relativePath.starts_with(cache) ||
                  row.relativePath.find('/', cache.size()) == std::string_view::npos)
          << row.id;
}

TEST(NumericComparison, RunsOfDigitsCompareByValue) {
  using Row = std::pair<const char*, const char*>;
  for (const auto& [smaller, greater] :
       {Row{"17.2", "17.10"}, Row{"9", "10"}, Row{"1.0", "1.0.1"}, Row{"1.0-beta2", "1.0-beta10"}, Row{"", "1"},
        Row{"99999999999999999999", "100000000000000000000"}}) {
    EXPECT_LT(compareNumerically(smaller, greater), 0) << smaller;
    EXPECT_GT(compareNumerically(greater, smaller), 0) << smaller;
  }
  EXPECT_EQ(compareNumerically("17.02", "17.2"), 0);
  EXPECT_EQ(compareNumerically("", ""), 0);
}

TEST(SimulatorRuntimes, ParsedFromTheToolsList) {
  const auto runtimes = DiskAnalyzer::parseRuntimes(R"({
    "0A1B": {"identifier": "a", "version": "17.2", "platformIdentifier": "com.apple.platform.iphonesimulator",
             "sizeBytes": 7000000000, "lastUsedAt": "2026-01-02T03:04:05Z", "deletable": true,
             "runtimeBundlePath": "/runtimes/a", "path": "/images/a"},
    "0A1C": {"identifier": "b", "version": "17.3", "path": "/images/b"},
    "0A1D": {"identifier": "c"},
    "0A1E": {"version": "1"},
    "0A1F": "nonsense", "0A20": null, "0A21": [],
    "0A22": {"identifier": "d", "version": "2", "sizeBytes": "much", "lastUsedAt": "yesterday", "deletable": "yes"}
  })");
  ASSERT_EQ(runtimes.size(), 3u);
  EXPECT_EQ(runtimes[0], (SimulatorRuntime{.identifier = "a",
                                           .platform = "com.apple.platform.iphonesimulator",
                                           .version = "17.2",
                                           .bytes = 7'000'000'000,
                                           .lastUsed = parseISO8601("2026-01-02T03:04:05Z"),
                                           .isDeletable = true,
                                           .path = "/runtimes/a"}));
  EXPECT_EQ(runtimes[1].path, "/images/b");
  EXPECT_EQ(runtimes[2].bytes, 0);
  EXPECT_EQ(runtimes[2].lastUsed, std::nullopt);
  EXPECT_FALSE(runtimes[2].isDeletable);
  for (const std::string_view text :
       {"", "{", "[]", "null", "12", "\"x\"", "[{\"identifier\":\"a\",\"version\":\"1\"}]", "\xff"})
    EXPECT_THAT(DiskAnalyzer::parseRuntimes(text), IsEmpty()) << text;
}

TEST(UserFolders, ReadTheDesktopsOwnNames) {
  const UserFolders folders = parseUserFolders(
      "# made by a tool\n"
      "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
      "XDG_DOWNLOAD_DIR=\"$HOME/Meine \\\"Sachen\\\"\"\n"
      "  XDG_PICTURES_DIR=\"/home/u/Bilder/\"  \n"
      "XDG_MUSIC_DIR=\"$HOME/\"\n"
      "XDG_VIDEOS_DIR=\"/mnt/videos\"\n"
      "XDG_TEMPLATES_DIR=$HOME/unquoted\n"
      "nonsense\nXDG_\nXDG_X=\"\n",
      "/home/u");
  EXPECT_THAT(folders.desktop, ElementsAre("/home/u/Desktop", "/home/u/Schreibtisch"));
  EXPECT_THAT(folders.downloads, ElementsAre("/home/u/Downloads", "/home/u/Meine \"Sachen\""));
  EXPECT_THAT(folders.all, ElementsAre("/home/u/Schreibtisch", "/home/u/Meine \"Sachen\"", "/home/u/Bilder"));
}

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
