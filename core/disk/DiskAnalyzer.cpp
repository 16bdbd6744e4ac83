#include "core/disk/DiskAnalyzer.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <unordered_set>

#include "core/base/LocalText.h"
#include "core/base/Text.h"
#include "core/disk/BuildFolders.h"
#include "core/disk/Duplicates.h"
#include "core/disk/Handles.h"
#include "core/disk/TrashFolders.h"
#include "core/disk/UserFolders.h"

namespace ambrel {
namespace {

using Kind = DiskItem::Kind;

const std::set<std::string, std::less<>> installerExtensions{"dmg", "pkg", "mpkg", "zip", "xip",
                                                             // This system's own.
                                                             "deb", "rpm", "iso"};

std::string_view extensionOf(std::string_view name) {
  const auto dot = name.rfind('.');
  return dot == name.npos || dot == 0 ? std::string_view{} : name.substr(dot + 1);
}

std::optional<Instant> known(Instant date) { return date == distantPast ? std::nullopt : std::optional(date); }

// Visits `start` and what is below it, parents first. visit(node, path) tells whether to enter the node. Folded
// nodes are passed over.
template <typename Visit>
void walk(const DiskItem& start, const Visit& visit) {
  struct Step {
    const DiskItem* node;
    std::size_t parentLength;
  };
  std::string path = standardizedPath(start.url());
  if (!visit(start, path)) return;
  std::vector<Step> pending;
  const auto enter = [&](const DiskItem& node) {
    const auto children = node.children();
    for (auto it = children.rbegin(); it != children.rend(); ++it)
      if (it->kind() != Kind::smallItems) pending.push_back({&*it, path.size()});
  };
  enter(start);
  while (!pending.empty()) {
    const Step step = pending.back();
    pending.pop_back();
    path.resize(step.parentLength);
    if (!path.ends_with('/')) path += '/';
    path += step.node->name();
    if (visit(*step.node, path)) enter(*step.node);
  }
}

// A target's folders in the tree; `place` is what a "*" in its path stood for.
struct FoundTarget {
  const DiskItem* node;
  std::string place;
};

class Analysis {
 public:
  Analysis(const DiskAnalyzer& settings, const DiskItem& root, const std::string& home, Instant now,
           const Calendar& calendar, const AnalysisControl& control)
      : settings_(settings),
        root_(root),
        home_(standardizedPath(home)),
        now_(now),
        calendar_(calendar),
        control_(control),
        protected_(protectedPaths(home_)),
        userFolders_(readUserFolders(home_)),
        trashes_(home_),
        isInTrash_(trashes_.holds(root.url())) {}

  std::vector<DiskFinding> run(const std::vector<SimulatorRuntime>& runtimes) {
    developerCaches();
    appCaches();
    oldArchives();
    oldSimulatorRuntimes(runtimes);
    trash();
    staleBuildFolders();
    oldInstallers();
    oldScreenshots();
    duplicates();
    largeOldFiles();
    return std::move(findings_);
  }

 private:
  const DiskItem* inHome(std::string_view relativePath) const { return find(root_, joinedPath(home_, relativePath)); }

  std::vector<FoundTarget> found(const CleanupTarget& target) const {
    const auto star = target.relativePath.find("/*/");
    if (star == std::string_view::npos) {
      const DiskItem* node = inHome(target.relativePath);
      return node ? std::vector{FoundTarget{node, {}}} : std::vector<FoundTarget>{};
    }
    std::vector<FoundTarget> all;
    const DiskItem* folder = inHome(target.relativePath.substr(0, star));
    if (!folder) return all;
    for (const DiskItem& child : folder->children())
      if (const DiskItem* node = find(child, joinedPath(child.url(), target.relativePath.substr(star + 3))))
        all.push_back({node, std::string(child.name())});
    return all;
  }

  bool isBarred(const DiskItem& node, const std::string& path) const {
    return isInTrash_ || protected_.contains(path) || claims_.contains(path) || trashes_.isTrash(node, path);
  }
  // Also when a folder above is claimed.
  bool isClaimed(std::string path) const {
    for (; path.size() > 1; path.resize(std::max<std::size_t>(path.rfind('/'), 1)))
      if (claims_.contains(path)) return true;
    return false;
  }
  Instant cutoff(double days) const { return advanced(now_, Seconds(-days * 86400)); }
  void stopIfAsked() const {
    if (control_.stop.stop_requested()) throw Cancelled();
  }

