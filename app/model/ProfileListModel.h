#pragma once
// The profiles in the user's order, for menus and lists.

#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/RecordListModel.h"

namespace ambrel {

struct ProfileRow {
  QString profile;  // the id
  QString name;
  QString trigger;  // "builtinOnly", "external", or "" for never
  int tileCount = 0;
  bool isActive = false;
  bool isPinned = false;
  friend bool operator==(const ProfileRow&, const ProfileRow&) = default;
};

class ProfileListModel : public RecordListModel<ProfileRow, QString> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the model")

 public:
  enum Role { ProfileRole = Qt::UserRole, NameRole, TriggerRole, TileCountRole, IsActiveRole, IsPinnedRole };
  Q_ENUM(Role)
  using RecordListModel::RecordListModel;

  void show(const std::vector<ProfileRow>& rows) { setRows(rows); }

  QVariant data(const QModelIndex& index, int role) const override;
  // profile, name, trigger, tileCount, isActive, isPinned
  QHash<int, QByteArray> roleNames() const override;

 protected:
  QString keyOf(const ProfileRow& row) const override { return row.profile; }
};

}  // namespace ambrel
