#pragma once
// A folder of a size tree as one value that QML hands from the model to the chart.

#include <QMetaType>
#include <QtQml/qqmlregistration.h>

#include "app/disk/DiskTexts.h"
#include "core/disk/DiskItem.h"

namespace ambrel {

struct DiskNode {
  Q_GADGET
  QML_VALUE_TYPE(diskNode)
  Q_PROPERTY(QString id READ id)

 public:
  // Empty while there is nothing to show.
  DiskTree item;
  // How much of the circle its children fill: less than 1 while a scan is under way.
  double share = 1;

  QString id() const { return item ? pathID(item->id()) : QString(); }

  friend bool operator==(const DiskNode&, const DiskNode&) = default;
};

}  // namespace ambrel
