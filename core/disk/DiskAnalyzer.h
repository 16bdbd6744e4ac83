#pragma once
// Ten rules over a size tree. Each claims what it lists, so that no byte is offered twice. Nothing is changed.

#include <functional>
#include <set>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"
#include "core/disk/DiskScanner.h"
#include "core/disk/Findings.h"

namespace ambrel {

// Bytes read while files are compared. `expected` shrinks when files turn out to differ early.
struct CompareProgress {
  std::int64_t bytes = 0;
  std::int64_t expected = 0;
};

// How a long analysis is watched and stopped. `progress` is called from two worker threads.
struct AnalysisControl {
  std::stop_token stop;
  std::function<void(const CompareProgress&)> progress;
};

struct DiskAnalyzer {
  double staleProjectDays = 60;
  double installerDays = 30;
  std::int64_t largeFileBytes = 1'000'000'000;
  double largeFileDays = 90;
  std::int64_t duplicateMinBytes = 100'000'000;
  std::int64_t hashWindow = 1'048'576;
  double archiveDays = 180;
  double runtimeDays = 180;
  double screenshotDays = 30;
  // The folders that the scan was told to pass over. They stay where they are, with what holds them.
  ExcludedFolders excluded = {};

  // Findings in the order of evaluation: developerCaches, appCaches, oldArchives, oldSimulatorRuntimes, trash,
  // staleBuildFolders, oldInstallers, oldScreenshots, duplicates, largeOldFiles. Only nodes of the tree are listed,
  // so nothing below the scan's threshold is. Contents are read by the duplicate rule alone. What is in a Trash is no
  // copy of anything, and a copy that is kept is not offered by another rule.
  // Throws Cancelled when asked to stop.
  std::vector<DiskFinding> analyze(const DiskItem& root, const std::string& home,
                                   const std::vector<SimulatorRuntime>& runtimes, Instant now, const Calendar& calendar,
                                   const AnalysisControl& control = {}) const;

  // The list that the simulator tool prints as JSON. Records without identifier or version are left out; anything
  // that is not such a list is empty.
  static std::vector<SimulatorRuntime> parseRuntimes(std::string_view json);

  friend bool operator==(const DiskAnalyzer&, const DiskAnalyzer&) = default;
};

// The folders that walking rules neither list nor enter: the system's, and where applications keep their data.
std::set<std::string, std::less<>> protectedPaths(const std::string& home);

// Whether the volume of a tree notes when files are opened; true when it cannot be asked. Where it does not, no file is
// listed as one that nobody opened.
bool knowsAccess(const DiskItem& root);

// "17.2" before "17.10": runs of digits compare by value. Below, above or equal to zero.
int compareNumerically(std::string_view a, std::string_view b);

}  // namespace ambrel
