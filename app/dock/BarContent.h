#pragma once
// What is on the bar: its tiles in order, each with its place on the slab.

#include <QObject>
#include <QRectF>
#include <QString>
#include <vector>

#include "app/base/Face.h"
#include "core/dock.h"
#include "core/profiles.h"

namespace ambrel {

struct TileRecord {
  Q_GADGET
 public:
  FACE_FIELDS(QString, item);    // the slot
  FACE_FIELDS(QString, widget);  // the name that the profile stores
  FACE_FIELDS(QString, title, shortTitle, symbol, description);
  FACE_FIELD(bool, isKnown, true);  // to this version
  FACE_FIELDS(QRectF, frame);       // from the slab's upper left corner, before any scrolling
  FACE_FIELDS(int, span);           // 0 to 3, from the narrowest width to the widest
  friend bool operator==(const TileRecord&, const TileRecord&) = default;
};

// The slab and its tiles for the items of a profile. `scale` enlarges everything; maxLength is in logical pixels.
struct BarContent {
  std::vector<TileRecord> tiles;
  QSizeF slab;
  double contentLength = 0;
  bool isScrolling = false;
};
// A bar without tiles is as long as what it says instead.
BarContent barContent(const std::vector<DockItem>& items, DockEdge edge, double maxLength, double scale);

}  // namespace ambrel
