#pragma once
// A folder of a size tree as a value type, so that QML can pass it from the model to the chart.

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
  // Null if there is nothing to show.
  DiskTree item;
  // The share of the circle that its children fill; less than 1 during a scan.
  double share = 1;

  QString id() const { return item ? pathID(item->id()) : QString(); }

  friend bool operator==(const DiskNode&, const DiskNode&) = default;
};

}  // namespace ambrel
