#include "app/model/ProfileListModel.h"

namespace ambrel {

QVariant ProfileListModel::data(const QModelIndex& index, int role) const {
  const ProfileRow* profile = row(index);
  if (!profile) return {};
  switch (role) {
    case ProfileRole:
      return profile->profile;
    case Qt::DisplayRole:
    case NameRole:
      return profile->name;
    case TriggerRole:
      return profile->trigger;
    case TileCountRole:
      return profile->tileCount;
    case IsActiveRole:
      return profile->isActive;
    case IsPinnedRole:
      return profile->isPinned;
  }
  return {};
}

QHash<int, QByteArray> ProfileListModel::roleNames() const {
  return {{ProfileRole, "profile"},     {NameRole, "name"},         {TriggerRole, "trigger"},
          {TileCountRole, "tileCount"}, {IsActiveRole, "isActive"}, {IsPinnedRole, "isPinned"}};
}

}  // namespace ambrel
