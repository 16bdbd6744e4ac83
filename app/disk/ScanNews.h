#pragma once
// Progress of a scan's threads: they store it here, and the main thread fetches it.

#include <QObject>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "core/disk.h"

namespace ambrel {

// All functions but `close` and `take` are thread-safe.
class ScanNews : public std::enable_shared_from_this<ScanNews> {
 public:
  struct Snapshot {
    DiskScanProgress progress;
    double share = 0;
    CompareProgress compared;
    std::vector<std::string> folders;  // directly below the root, in their order
    std::vector<DiskTree> finished;    // outlines of those that have been read
  };

  // `fetch` is called on the main thread after changes, at most ten times a second.
  ScanNews(QObject& receiver, std::function<Instant()> now, std::function<void()> fetch);

  // The callbacks for the scanner and the analyzer.
  DiskScanWatch watch();
  std::function<void(const CompareProgress&)> compareProgress();

  Snapshot take() const;
  // `fetch` is not called any more.
  void close();

 private:
  template <typename Change>
  void change(const Change& change);

  const std::function<Instant()> now_;
  const std::function<void()> fetch_;
  mutable std::mutex lock_;
  QObject* receiver_;
  Snapshot snapshot_;
  Instant told_ = distantPast;
  bool isTold_ = false;
};

}  // namespace ambrel
