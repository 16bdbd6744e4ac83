#include "app/clipboard/ClipListModel.h"

#include <QColor>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "app/base/RowChanges.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

QString kindText(const ClipPreview& preview) {
  switch (preview.look) {
    case ClipLook::text:
      return ClipListModel::tr("Text");
    case ClipLook::code:
      return ClipListModel::tr("Code");
    case ClipLook::link:
      return ClipListModel::tr("Link");
    case ClipLook::color:
      return ClipListModel::tr("Color");
    case ClipLook::image:
      return ClipListModel::tr("Image");
    case ClipLook::files:
      return preview.fileCount == 1 ? ClipListModel::tr("File") : ClipListModel::tr("Files");
    case ClipLook::secret:
      return ClipListModel::tr("Secret");
  }
  return {};
}

std::vector<UUID> idsOf(const std::vector<ClipRow>& rows) {
  std::vector<UUID> ids;
  ids.reserve(rows.size());
  for (const ClipRow& row : rows) ids.push_back(row.id);
  return ids;
}

QString idText(const UUID& id) { return QString::fromStdString(id.text()); }

}  // namespace

ClipListModel::ClipListModel(Sources sources, QObject* parent)
    : QAbstractListModel(parent), sources_(std::move(sources)) {}

int ClipListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

void ClipListModel::show(std::vector<ClipRow> next) {
  const std::vector<UUID> before = idsOf(rows_), after = idsOf(next);
  const auto at = [](auto& list, int position) { return list.begin() + position; };
  for (const RowChange& step : rowChanges<UUID>(before, after)) {
    positions_.clear();
    switch (step.kind) {
      case RowChange::Kind::remove:
        beginRemoveRows({}, step.first, step.last);
        rows_.erase(at(rows_, step.first), at(rows_, step.last + 1));
        endRemoveRows();
        break;
      case RowChange::Kind::insert:
        beginInsertRows({}, step.first, step.last);
        // The rows before these are in place already.
        rows_.insert(at(rows_, step.first), at(next, step.first), at(next, step.last + 1));
        endInsertRows();
        break;
      case RowChange::Kind::move: {
        const bool goesDown = step.last > step.first;
        beginMoveRows({}, step.first, step.first, {}, goesDown ? step.last + 1 : step.last);
        if (goesDown)
          std::rotate(at(rows_, step.first), at(rows_, step.first + 1), at(rows_, step.last + 1));
        else
          std::rotate(at(rows_, step.last), at(rows_, step.first), at(rows_, step.first + 1));
        endMoveRows();
        break;
      }
    }
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i] == next[i]) continue;
    rows_[i] = std::move(next[i]);
    const QModelIndex changed = index(static_cast<int>(i));
    Q_EMIT dataChanged(changed, changed);
  }
}

void ClipListModel::put(ClipRow row) {
  const std::array<UUID, 1> id{row.id};
  drop(id);
  positions_.clear();
  beginInsertRows({}, 0, 0);
  rows_.insert(rows_.begin(), std::move(row));
  endInsertRows();
}

void ClipListModel::drop(std::span<const UUID> ids) {
  // What is evicted is at the end.
  for (std::size_t i = rows_.size(); i-- > 0;) {
    if (std::ranges::find(ids, rows_[i].id) == ids.end()) continue;
    positions_.clear();
    beginRemoveRows({}, static_cast<int>(i), static_cast<int>(i));
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(i));
    endRemoveRows();
  }
}

void ClipListModel::setCurrent(const std::optional<UUID>& id) {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const bool isCurrent = rows_[i].id == id;
    if (std::exchange(rows_[i].isCurrent, isCurrent) == isCurrent) continue;
    const QModelIndex changed = index(static_cast<int>(i));
    Q_EMIT dataChanged(changed, changed, {CurrentRole, SpokenRole});
  }
}

void ClipListModel::setNow(Instant now) {
  if (now == now_) return;
  now_ = now;
  if (!rows_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {AgeRole, ForgettingRole, SpokenRole});
}

void ClipListModel::refresh(const UUID& id) {
  const int row = positionOf(id);
  if (row >= 0) Q_EMIT dataChanged(index(row), index(row));
}

