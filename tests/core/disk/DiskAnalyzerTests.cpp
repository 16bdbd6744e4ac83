#include <random>

#include "core/disk/DiskAnalyzer.h"
#include "tests/Matchers.h"
#include "tests/core/disk/SyntheticTree.h"
#include "tests/core/disk/Tree.h"

namespace ambrel {
namespace {

using test::daysBefore;
using test::FileEntry;
using test::findingOf;
using test::treeOf;

constexpr std::int64_t mega = 1'000'000, giga = 1'000'000'000;
const std::string home = "/home/nobody-here";
const Instant now = test::someDay;
const Instant longAgo = daysBefore(now, 500);
const Calendar calendar("UTC", "en_US");

std::vector<DiskFinding> analyze(const std::vector<FileEntry>& files,
                                 const std::vector<SimulatorRuntime>& runtimes = {},
                                 const DiskAnalyzer& analyzer = {}) {
  return analyzer.analyze(*treeOf(home, files), home, runtimes, now, calendar);
}

// For real files, which are small.
DiskAnalyzer sharpAnalyzer() {
  DiskAnalyzer analyzer;
  analyzer.duplicateMinBytes = analyzer.largeFileBytes = 55'000;
  return analyzer;
}

std::vector<std::string> pathsOf(const DiskFinding* finding) {
  std::vector<std::string> paths;
  if (finding)
    for (const CleanupItem& item : finding->items)
      paths.push_back(item.url.starts_with(home + "/") ? item.url.substr(home.size() + 1) : item.url);
  return paths;
}

// Files of that age, the first the largest.
std::vector<FileEntry> aged(double days, std::initializer_list<const char*> paths) {
  std::vector<FileEntry> files;
  for (const char* path : paths)
    files.push_back({path, (30 - std::ssize(files)) * mega, daysBefore(now, days), daysBefore(now, days)});
  return files;
}

std::vector<std::string> listed(const std::vector<FileEntry>& files, FindingRule rule) {
  const auto findings = analyze(files);
  return pathsOf(findingOf(findings, rule));
}

TEST(DeveloperCaches, BothTablesAreLookedUp) {
  auto files =
      aged(0, {".cargo/registry/cache/crate", "Library/Developer/Xcode/DerivedData/x", "Library/Caches/Homebrew/y",
               ".npm/_cacache/z", ".cache/pip/w", "Library/Developer/Xcode/Archives/a"});
  files.push_back({".gradle/caches/tiny", 900, now});
  const auto findings = analyze(files);
  const DiskFinding* finding = findingOf(findings, FindingRule::developerCaches);
  EXPECT_THAT(pathsOf(finding), ElementsAre(".cargo/registry/cache", "Library/Developer/Xcode/DerivedData",
                                            "Library/Caches/Homebrew", ".npm/_cacache", ".cache/pip"));
  EXPECT_EQ(finding->reason,
            "Build files and downloads that Xcode, npm and other tools make again when they need them.");
  for (const CleanupItem& item : finding->items) EXPECT_TRUE(item.contentsOnly && item.keeping.empty()) << item.url;
  EXPECT_EQ(finding->items[1].title, "DerivedData");
  EXPECT_EQ(finding->bytes(), 140 * mega);
}

TEST(AppCaches, LeaveOutWhatIsOfferedOnItsOwn) {
  const auto findings = analyze({{"Library/Caches/Homebrew/a", 4 * mega, now},
                                 {"Library/Caches/pip/b", 2 * mega, now},
                                 {"Library/Caches/com.app/c", 7 * mega, now}});
  const DiskFinding* finding = findingOf(findings, FindingRule::appCaches);
  ASSERT_TRUE(finding);
  ASSERT_EQ(finding->items.size(), 1u);
  const CleanupItem& item = finding->items.front();
  EXPECT_EQ(item.title, "App Caches");
  EXPECT_EQ(item.bytes, 7 * mega);
  EXPECT_THAT(item.keeping, UnorderedElementsAre("Homebrew", "Yarn", "pip", "CocoaPods"));
  EXPECT_TRUE(item.contentsOnly);
  EXPECT_THAT(listed({{"Library/Caches/pip/b", 2 * mega, now}}, FindingRule::appCaches), IsEmpty());
}

TEST(AppCaches, OfThisSystemAreItemsOfTheirOwn) {
  const auto findings = analyze(
      aged(0, {".cache/mozilla/a", ".var/app/org.gimp.GIMP/cache/e", ".cache/other/d", "snap/editor/common/.cache/g",
               ".cache/thumbnails/b", ".cache/uv/c", ".var/app/org.gimp.GIMP/data/f"}));
  const DiskFinding* finding = findingOf(findings, FindingRule::appCaches);
  EXPECT_THAT(pathsOf(finding), ElementsAre(".cache/mozilla", ".var/app/org.gimp.GIMP/cache", ".cache",
                                            "snap/editor/common/.cache", ".cache/thumbnails"));
  EXPECT_EQ(finding->items[1].title, "Flatpak Cache (org.gimp.GIMP)");
  const CleanupItem& rest = finding->items[2];
  EXPECT_EQ(rest.bytes, 28 * mega);
  for (const char* name : {"mozilla", "thumbnails", "uv", "pip", "go-build", "ccache", "chromium"})
    EXPECT_TRUE(rest.keeping.contains(name)) << name;
  EXPECT_THAT(pathsOf(findingOf(findings, FindingRule::developerCaches)), ElementsAre(".cache/uv"));
}

TEST(AppCaches, LeaveOutWhatTheScanPassedOver) {
  DiskAnalyzer rules;
  rules.excluded = {home + "/.cache/models/large", home + "/.cache/photos", home + "/.cacheless"};
  const auto findings = analyze(aged(0, {".cache/models/small", ".cache/other"}), {}, rules);
  const DiskFinding* finding = findingOf(findings, FindingRule::appCaches);
  ASSERT_TRUE(finding);
  EXPECT_TRUE(finding->items.front().keeping.contains("models"));
  EXPECT_TRUE(finding->items.front().keeping.contains("photos"));
  EXPECT_EQ(finding->bytes(), 29 * mega);
}

TEST(OldArchives, ByTheirExtensionAndAge) {
  const std::string base = "Library/Developer/Xcode/Archives/2025/";
  const auto findings = analyze({{base + "Shop 1.xcarchive/big", 5 * mega, daysBefore(now, 181)},
                                 {base + "Shop 2.xcarchive/big", 5 * mega, daysBefore(now, 180)},
                                 {base + "Inner.xcarchive/Deep.xcarchive/big", 5 * mega, daysBefore(now, 200)},
                                 {base + "notes/big", 5 * mega, longAgo}});
  const DiskFinding* finding = findingOf(findings, FindingRule::oldArchives);
  EXPECT_THAT(pathsOf(finding), UnorderedElementsAre(base + "Shop 1.xcarchive", base + "Inner.xcarchive"));
  EXPECT_EQ(finding->reason,
            "Archived builds from more than 180 days ago. Keep the ones of versions you still ship or debug.");
  std::vector<std::string> titles;
  for (const CleanupItem& item : finding->items) titles.push_back(item.title);
  EXPECT_THAT(titles, UnorderedElementsAre("Shop 1", "Inner"));
}

TEST(OldSimulatorRuntimes, TheNewestOfEachPlatformIsNeverListed) {
  using Row = std::tuple<const char*, const char*, std::optional<Instant>, bool>;
  std::vector<SimulatorRuntime> runtimes;
  for (const auto& [platform, version, lastUsed, isDeletable] :
       {Row{"iphonesimulator", "17.10", longAgo, true}, Row{"iphonesimulator", "17.2", longAgo, true},
        Row{"iphonesimulator", "16.4", {}, true}, Row{"iphonesimulator", "15.0", daysBefore(now, 180), true},
        Row{"iphonesimulator", "14.0", longAgo, false}, Row{"xrsimulator", "1.0", longAgo, true},
        Row{"xrsimulator", "2.0", longAgo, true}, Row{"toaster", "2", longAgo, true},
        Row{"toaster", "1", longAgo, true}})
    runtimes.push_back({.identifier = version,
                        .platform = std::string("com.apple.platform.") + platform,
                        .version = version,
                        .bytes = 7 * giga,
                        .lastUsed = lastUsed,
                        .isDeletable = isDeletable,
                        .path = std::string("/runtimes/") + version});
  const auto findings = analyze({}, runtimes);
  const DiskFinding* finding = findingOf(findings, FindingRule::oldSimulatorRuntimes);
  ASSERT_TRUE(finding);
  std::vector<std::string> titles;
  for (const CleanupItem& item : finding->items) titles.push_back(item.title);
  EXPECT_THAT(titles, ElementsAre("iOS 17.2", "iOS 16.4", "visionOS 1.0", "Simulator 1"));
  EXPECT_EQ(finding->items[1].modified, std::nullopt);
  EXPECT_EQ(finding->reason,
            "Older simulator versions you have not used for 180 days. Remove them in Xcode, Settings, Components.");
}

TEST(TrashRule, ListsBothPlacesAndIsNeverClaimedTwice) {
  const auto findings =
      analyze({{".Trash/a", 5 * mega, now}, {".local/share/Trash/files/b", 3 * giga, longAgo, longAgo}});
  const DiskFinding* finding = findingOf(findings, FindingRule::trash);
  EXPECT_THAT(pathsOf(finding), ElementsAre(".local/share/Trash", ".Trash"));
  for (const CleanupItem& item : finding->items) EXPECT_EQ(item.title, "Trash");
  EXPECT_EQ(finding->reason,
            "Items you already deleted. They take space until you empty the Trash. Tilebay never empties it for you.");
  EXPECT_EQ(findings.size(), 1u);
}

// Projects on a real disk, since their marker files are too small to be in the tree.
class StaleBuildFolders : public testing::Test {
 protected:
  std::vector<std::string> run() {
    const DiskTree root = DiskScanner{.minItemSize = 10'000}.scan(tree.path()).root;
    findings = DiskAnalyzer{}.analyze(*root, tree / "home", {}, now, calendar);
    std::vector<std::string> paths;
    if (const DiskFinding* finding = findingOf(findings, FindingRule::staleBuildFolders))
      for (const CleanupItem& item : finding->items) paths.push_back(item.url.substr(tree.path().size() + 1));
    return paths;
  }
  void project(const std::string& path, const std::string& marker, const std::string& build, double sourceDays,
               double buildDays = 500) {
    tree.fill(path + "/src/main", 20'000);
    tree.write(path + "/" + marker, "{}");
    tree.fill(path + "/" + build + "/output", 50'000);
    tree.dateAll(path, daysBefore(now, sourceDays));
    tree.dateAll(path + "/" + build, daysBefore(now, buildDays));
  }

  test::Tree tree;
  std::vector<DiskFinding> findings;
};

TEST_F(StaleBuildFolders, FourKindsWithTheirMarkers) {
  project("web", "package.json", "node_modules", 61);
  project("ios", "Podfile", "Pods", 61);
  project("swift", "Package.swift", ".build", 61);
  project("rust", "Cargo.toml", "target", 61);
  project("not-rust", "package.json", "target", 61);
  EXPECT_THAT(run(), UnorderedElementsAre("web/node_modules", "ios/Pods", "swift/.build", "rust/target"));
  const DiskFinding& finding = *findingOf(findings, FindingRule::staleBuildFolders);
  EXPECT_EQ(finding.reason,
            "Projects you have not changed for 60 days. Tools such as npm install or pod install make these folders "
            "again.");
  for (const CleanupItem& item : finding.items) {
    EXPECT_TRUE(item.identity) << item.url;
    EXPECT_EQ(item.modified, daysBefore(now, 61)) << item.url;
    EXPECT_EQ(item.url.ends_with("target"), item.title == "rust/target");
  }
}

TEST_F(StaleBuildFolders, TheSourcesTellTheAgeAndNotTheOutput) {
  project("old sources", "Cargo.toml", "target", 70, 1);
  project("new sources", "Cargo.toml", "target", 5, 400);
  project("on the day", "Cargo.toml", "target", 60, 400);
  EXPECT_THAT(run(), ElementsAre("old sources/target"));
}

TEST_F(StaleBuildFolders, AreNeitherListedNorEnteredWithoutTheirMarker) {
  tree.fill("loose/node_modules/pkg/node_modules/x", 50'000);
  tree.write("loose/node_modules/pkg/package.json", "{}");
  tree.dateAll("loose", longAgo);
  EXPECT_THAT(run(), IsEmpty());
  std::filesystem::create_directory(tree / "loose/package.json");
  EXPECT_THAT(run(), IsEmpty());
}

TEST_F(StaleBuildFolders, InProtectedFoldersAndPackagesAreLeftAlone) {
  project("home/.local/share/tool", "package.json", "node_modules", 500);
  project("home/Library/tool", "package.json", "node_modules", 500);
  project("Editor.app/Contents", "package.json", "node_modules", 500);
  project("home/code/tool", "package.json", "node_modules", 500);
  EXPECT_THAT(run(), ElementsAre("home/code/tool/node_modules"));
}

// An extension or an unpacked program holds such folders too, and no tool fills them again.
TEST_F(StaleBuildFolders, AreSafeOnlyWhereAToolMakesThemAgain) {
  struct Case {
    std::string path, file, package;
    bool isSafe;
  };
  const std::string extension = R"({"engines":{"vscode":"^1.60.0"}})";
  const Case cases[] = {{"home/code/locked", "package-lock.json", "{}", true},
                        {"home/code/own extension", ".git/HEAD", extension, true},
                        {"home/code/many/.git", "HEAD", "", true},
                        {"home/code/many/web", "src/a", "{}", true},
                        {"home/code/bare", "src/a", "{}", false},
                        {"home/.editor/extensions/lint", "package-lock.json", extension, false},
                        {"home/portable/extensions/lint", "yarn.lock", extension, false},
                        {"home/Chat/resources/app", "package-lock.json", "{}", false}};
  tree.write("home/.git", "of the user's dotfiles");
  for (const Case& c : cases) {
    tree.write(c.path + "/" + c.file, "");
    if (c.package.empty()) continue;
    project(c.path, "package.json", "node_modules", 500);
    tree.write(c.path + "/package.json", c.package);
    tree.dateAll(c.path, longAgo);
  }
  project("home/.editor/native", "Cargo.toml", "target", 500);
  run();
  std::set<std::string> safe, doubtful;
  for (const CleanupItem& item : findingOf(findings, FindingRule::staleBuildFolders)->items) {
    EXPECT_EQ(item.detail.empty(), !item.ownRisk) << item.url;
    (item.ownRisk ? doubtful : safe).insert(item.url.substr(tree.path().size() + 1));
  }
  std::set<std::string> expected;
  for (const Case& c : cases)
    if (c.isSafe && !c.package.empty()) expected.insert(c.path + "/node_modules");
  EXPECT_EQ(safe, expected);
  EXPECT_EQ(doubtful.size(), 5u);
  EXPECT_TRUE(doubtful.contains("home/.editor/native/target"));
}

// The only live copy would go, and the other one when the Trash is emptied.
TEST(Trashes, HoldNoCopiesAndNothingToFind) {
  test::Tree tree;
  tree.folder("home/.local/share/Trash/info");
  for (const char* path : {"home/film.mov", "home/.Trash-1000/files/film.mov", "home/data/Trash/files/film.mov",
                           "home/shared/.Trash/1000/files/film.mov"})
    tree.fill(path, 60'000);
  tree.folder("home/data/Trash/info");
  tree.fill("home/.local/share/Trash/files/film.mov", 60'000);
  tree.dateAll("home", longAgo);
  tree.date("home/film.mov", daysBefore(now, 100));
  const auto found = [&](const std::string& place, FindingRule rule) {
    const auto findings =
        sharpAnalyzer().analyze(*DiskScanner{}.scan(tree / place).root, tree / "home", {}, now, calendar);
    return pathsOf(findingOf(findings, rule));
  };
  EXPECT_THAT(found("home", FindingRule::duplicates), IsEmpty());
  EXPECT_THAT(found("home", FindingRule::largeOldFiles), ElementsAre(tree / "home/film.mov"));
  for (const char* place : {"home/.local/share/Trash", "home/data/Trash/files", "home/shared/.Trash/1000/files"})
    EXPECT_THAT(found(place, FindingRule::largeOldFiles), IsEmpty()) << place;
}

// It stays for the sake of its copies, however large and old it is.
TEST(Duplicates, TheKeptCopyIsNotOfferedByAnotherRule) {
  test::Tree tree;
  for (const char* path : {"one.mov", "two.mov", "three.mov"}) {
    tree.fill(path, 60'000);
    tree.date(path, longAgo);
  }
  tree.fill("other.mov", 70'000);
  tree.date("other.mov", longAgo);
  const auto findings = sharpAnalyzer().analyze(*DiskScanner{}.scan(tree.path()).root, home, {}, now, calendar);
  EXPECT_THAT(pathsOf(findingOf(findings, FindingRule::duplicates)),
              UnorderedElementsAre(tree / "three.mov", tree / "two.mov"));
  EXPECT_THAT(pathsOf(findingOf(findings, FindingRule::largeOldFiles)), ElementsAre(tree / "other.mov"));
}

TEST_F(StaleBuildFolders, AFileInOneIsNotOfferedAgain) {
  project("web", "package.json", "node_modules", 100);
  tree.fill("web/node_modules/huge.bin", 60'000);
  tree.fill("copy of huge.bin", 60'000);
  tree.dateAll("web", longAgo);
  const DiskTree root = DiskScanner{.minItemSize = 10'000}.scan(tree.path()).root;
  findings = sharpAnalyzer().analyze(*root, tree / "home", {}, now, calendar);
  EXPECT_THAT(pathsOf(findingOf(findings, FindingRule::staleBuildFolders)), ElementsAre(tree / "web/node_modules"));
  EXPECT_FALSE(findingOf(findings, FindingRule::duplicates));
  EXPECT_FALSE(findingOf(findings, FindingRule::largeOldFiles));
}

TEST(OldInstallers, ByExtensionAndAgeBelowDownloads) {
  auto files = aged(31, {"Downloads/f.deb", "Downloads/sub/B.PKG", "Downloads/a.dmg", "Downloads/d.tar.gz",
                         "Downloads/Tool.app/e.zip", "Downloads/zip", "Downloads/.xip", "Documents/g.dmg"});
  files.push_back({"Downloads/c.zip", 4 * mega, daysBefore(now, 30)});
  files.push_back({"Downloads/h.mpkg", 900, daysBefore(now, 31)});
  EXPECT_THAT(listed(files, FindingRule::oldInstallers),
              ElementsAre("Downloads/f.deb", "Downloads/sub/B.PKG", "Downloads/a.dmg"));
}

TEST(OldScreenshots, DirectlyOnTheDesktop) {
  auto files =
      aged(31, {"Desktop/Screen Recording.mov", "Desktop/Screen Shot 1.png", "Desktop/Screenshot 2026-01-01.png",
                "Desktop/My Screenshot.png", "Desktop/folder/Screenshot.png"});
  files.push_back({"Desktop/Screenshot new.png", 5 * mega, daysBefore(now, 30)});
  EXPECT_THAT(
      listed(files, FindingRule::oldScreenshots),
      ElementsAre("Desktop/Screen Recording.mov", "Desktop/Screen Shot 1.png", "Desktop/Screenshot 2026-01-01.png"));
}

TEST(LargeOldFiles, ByTheLaterOfChangeAndOpening) {
  const Instant old = daysBefore(now, 91), limit = daysBefore(now, 90);
  const auto findings = analyze({{"a.iso", giga, old, old},
                                 {"b.mov", 3 * giga, old, {}},
                                 {"c.mov", giga - 1, old, old},
                                 {"opened.mov", 2 * giga, longAgo, daysBefore(now, 7)},
                                 {"changed.mov", 2 * giga, daysBefore(now, 7), longAgo},
                                 {"limit.mov", 2 * giga, limit, limit},
                                 {".config/vm.img", 9 * giga, longAgo, longAgo},
                                 {".local/share/vm.img", 9 * giga, longAgo, longAgo},
                                 {"Library/vm.img", 9 * giga, longAgo, longAgo},
                                 {"Editor.app/data", 9 * giga, longAgo, longAgo}});
  const DiskFinding* finding = findingOf(findings, FindingRule::largeOldFiles);
  EXPECT_THAT(pathsOf(finding), ElementsAre("b.mov", "a.iso"));
  EXPECT_EQ(finding->items[0].modified, old);
  EXPECT_EQ(finding->reason, "Files over 1 GB that nobody opened for 90 days. Only you know if you still need them.");
}

TEST(DiskAnalyzer, ThresholdsAppearInReasonsAsWholeNumbers) {
  DiskAnalyzer analyzer;
  analyzer.installerDays = 7.5;
  analyzer.largeFileBytes = 2'500'000;
  analyzer.largeFileDays = 10;
  const auto findings =
      analyze({{"Downloads/a.zip", 2 * mega, daysBefore(now, 8)}, {"b", 3 * mega, longAgo}}, {}, analyzer);
  EXPECT_EQ(findingOf(findings, FindingRule::oldInstallers)->reason,
            "Disk images, installers and archives you downloaded more than 7 days ago. You can download them again.");
  EXPECT_EQ(findingOf(findings, FindingRule::largeOldFiles)->reason,
            "Files over 2.5 MB that nobody opened for 10 days. Only you know if you still need them.");
}

TEST(DiskAnalyzer, AFolderOutsideTheScanIsNotLookedUp) {
  const DiskTree tree = treeOf("/mnt/data", {{"Downloads/a.dmg", 2 * mega, longAgo}, {".cache/x", 2 * mega, longAgo}});
  EXPECT_THAT(DiskAnalyzer{}.analyze(*tree, home, {}, now, calendar), IsEmpty());
  const DiskTree cache = treeOf(home + "/.cache", {{"huge.bin", 5 * giga, longAgo, longAgo}});
  EXPECT_FALSE(findingOf(DiskAnalyzer{}.analyze(*cache, home, {}, now, calendar), FindingRule::largeOldFiles))
      << "nothing of a protected folder is walked";
}

TEST(DiskAnalyzer, StopsWhenAsked) {
  std::stop_source stop;
  stop.request_stop();
  EXPECT_THROW(
      DiskAnalyzer{}.analyze(*treeOf(home, {}), home, {}, now, calendar, {.stop = stop.get_token(), .progress = {}}),
      Cancelled);
}

// Over random homes: no path is listed twice, none is in one that is listed unless that one leaves it in its place,
// and nothing protected is listed by a walking rule.
TEST(DiskAnalyzer, NoByteIsOfferedTwiceAndNothingProtectedIsListed) {
  const std::vector<std::string> folders{"Downloads", "Desktop", "Library/Caches/pip", "Library/Caches/x", ".cache/pip",
                                         ".cache/mozilla", ".cache/y", ".config/z",
                                         // What rules name.
                                         ".local/share/Trash/files", ".local/share/app", ".npm/_cacache",
                                         "go/pkg/mod/cache/download", "code/web", ".var/app/a.b.C/cache", "Pictures",
                                         "Library/Developer/Xcode/DerivedData",
                                         "Library/Developer/Xcode/Archives/a.xcarchive", ".Trash", ".m2/repository"};
  const std::vector<std::string> names{"a.zip", "b.iso", "Screenshot 1.png", "c.mov", "d", "x.dmg"};
  const auto isProtected = [&](const std::string& path) {
    for (const std::string& folder : protectedPaths(home))
      if (isWithin(path, folder)) return true;
    return false;
  };
  for (unsigned seed = 1; seed <= 200; ++seed) {
    std::mt19937 random(seed);
    std::vector<FileEntry> files;
    std::set<std::string> used;
    for (int i = 0; i < 40; ++i) {
      const std::string path = folders[random() % folders.size()] + "/" + names[random() % names.size()];
      if (used.insert(path).second)
        files.push_back({path, static_cast<std::int64_t>(random() % 3000) * mega, daysBefore(now, random() % 400),
                         daysBefore(now, random() % 400)});
    }
    std::map<std::string, const CleanupItem*> seen;
    const auto findings = analyze(files);
    for (const DiskFinding& finding : findings) {
      const bool walks = finding.rule == FindingRule::largeOldFiles || finding.rule == FindingRule::duplicates ||
                         finding.rule == FindingRule::staleBuildFolders;
      for (const CleanupItem& item : finding.items) {
        EXPECT_GT(item.bytes, 0);
        EXPECT_TRUE(seen.emplace(item.url, &item).second) << seed << " " << item.url;
        EXPECT_FALSE(walks && isProtected(item.url)) << seed << " " << item.url;
      }
    }
    for (const auto& [path, item] : seen)
      for (const auto& [other, folder] : seen) {
        if (path == other || !isWithin(path, other)) continue;
        const std::string below = path.substr(other.size() + 1);
        EXPECT_TRUE(folder->contentsOnly && folder->keeping.contains(below.substr(0, below.find('/'))))
            << seed << " " << path << " in " << other;
      }
  }
}

}  // namespace
}  // namespace ambrel
