#include "app/buddy/BuddyArea.h"

#include "app/base/QmlObjects.h"

namespace ambrel {

BuddyArea::BuddyArea(BuddyNoticeCenter::Seams seams, QObject* parent)
    : Area(QStringLiteral("Buddy"), parent), now_(seams.now), center_(std::move(seams)) {
  keep({this, &center_});
}

void BuddyArea::follow(Area& area) {
  center_.addSignals([this, &area](BuddySignals& signals) { area.addSignals(signals, now_()); });
  connect(&area, &Area::noticed, &center_, &BuddyNoticeCenter::post);
  connect(&area, &Area::buddyTriggered, &center_, [this](BuddyTrigger trigger, std::optional<Seconds> length) {
    if (length)
      center_.buddy()->play(trigger, *length);
    else
      center_.buddy()->play(trigger);
  });
}

}  // namespace ambrel
