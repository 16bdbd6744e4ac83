#include "app/disk/DiskReview.h"

#include <QQmlEngine>

#include "app/disk/DiskTexts.h"

namespace ambrel {

DiskReview::DiskReview(DiskCleaner& cleaner, std::string home, Calendar calendar, QObject* parent)
    : QObject(parent), cleaner_(cleaner), home_(std::move(home)), calendar_(std::move(calendar)) {
  QQmlEngine::setObjectOwnership(&rows_, QQmlEngine::CppOwnership);
}

void DiskReview::set(Stage stage, const QString& title, const QString& detail) {
  stage_ = stage;
  title_ = title;
  detail_ = detail;
  Q_EMIT changed();
}

CleanupRow DiskReview::row(const CleanupItem& item, CleanupRow::Outcome outcome) const {
  QString detail = shownPath(item.url, home_), note;
  if (item.contentsOnly && outcome == CleanupRow::Outcome::pending)
    detail = tr("What is in %1; the folder stays").arg(detail);
  if (item.stayed)
    note = QString::fromStdString(std::string(explanation(*item.stayed)));
  else if (item.ownRisk && outcome == CleanupRow::Outcome::pending)
    note = QString::fromStdString(item.detail);
  return {.path = item.url,
          .title = shownName(item.title),
          .detail = detail,
          .size = shownSize(calendar_, item.bytes),
          .note = note,
          .outcome = outcome};
}

void DiskReview::begin(std::vector<CleanupItem> items) {
  if (items.empty() || stage_ == Stage::Moving || cleaner_.isTrashing()) return;
  frozen_ = std::move(items);
  report_.reset();
  std::int64_t bytes = 0;
  std::vector<CleanupRow> rows;
  for (const CleanupItem& item : frozen_) {
    bytes += item.bytes;
    rows.push_back(row(item, CleanupRow::Outcome::pending));
  }
  rows_.setRows(rows);
  const QString count = frozen_.size() == 1 ? tr("1 item") : tr("%1 items").arg(static_cast<int>(frozen_.size()));
  const DiskCleaner::Places places = cleaner_.placesFor(frozen_);
  canMove_ = !places.places.empty() || places.isWhole;
  if (!canMove_)
    return set(Stage::Reviewing, tr("Nothing can move to the Trash"),
               tr("The volume of these items has no Trash, and none can be made on it."));
  QString way = tr("You can put it back until the Trash is emptied.");
  for (const TrashPlace& place : places.places)
    if (!place.isListed)
      way = tr("The file manager does not show this Trash: take things back from %1.")
                .arg(shownPath(place.folder + "/files", home_));
  set(Stage::Reviewing, tr("Move %1 to the Trash?").arg(count),
      tr("%1, exactly what is listed here. %2").arg(shownSize(calendar_, bytes), way));
}

void DiskReview::confirm() {
  if (stage_ != Stage::Reviewing || !canMove_) return;
  const std::vector<CleanupItem> items = std::exchange(frozen_, {});
  if (!cleaner_.trash(items, [this](const DiskAdvice::TrashReport& report) { setReport(report); })) return;
  set(Stage::Moving, tr("Moving to the Trash"), tr("Each item is looked at once more before it goes."));
}

void DiskReview::setReport(const DiskAdvice::TrashReport& report) {
  report_ = report;
  std::vector<CleanupRow> rows;
  for (const CleanupItem& item : report.failed) rows.push_back(row(item, CleanupRow::Outcome::stayed));
  for (const CleanupItem& item : report.moved) rows.push_back(row(item, CleanupRow::Outcome::moved));
  rows_.setRows(rows);
  const DiskAdvice::TrashMessage message = DiskAdvice::message(report, calendar_);
  set(Stage::Reported, QString::fromStdString(message.title), QString::fromStdString(message.body));
  if (onReport) onReport(report);
}

void DiskReview::close() {
  if (stage_ == Stage::Moving) return;
  clear();
}

void DiskReview::clear() {
  if (stage_ == Stage::Closed || stage_ == Stage::Moving) return;
  frozen_.clear();
  report_.reset();
  rows_.setRows({});
  set(Stage::Closed, {}, {});
}

}  // namespace ambrel
