#include "app/disk/DiskCleaner.h"

#include <algorithm>
#include <set>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/disk/DiskTexts.h"

namespace ambrel {

DiskCleaner::DiskCleaner(Seams seams, std::string home, QObject* parent)
    : QObject(parent), seams_(std::move(seams)), home_(std::move(home)) {}

void DiskCleaner::setFreeableBytes(std::optional<std::int64_t> bytes) {
  if (replaced(freeableBytes_, bytes)) Q_EMIT freeableChanged();
}

QString DiskCleaner::freeableText() const {
  return freeableBytes_.value_or(0) > 0 ? tr("%1 can go").arg(shownSize(seams_.calendar, *freeableBytes_)) : QString();
}

DiskCleaner::Places DiskCleaner::placesFor(const std::vector<CleanupItem>& items) const {
  Places result;
  // All items of a volume share a Trash.
  std::set<std::uint64_t> seen;
  for (const CleanupItem& item : items) {
    if (!item.identity || !seen.insert(item.identity->device).second) continue;
    auto place = seams_.trash.placeFor(item.url);
    if (!place)
      result.isWhole = false;
    else if (std::find(result.places.begin(), result.places.end(), *place) == result.places.end())
      result.places.push_back(std::move(*place));
  }
  return result;
}

bool DiskCleaner::trash(std::vector<CleanupItem> items, std::function<void(const DiskAdvice::TrashReport&)> done) {
  if (isTrashing_) return false;
  isTrashing_ = true;
  const auto report = std::make_shared<DiskAdvice::TrashReport>();
  seams_.background(
      [report, items = std::move(items), home = home_, kept = kept_, now = seams_.now, &trash = seams_.trash] {
        *report = DiskAdvice::moveToTrash(
            items, home, kept, [&](const DiskAdvice::TrashRequest& request) { return trash.move(request, now()); });
      },
      [this, report, done = std::move(done)] {
        isTrashing_ = false;
        done(*report);
        const DiskAdvice::TrashMessage message = DiskAdvice::message(*report, seams_.calendar);
        Q_EMIT finished(toQString(message.title), toQString(message.body), message.isMoved);
      });
  return true;
}

}  // namespace ambrel
