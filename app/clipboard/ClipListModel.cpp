#include "app/clipboard/ClipListModel.h"

#include <algorithm>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"

namespace ambrel {

ClipListModel::ClipListModel(const ClipIndex& index, Calendar calendar,
                             std::function<const ClipFiles*(const UUID&)> files, QObject* parent)
    : RecordListModel(parent),
      index_(index),
      moment_{.calendar = std::move(calendar), .now = {}, .sensitiveAge = {}},
      files_(std::move(files)) {
  connect(this, &ClipListModel::rowsInserted, this, &RowList::countChanged);
  connect(this, &ClipListModel::rowsRemoved, this, &RowList::countChanged);
}

void ClipListModel::put(ClipRow row) {
  drop({&row.id, 1});
  insertRecord(0, std::move(row));
}

void ClipListModel::drop(std::span<const UUID> ids) {
  // Evicted rows are at the end.
  for (int row = rowCount(); row-- > 0;)
    if (std::ranges::find(ids, rows()[static_cast<std::size_t>(row)].id) != ids.end()) removeRecord(row);
}

void ClipListModel::setCurrent(const std::optional<UUID>& id) {
  for (int row = 0; row < rowCount(); ++row) {
    const ClipRow& clip = rows()[static_cast<std::size_t>(row)];
    const bool isCurrent = clip.id == id;
    if (clip.isCurrent != isCurrent) changeRecord(row, [&](ClipRow& changed) { changed.isCurrent = isCurrent; });
  }
}

void ClipListModel::refreshAll() {
  if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void ClipListModel::setNow(Instant now) {
  if (replaced(moment_.now, now)) refreshAll();
}

void ClipListModel::setSensitiveAge(std::optional<Seconds> age) {
  if (replaced(moment_.sensitiveAge, age)) refreshAll();
}

void ClipListModel::refresh(const UUID& id) {
  const int row = rowOf(toQString(id.text()));
  if (row >= 0) Q_EMIT dataChanged(index(row), index(row));
}

int ClipListModel::rowOf(const QString& id) const {
  const auto parsed = UUID::parse(id.toStdString());
  const auto found = parsed ? std::ranges::find(rows(), *parsed, &ClipRow::id) : rows().end();
  return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QString ClipListModel::idAt(int row) const {
  return row >= 0 && row < rowCount() ? toQString(rows()[static_cast<std::size_t>(row)].id.text()) : QString();
}

ClipFace ClipListModel::faceOf(const QString& id) const {
  const int row = rowOf(id);
  return row < 0 ? ClipFace() : faceAt(row);
}

ClipFace ClipListModel::faceAt(int row) const {
  static const ClipFacts none;
  const ClipRow& clip = rows()[static_cast<std::size_t>(row)];
  const ClipFacts* facts = index_.find(clip.id);
  const ClipFiles* files = clip.kind == ClipKind::file && !clip.lost ? files_(clip.id) : nullptr;
  return clipFace(clip, facts ? *facts : none, files, moment_);
}

QVariant ClipListModel::data(const QModelIndex& index, int role) const {
  return row(index) && role == Qt::UserRole ? QVariant::fromValue(faceAt(index.row())) : QVariant();
}

}  // namespace ambrel