  CleanupItem item(const DiskItem& node, std::string title) const {
    return {.url = node.url(), .title = std::move(title), .bytes = node.size(), .modified = known(node.modified())};
  }
  CleanupItem contents(const CleanupTarget& target, const FoundTarget& found) const {
    CleanupItem entry = item(*found.node, std::string(target.title));
    if (!found.place.empty()) entry.title += " (" + found.place + ")";
    entry.contentsOnly = true;
    entry.detail = target.detail;
    ambrel::leaveOut(entry, settings_.excluded, root_);
    return entry;
  }

  void add(FindingRule rule, std::vector<CleanupItem> items, std::string reason) {
    stopIfAsked();
    std::erase_if(items, [](const CleanupItem& entry) { return entry.bytes <= 0; });
    if (items.empty()) return;
    std::stable_sort(items.begin(), items.end(),
                     [](const CleanupItem& a, const CleanupItem& b) { return a.bytes > b.bytes; });
    for (CleanupItem& entry : items) {
      claims_.insert(entry.url);
      if (!entry.identity && isMovable(rule)) entry.identity = identityOf(entry.url);
    }
    findings_.push_back({.rule = rule, .items = std::move(items), .reason = std::move(reason)});
  }

  void developerCaches() {
    std::vector<CleanupItem> items;
    const auto take = [&](std::span<const CleanupTarget> targets) {
      for (const CleanupTarget& target : targets) {
        if (target.id == "appCaches") continue;
        for (const FoundTarget& place : found(target)) {
          items.push_back(contents(target, place));
          if (target.kind == CleanupTarget::Kind::review) items.back().ownRisk = CleanupRisk::review;
        }
      }
    };
    // Those of the first table that are worth a look have rules of their own.
    std::vector<CleanupTarget> rebuilt;
    for (const CleanupTarget& target : cleanupTargets())
      if (target.kind == CleanupTarget::Kind::rebuildable) rebuilt.push_back(target);
    take(rebuilt);
    take(packageManagerTargets());
    take(linuxDeveloperTargets());
    add(FindingRule::developerCaches, std::move(items),
        "Build files and downloads that Xcode, npm and other tools make again when they need them.");
  }

  // The folder without those of `others` that are directly in it and are offered on their own.
  void leaveOut(CleanupItem& entry, std::string_view relativePath, std::span<const CleanupTarget> others) const {
    const std::string prefix = std::string(relativePath) + "/";
    for (const CleanupTarget& other : others)
      if (other.relativePath.starts_with(prefix)) ambrel::leaveOut(entry, joinedPath(home_, other.relativePath), root_);
  }

  void appCaches() {
    std::vector<CleanupItem> items;
    for (const CleanupTarget& target : cleanupTargets()) {
      if (target.id != "appCaches") continue;
      for (const FoundTarget& place : found(target)) {
        items.push_back(contents(target, place));
        leaveOut(items.back(), target.relativePath, packageManagerTargets());
      }
    }
    for (const CleanupTarget& target : linuxApplicationTargets())
      for (const FoundTarget& place : found(target)) {
        items.push_back(contents(target, place));
        leaveOut(items.back(), target.relativePath, linuxDeveloperTargets());
        leaveOut(items.back(), target.relativePath, linuxApplicationTargets());
      }
    add(FindingRule::appCaches, std::move(items),
        "Files apps keep to start faster. Apps make them again. Quit large apps first.");
  }

  void oldArchives() {
    std::vector<CleanupItem> items;
    if (const DiskItem* folder = inHome("Library/Developer/Xcode/Archives"))
      walk(*folder, [&](const DiskItem& node, const std::string&) {
        if (&node != folder && node.hasChildren() && asciiLower(extensionOf(node.name())) == "xcarchive" &&
            node.modified() < cutoff(settings_.archiveDays))
          items.push_back(item(node, std::string(node.name().substr(0, node.name().rfind('.')))));
        return &node == folder || node.kind() == Kind::folder;
      });
    add(FindingRule::oldArchives, std::move(items),
        fmt::format("Archived builds from more than {} days ago. Keep the ones of versions you still ship or debug.",
                    wholeDays(settings_.archiveDays)));
  }

