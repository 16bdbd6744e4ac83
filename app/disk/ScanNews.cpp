#include "app/disk/ScanNews.h"

#include <QMetaObject>

namespace ambrel {
namespace {

constexpr Seconds interval{0.1};
// The chart has three rings; the top-level folders are the first one.
constexpr int outlineLevels = 2;
constexpr std::int64_t outlineParts = 200;

}  // namespace

ScanNews::ScanNews(QObject& receiver, std::function<Instant()> now, std::function<void()> fetch)
    : now_(std::move(now)), fetch_(std::move(fetch)), receiver_(&receiver) {}

template <typename Change>
void ScanNews::change(const Change& change) {
  const std::scoped_lock hold(lock_);
  change(snapshot_);
  const Instant now = now_();
  if (!receiver_ || isTold_ || now < advanced(told_, interval)) return;
  isTold_ = true;
  told_ = now;
  QMetaObject::invokeMethod(
      receiver_,
      [self = shared_from_this()] {
        {
          const std::scoped_lock hold(self->lock_);
          if (!self->receiver_) return;
          self->isTold_ = false;
        }
        self->fetch_();
      },
      Qt::QueuedConnection);
}

DiskScanWatch ScanNews::watch() {
  const auto self = shared_from_this();
  return {.progress =
              [self](const DiskScanProgress& progress, double share) {
                self->change([&](Snapshot& snapshot) {
                  // Calls may arrive out of order.
                  if (progress.files < snapshot.progress.files) return;
                  snapshot.progress = progress;
                  snapshot.share = std::max(snapshot.share, share);
                });
              },
          .listed =
              [self](const std::vector<std::string>& names) {
                self->change([&](Snapshot& snapshot) { snapshot.folders = names; });
              },
          .finished =
              [self](const DiskItem& folder) {
                const DiskTree tree = makeTree(outline(folder, outlineLevels, folder.size() / outlineParts));
                self->change([&](Snapshot& snapshot) { snapshot.finished.push_back(tree); });
              }};
}

std::function<void(const CompareProgress&)> ScanNews::compareProgress() {
  return [self = shared_from_this()](const CompareProgress& progress) {
    self->change([&](Snapshot& snapshot) {
      if (progress.bytes >= snapshot.compared.bytes) snapshot.compared = progress;
    });
  };
}

ScanNews::Snapshot ScanNews::take() const {
  const std::scoped_lock hold(lock_);
  return snapshot_;
}

void ScanNews::close() {
  const std::scoped_lock hold(lock_);
  receiver_ = nullptr;
}

}  // namespace ambrel
