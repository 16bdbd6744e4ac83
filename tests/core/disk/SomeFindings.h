#pragma once
// Findings of every group, with items of round figures.

#include "core/disk/Findings.h"

namespace ambrel::test {

inline CleanupItem item(const std::string& path, std::int64_t bytes) {
  CleanupItem out;
  out.url = path;
  out.title = path.substr(path.rfind('/') + 1);
  out.bytes = bytes;
  return out;
}

inline std::vector<DiskFinding> findings() {
  return {{FindingRule::appCaches, {item("/home/u/.cache", 30)}, "Caches."},
          {FindingRule::developerCaches, {item("/home/u/.npm", 20), item("/home/u/.cargo", 10)}, "Tools."},
          {FindingRule::oldSimulatorRuntimes, {item("/runtimes/17", 500)}, "Shown."},
          {FindingRule::trash, {item("/home/u/.Trash", 70)}, "Deleted."},
          {FindingRule::largeOldFiles, {item("/home/u/film.mkv", 900)}, "Large."}};
}

}  // namespace ambrel::test
