#pragma once
// What the threads of a scan have to tell the main thread: they leave it here, and the main thread fetches it.

#include <QObject>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "core/disk.h"

namespace ambrel {

// Everything but `close` and `take` may be called from any thread.
class ScanNews : public std::enable_shared_from_this<ScanNews> {
 public:
  struct Snapshot {
    DiskScanProgress progress;
    double share = 0;
    CompareProgress compared;
    std::vector<std::string> folders;  // directly below the root, in their order
    std::vector<DiskTree> finished;    // outlines of those that have been read
  };

  // `fetch` is called on the main thread when there is something new, ten times a second at most.
  ScanNews(QObject& receiver, std::function<Instant()> now, std::function<void()> fetch);

  // How the scanner and the analyzer are told to report here.
  DiskScanWatch watch();
  std::function<void(const CompareProgress&)> compareProgress();

  Snapshot take() const;
  // Nothing is fetched from here afterwards.
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
