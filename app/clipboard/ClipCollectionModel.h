#pragma once
// The collections of the clipboard, in the order of their creation.

#include <QtQml/qqmlregistration.h>

#include "app/base/RecordListModel.h"
#include "core/clipboard.h"

namespace ambrel {

class ClipCollectionModel : public RecordListModel<ClipCollection, UUID> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the clipboard's model")

 public:
  using RecordListModel::RecordListModel;
  using RecordListModel::setRows;

  enum Role { IdRole = Qt::UserRole, NameRole };
  Q_ENUM(Role)

  QVariant data(const QModelIndex& index, int role) const override {
    const ClipCollection* collection = row(index);
    if (!collection) return {};
    if (role == IdRole) return QString::fromStdString(collection->id.text());
    if (role == NameRole || role == Qt::DisplayRole) return QString::fromStdString(collection->name);
    return {};
  }
  QHash<int, QByteArray> roleNames() const override { return {{IdRole, "collectionId"}, {NameRole, "name"}}; }

 protected:
  UUID keyOf(const ClipCollection& collection) const override { return collection.id; }
};

}  // namespace ambrel