  void oldSimulatorRuntimes(const std::vector<SimulatorRuntime>& runtimes) {
    static const std::map<std::string_view, std::string_view> labels{{"com.apple.platform.iphonesimulator", "iOS"},
                                                                     {"com.apple.platform.watchsimulator", "watchOS"},
                                                                     {"com.apple.platform.appletvsimulator", "tvOS"},
                                                                     {"com.apple.platform.xrsimulator", "visionOS"}};
    std::map<std::string_view, const SimulatorRuntime*> newest;
    for (const SimulatorRuntime& runtime : runtimes) {
      const SimulatorRuntime*& best = newest[runtime.platform];
      if (!best || compareNumerically(runtime.version, best->version) > 0) best = &runtime;
    }
    std::vector<CleanupItem> items;
    for (const SimulatorRuntime& runtime : runtimes) {
      if (!runtime.isDeletable || newest[runtime.platform]->identifier == runtime.identifier) continue;
      if (runtime.lastUsed && *runtime.lastUsed >= cutoff(settings_.runtimeDays)) continue;
      const auto entry = labels.find(runtime.platform);
      const std::string platform(entry == labels.end() ? "Simulator" : entry->second);
      items.push_back({.url = runtime.path,
                       .title = platform + " " + runtime.version,
                       .bytes = runtime.bytes,
                       .modified = runtime.lastUsed});
    }
    add(FindingRule::oldSimulatorRuntimes, std::move(items),
        fmt::format(
            "Older simulator versions you have not used for {} days. Remove them in Xcode, Settings, Components.",
            wholeDays(settings_.runtimeDays)));
  }

  void trash() {
    std::vector<CleanupItem> items;
    for (const std::string_view place : {".Trash", ".local/share/Trash"})
      if (const DiskItem* node = inHome(place)) items.push_back(item(*node, "Trash"));
    add(FindingRule::trash, std::move(items),
        "Items you already deleted. They take space until you empty the Trash. Tilebay never empties it for you.");
  }

  // When the sources of a project last changed: its build folders do not count.
  static Instant newestSource(const DiskItem& project) {
    Instant newest = distantPast;
    for (const DiskItem& child : project.children())
      if (!projectMarker(child.name())) newest = std::max(newest, child.modified());
    return newest;
  }

  void staleBuildFolders() {
    std::vector<CleanupItem> items;
    const auto test = [&](const DiskItem& folder, std::string_view marker) {
      const DiskItem* project = folder.parent();
      if (!project) return;
      const auto proof = fileStatus(joinedPath(project->url(), marker));
      if (!proof || !proof->isRegular) return;
      const Instant newest = newestSource(*project);
      if (newest >= cutoff(settings_.staleProjectDays)) return;
      items.push_back(item(folder, std::string(project->name()) + "/" + std::string(folder.name())));
      items.back().modified = known(newest);
      items.back().detail = doubtAbout(project->url(), folder.name(), home_);
      if (!items.back().detail.empty()) items.back().ownRisk = CleanupRisk::review;
    };
    walk(root_, [&](const DiskItem& node, const std::string& path) {
      if (node.kind() != Kind::folder || isBarred(node, path)) return false;
      const auto marker = projectMarker(node.name());
      if (marker) test(node, *marker);
      return !marker;
    });
    add(FindingRule::staleBuildFolders, std::move(items),
        fmt::format("Projects you have not changed for {} days. Tools such as npm install or pod install make these "
                    "folders again.",
                    wholeDays(settings_.staleProjectDays)));
  }

  void oldInstallers() {
    std::vector<CleanupItem> items;
    std::set<std::string> seen;
    for (const std::string& downloads : userFolders_.downloads)
      if (const DiskItem* folder = find(root_, downloads); folder && !isClaimed(downloads))
        walk(*folder, [&](const DiskItem& node, const std::string& path) {
          // One of the folders may be inside the other.
          if (claims_.contains(path) || !seen.insert(path).second) return false;
          if (node.kind() == Kind::file && installerExtensions.contains(asciiLower(extensionOf(node.name()))) &&
              node.modified() < cutoff(settings_.installerDays))
            items.push_back(item(node, std::string(node.name())));
          return node.kind() == Kind::folder;
        });
    add(FindingRule::oldInstallers, std::move(items),
        fmt::format("Disk images, installers and archives you downloaded more than {} days ago. You can download them "
                    "again.",
                    wholeDays(settings_.installerDays)));
  }

