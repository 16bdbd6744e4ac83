#pragma once
// A folder of a size tree as one value that QML hands from the model to the chart.

#include <QMetaType>
#include <QtQml/qqmlregistration.h>

#include "core/disk/DiskItem.h"

namespace ambrel {

struct DiskNode {
  Q_GADGET
  QML_VALUE_TYPE(diskNode)

 public:
  // Empty while there is nothing to show.
  DiskTree item;
  // How much of the circle its children fill: less than 1 while a scan is under way.
  double share = 1;

  friend bool operator==(const DiskNode&, const DiskNode&) = default;
};

}  // namespace ambrel
