#include "app/feeds/QuoteModel.h"

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/feeds/Quotes.h"

namespace ambrel {

QuoteModel::QuoteModel(FeedSeams seams, QObject* parent) : TimedModel(parent), seams_(std::move(seams)) {
  tick(seams_.now());
}

void QuoteModel::setSeen(bool isSeen) {
  isSeen_ = isSeen;
  if (isSeen_) tick(seams_.now());
  announceDue();
}

std::optional<Instant> QuoteModel::due() const { return isSeen_ ? std::optional(midnight_) : std::nullopt; }

void QuoteModel::tick(Instant now) {
  const Calendar calendar = seams_.calendar();
  midnight_ = calendar.startOfDay(now, 1);
  if (replaced(text_, toQString(quoteOf(calendar, now)))) Q_EMIT changed();
  announceDue();
}

}  // namespace ambrel
