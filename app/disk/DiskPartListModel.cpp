#include "app/disk/DiskPartListModel.h"

#include "app/disk/DiskTexts.h"

namespace ambrel {

QVariant DiskPartListModel::data(const QModelIndex& index, int role) const {
  const DiskPart* part = row(index);
  if (!part) return {};
  switch (role) {
    case IdRole:
      return pathID(part->id);
    case NameRole:
      return part->name;
    case SizeRole:
      return part->size;
    case ColorRole:
      return part->color;
    case IsFolderRole:
      return part->isFolder;
    case IsHighlightedRole:
      return part->isHighlighted;
    default:
      return {};
  }
}

QHash<int, QByteArray> DiskPartListModel::roleNames() const {
  return {{IdRole, "partId"},       {NameRole, "name"},         {SizeRole, "size"},
          {ColorRole, "colorRank"}, {IsFolderRole, "isFolder"}, {IsHighlightedRole, "isHighlighted"}};
}

}  // namespace ambrel
