#pragma once
// Parts of the disk by name and size: the legend of the chart, the way down to where it stands.

#include <QtQml/qqmlregistration.h>
#include <string>

#include "app/base/RecordListModel.h"

namespace ambrel {

struct DiskPart {
  std::string id;  // what is behind it; empty for what was put together
  QString name;
  QString size;
  int color = 0;          // the chart's; negative for what has not been read yet
  bool isFolder = false;  // it can be entered
  bool isHighlighted = false;
  friend bool operator==(const DiskPart&, const DiskPart&) = default;
};

class DiskPartListModel : public RecordListModel<DiskPart, std::string> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  enum Role { IdRole = Qt::UserRole, NameRole, SizeRole, ColorRole, IsFolderRole, IsHighlightedRole };
  Q_ENUM(Role)

  using RecordListModel::RecordListModel;
  using RecordListModel::setRows;

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 protected:
  std::string keyOf(const DiskPart& part) const override { return part.id; }
};

}  // namespace ambrel