void ClipListModel::refreshAll() {
  if (!rows_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

int ClipListModel::positionOf(const UUID& id) const {
  if (positions_.empty())
    for (std::size_t i = 0; i < rows_.size(); ++i) positions_.emplace(rows_[i].id, static_cast<int>(i));
  const auto found = positions_.find(id);
  return found == positions_.end() ? -1 : found->second;
}

int ClipListModel::rowOf(const QString& id) const {
  const auto parsed = UUID::parse(id.toStdString());
  return parsed ? positionOf(*parsed) : -1;
}

QString ClipListModel::idAt(int row) const {
  return row >= 0 && row < rowCount() ? idText(rows_[static_cast<std::size_t>(row)].id) : QString();
}

QVariantList ClipListModel::files(const ClipRow& row, const ClipFacts& facts) const {
  const ClipFiles* known = sources_.files(row.id);
  QVariantList list;
  for (std::size_t i = 0; i < facts.preview.fileNames.size(); ++i) {
    const bool isFolder = known && i < known->isFolder.size() && known->isFolder[i];
    list.append(
        QVariantMap{{QStringLiteral("name"), toQString(facts.preview.fileNames[i])},
                    {QStringLiteral("symbol"), isFolder ? QStringLiteral("folder.fill") : QStringLiteral("doc.text")}});
  }
  return list;
}

QString ClipListModel::foot(const ClipRow& row, const ClipFacts& facts) const {
  if (facts.preview.look == ClipLook::image)
    if (const auto size = sources_.pictureSize(row.imageFileName))
      return QStringLiteral("%1\u2009×\u2009%2").arg(size->width).arg(size->height);
  if (facts.preview.look == ClipLook::files)
    if (const ClipFiles* known = sources_.files(row.id); known && known->bytes)
      return toQString(fileSize(sources_.calendar, static_cast<std::int64_t>(*known->bytes)));
  return row.source.empty() ? QString() : sources_.programName(row.source);
}

QString ClipListModel::forgetting(const ClipRow& row, const ClipFacts& facts) const {
  const auto age = sources_.sensitiveAge();
  if (!facts.isSensitive || row.isKept || !age) return {};
  const double minutes = std::ceil((*age - secondsBetween(row.createdAt, now_)).count() / 60);
  // "in 42 min" stays together when the card breaks the line.
  return minutes < 1 ? tr("forgotten soon") : tr("forgotten in\u00A0%1\u00A0min").arg(static_cast<int>(minutes));
}

QString ClipListModel::spoken(const ClipRow& row, const ClipFacts& facts) const {
  QStringList parts{kindText(facts.preview)};
  if (facts.preview.look == ClipLook::files)
    for (const std::string& name : facts.preview.fileNames) parts << toQString(name);
  else if (facts.preview.look != ClipLook::secret)
    parts << toQString(facts.preview.title);
  parts << forgetting(row, facts) << toQString(shortAge(sources_.calendar, row.createdAt, now_));
  if (row.isPinned) parts << tr("pinned");
  if (row.isCurrent) parts << tr("on the clipboard now");
  parts.removeAll(QString());
  return parts.join(QStringLiteral(", "));
}

QVariant ClipListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const ClipRow& row = rows_[static_cast<std::size_t>(index.row())];
  if (row.lost) return lostData(row, role);
  static const ClipFacts none;
  const ClipFacts* found = sources_.index.find(row.id);
  const ClipFacts& facts = found ? *found : none;
  const ClipPreview& preview = facts.preview;
  switch (role) {
    case IdRole:
      return idText(row.id);
    case LookRole:
      return toQString(nameOf(preview.look));
    case KindRole:
      return kindText(preview);
    case Qt::DisplayRole:
    case TitleRole:
      return toQString(preview.title);
    case DetailRole:
      return toQString(preview.detail);
    case ColorRole:
      if (!preview.color) return QColor(Qt::transparent);
      return QColor(preview.color->red, preview.color->green, preview.color->blue, preview.color->alpha);
    case FilesRole:
      return files(row, facts);
    case MoreFilesRole: {
      const std::size_t more = preview.fileCount - std::min(preview.fileCount, preview.fileNames.size());
      return more == 0 ? QString() : tr("and %1 more").arg(more);
    }
    case PictureRole:
      return toQString(row.imageFileName);
    case FootRole:
      return foot(row, facts);
    case AgeRole:
      return toQString(shortAge(sources_.calendar, row.createdAt, now_));
    case PinNumberRole:
      return row.pinNumber;
    case PinnedRole:
      return row.isPinned;
    case CurrentRole:
      return row.isCurrent;
    case ForgettingRole:
      return forgetting(row, facts);
    case SpokenRole:
      return spoken(row, facts);
    default:
      return {};
  }
}

QVariant ClipListModel::lostData(const ClipRow& row, int role) const {
  const auto title = [&] {
    if (row.lost->reason == LostCopy::Reason::noAnswer) return tr("The program did not hand its copy over.");
    const QString what = row.kind == ClipKind::image  ? tr("A picture")
                         : row.kind == ClipKind::file ? tr("A list of files")
                                                      : tr("A text");
    return tr("%1 of %2: too large to keep")
        .arg(what, toQString(fileSize(sources_.calendar, static_cast<std::int64_t>(row.lost->bytes))));
  };
  const auto foot = [&] { return row.source.empty() ? QString() : sources_.programName(row.source); };
  switch (role) {
    case IdRole:
      return idText(row.id);
    case LookRole:
      return QStringLiteral("lost");
    case KindRole:
      return tr("Not kept");
    case Qt::DisplayRole:
    case TitleRole:
      return title();
    case FootRole:
      return foot();
    case AgeRole:
      return toQString(shortAge(sources_.calendar, row.createdAt, now_));
    case SpokenRole:
      return QStringList{tr("Not kept"), title(), foot()}.join(QStringLiteral(", "));
    case ColorRole:
      return QColor(Qt::transparent);
    case FilesRole:
      return QVariantList();
    case PinNumberRole:
      return 0;
    case PinnedRole:
    case CurrentRole:
      return false;
    default:
      return role >= Qt::UserRole ? QVariant(QString()) : QVariant();
  }
}

QHash<int, QByteArray> ClipListModel::roleNames() const {
  return {{IdRole, "clipId"},
          {LookRole, "look"},
          {KindRole, "kindText"},
          {TitleRole, "title"},
          {DetailRole, "detail"},
          {ColorRole, "swatch"},
          {FilesRole, "files"},
          {MoreFilesRole, "moreFiles"},
          {PictureRole, "picture"},
          {FootRole, "foot"},
          {AgeRole, "age"},
          {PinNumberRole, "pinNumber"},
          {PinnedRole, "isPinned"},
          {CurrentRole, "isCurrent"},
          {ForgettingRole, "forgetting"},
          {SpokenRole, "spoken"}};
}

}  // namespace ambrel
