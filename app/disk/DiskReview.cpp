#include "app/disk/DiskReview.h"

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "app/disk/DiskTexts.h"

namespace ambrel {
namespace {

enum class Outcome { pending, moved, stayed };
using Stage = ReviewFace::Stage;

CleanupRow rowOf(const CleanupItem& item, Outcome outcome, const std::string& home, const Calendar& calendar) {
  QString detail = shownPath(item.url, home), note;
  if (item.contentsOnly && outcome == Outcome::pending)
    detail = DiskReview::tr("What is in %1; the folder stays").arg(detail);
  if (item.stayed)
    note = toQString(explanation(*item.stayed));
  else if (item.ownRisk && outcome == Outcome::pending)
    note = toQString(item.detail);
  const QString title = shownName(item.title), size = shownSize(calendar, item.bytes);
  return {.path = item.url,
          .title = title,
          .detail = detail,
          .size = size,
          .note = note,
          .label = spokenWords({title, note, detail, size}),
          .hasMoved = outcome == Outcome::moved,
          .hasStayed = outcome == Outcome::stayed};
}

// The question before these items move to these places.
ReviewFace questionOf(const std::vector<CleanupItem>& items, const DiskCleaner::Places& places, const std::string& home,
                      const Calendar& calendar) {
  if (places.places.empty() && !places.isWhole)
    return {.stage = Stage::reviewing,
            .title = DiskReview::tr("Nothing can move to the Trash"),
            .detail = DiskReview::tr("The volume of these items has no Trash, and none can be made on it.")};
  std::int64_t bytes = 0;
  for (const CleanupItem& item : items) bytes += item.bytes;
  const QString count =
      items.size() == 1 ? DiskReview::tr("1 item") : DiskReview::tr("%1 items").arg(static_cast<int>(items.size()));
  QString way = DiskReview::tr("You can put it back until the Trash is emptied.");
  for (const TrashPlace& place : places.places)
    if (!place.isListed)
      way = (places.places.size() == 1
                 ? DiskReview::tr("The file manager does not show this Trash: take things back from %1.")
                 : DiskReview::tr("The file manager does not show all of it: take the rest back from %1."))
                .arg(shownPath(place.folder + "/files", home));
  return {.stage = Stage::reviewing,
          .canMove = true,
          .title = DiskReview::tr("Move %1 to the Trash?").arg(count),
          .detail = DiskReview::tr("%1, exactly what is listed here. %2").arg(shownSize(calendar, bytes), way)};
}

}  // namespace

DiskReview::DiskReview(DiskCleaner& cleaner, std::string home, Calendar calendar, QObject* parent)
    : QObject(parent), cleaner_(cleaner), home_(std::move(home)), calendar_(std::move(calendar)) {
  keep({&rows_});
}

void DiskReview::show(ReviewFace face) {
  face_ = std::move(face);
  Q_EMIT faceChanged();
}

void DiskReview::begin(std::vector<CleanupItem> items) {
  if (items.empty() || face_.stage == Stage::moving || cleaner_.isTrashing()) return;
  frozen_ = std::move(items);
  std::vector<CleanupRow> rows;
  for (const CleanupItem& item : frozen_) rows.push_back(rowOf(item, Outcome::pending, home_, calendar_));
  rows_.setRows(rows);
  show(questionOf(frozen_, cleaner_.placesFor(frozen_), home_, calendar_));
}

void DiskReview::confirm() {
  if (!face_.isReviewing() || !face_.canMove) return;
  const std::vector<CleanupItem> items = std::exchange(frozen_, {});
  if (!cleaner_.trash(items, [this](const DiskAdvice::TrashReport& report) { setReport(report); })) return;
  show({.stage = Stage::moving,
        .title = tr("Moving to the Trash"),
        .detail = tr("Each item is looked at once more before it goes.")});
}

void DiskReview::setReport(const DiskAdvice::TrashReport& report) {
  std::vector<CleanupRow> rows;
  for (const CleanupItem& item : report.failed) rows.push_back(rowOf(item, Outcome::stayed, home_, calendar_));
  for (const CleanupItem& item : report.moved) rows.push_back(rowOf(item, Outcome::moved, home_, calendar_));
  rows_.setRows(rows);
  const DiskAdvice::TrashMessage message = DiskAdvice::message(report, calendar_);
  show({.stage = Stage::reported, .title = toQString(message.title), .detail = toQString(message.body)});
  Q_EMIT reported(report);
}

void DiskReview::close() {
  if (!face_.isOpen() || face_.stage == Stage::moving) return;
  frozen_.clear();
  rows_.setRows({});
  show({});
}

}  // namespace ambrel
