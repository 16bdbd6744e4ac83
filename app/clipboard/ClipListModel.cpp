#include "app/clipboard/ClipListModel.h"

#include <algorithm>
#include <utility>

#include "app/base/StoredValue.h"

namespace ambrel {

ClipListModel::ClipListModel(const ClipIndex& index, Calendar calendar,
                             std::function<const ClipFiles*(const UUID&)> files, QObject* parent)
    : RecordListModel(parent),
      index_(index),
      moment_{.calendar = std::move(calendar), .now = {}, .sensitiveAge = {}},
      files_(std::move(files)) {
  const auto forget = [this] { latest_.reset(); };
  connect(this, &ClipListModel::dataChanged, this, forget);
  connect(this, &ClipListModel::rowsInserted, this, forget);
  connect(this, &ClipListModel::rowsRemoved, this, forget);
  connect(this, &ClipListModel::rowsMoved, this, forget);
  connect(this, &ClipListModel::rowsInserted, this, &RowList::countChanged);
  connect(this, &ClipListModel::rowsRemoved, this, &RowList::countChanged);
}

void ClipListModel::show(const std::vector<ClipRow>& rows) {
  latest_.reset();
  setRows(rows);
}

void ClipListModel::put(ClipRow row) {
  drop({&row.id, 1});
  insertRecord(0, std::move(row));
}

void ClipListModel::drop(std::span<const UUID> ids) {
  // What is evicted is at the end.
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

void ClipListModel::setNow(Instant now) {
  if (std::exchange(moment_.now, now) == now || rowCount() == 0) return;
  Q_EMIT dataChanged(index(0), index(rowCount() - 1), {role("age"), role("forgetting"), role("spoken")});
}

void ClipListModel::setSensitiveAge(std::optional<Seconds> age) {
  if (std::exchange(moment_.sensitiveAge, age) == age || rowCount() == 0) return;
  Q_EMIT dataChanged(index(0), index(rowCount() - 1), {role("forgetting"), role("spoken")});
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

int ClipListModel::role(const char* property) {
  return Qt::UserRole + ClipFace::staticMetaObject.indexOfProperty(property);
}

QVariant ClipListModel::data(const QModelIndex& index, int role) const {
  if (!row(index) || role < Qt::UserRole) return {};
  if (!latest_ || latest_->first != index.row()) latest_.emplace(index.row(), faceAt(index.row()));
  return ClipFace::staticMetaObject.property(role - Qt::UserRole).readOnGadget(&latest_->second);
}

QHash<int, QByteArray> ClipListModel::roleNames() const {
  QHash<int, QByteArray> names;
  for (int i = 0; i < ClipFace::staticMetaObject.propertyCount(); ++i)
    names.insert(Qt::UserRole + i, ClipFace::staticMetaObject.property(i).name());
  return names;
}

}  // namespace ambrel