  void oldScreenshots() {
    std::vector<CleanupItem> items;
    for (const std::string& desktop : userFolders_.desktop)
      if (const DiskItem* folder = find(root_, desktop))
        for (const DiskItem& child : folder->children()) {
          const std::string_view name = child.name();
          const bool isScreenshot =
              name.starts_with("Screenshot") || name.starts_with("Screen Shot") || name.starts_with("Screen Recording");
          if (child.kind() == Kind::file && isScreenshot && child.modified() < cutoff(settings_.screenshotDays) &&
              !isClaimed(child.url()))
            items.push_back(item(child, std::string(name)));
        }
    add(FindingRule::oldScreenshots, std::move(items),
        fmt::format("Screenshots from more than {} days ago. Look through them before they go.",
                    wholeDays(settings_.screenshotDays)));
  }

  // Visits the user's own files that no rule has taken.
  template <typename Visit>
  void eachFreeFile(const Visit& visit) const {
    walk(root_, [&](const DiskItem& node, const std::string& path) {
      if (isBarred(node, path)) return false;
      if (node.kind() == Kind::file) visit(node, path);
      return node.kind() == Kind::folder;
    });
  }

  void duplicates() {
    stopIfAsked();
    std::vector<DuplicateCandidate> candidates;
    eachFreeFile([&](const DiskItem& node, const std::string& path) {
      if (node.size() >= settings_.duplicateMinBytes) candidates.push_back({&node, path});
    });
    std::vector<CleanupItem> items = findDuplicates(candidates, settings_.hashWindow, control_);
    // What stays for the sake of its copies is not offered by another rule.
    for (const CleanupItem& copy : items) claims_.insert(copy.kept->url);
    add(FindingRule::duplicates, std::move(items),
        "Files with exactly the same content as another file. Buddy keeps the oldest copy of each.");
  }

  void largeOldFiles() {
    // Where nobody notes when files are opened, nobody can say that one was not.
    if (!knowsAccess(root_)) return;
    std::vector<CleanupItem> items;
    eachFreeFile([&](const DiskItem& node, const std::string&) {
      const Instant lastTouch = std::max(node.modified(), node.accessed().value_or(distantPast));
      if (node.size() < settings_.largeFileBytes || lastTouch >= cutoff(settings_.largeFileDays)) return;
      items.push_back(item(node, std::string(node.name())));
      items.back().modified = known(lastTouch);
    });
    add(FindingRule::largeOldFiles, std::move(items),
        fmt::format("Files over {} that nobody opened for {} days. Only you know if you still need them.",
                    fileSize(calendar_, settings_.largeFileBytes), wholeDays(settings_.largeFileDays)));
  }

  static long long wholeDays(double days) { return static_cast<long long>(days); }

  const DiskAnalyzer& settings_;
  const DiskItem& root_;
  const std::string home_;
  const Instant now_;
  const Calendar& calendar_;
  const AnalysisControl& control_;
  const std::set<std::string, std::less<>> protected_;
  const UserFolders userFolders_;
  const TrashFolders trashes_;
  const bool isInTrash_;  // the tree itself
  // Walks never enter a claimed folder, so that what is below one needs no entry of its own.
  std::unordered_set<std::string> claims_;
  std::vector<DiskFinding> findings_;
};

}  // namespace

std::set<std::string, std::less<>> protectedPaths(const std::string& home) {
  std::set<std::string, std::less<>> paths{"/Library", "/private", "/usr", "/opt", "/Applications", "/bin", "/sbin",
                                           // The system's own folders here.
                                           "/boot", "/etc", "/lib", "/lib32", "/lib64", "/nix", "/snap", "/var"};
  // Where applications keep their data; a large file there is not the user's own.
  for (const std::string_view name : {"Library", ".Trash", ".cache", ".local", ".config", ".var", ".mozilla",
                                      ".thunderbird", ".steam", ".wine", ".gnupg", ".ssh", "snap"})
    paths.insert(joinedPath(home, name));
  return paths;
}

bool knowsAccess(const DiskItem& root) {
  const FileDescriptor folder = openFolder(root.url());
  return !folder || recordsAccess(folder);
}

std::vector<DiskFinding> DiskAnalyzer::analyze(const DiskItem& root, const std::string& home,
                                               const std::vector<SimulatorRuntime>& runtimes, Instant now,
                                               const Calendar& calendar, const AnalysisControl& control) const {
  return Analysis(*this, root, home, now, calendar, control).run(runtimes);
}

}  // namespace ambrel
