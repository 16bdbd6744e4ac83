#pragma once
// What is on the bar: its tiles in order, each with its place on the slab.

#include <QObject>
#include <QRectF>
#include <QString>
#include <vector>

#include "core/dock.h"
#include "core/profiles.h"

namespace ambrel {

struct TileRecord {
  Q_GADGET
  Q_PROPERTY(QString item MEMBER item FINAL)
  Q_PROPERTY(QString widget MEMBER widget FINAL)
  Q_PROPERTY(QString title MEMBER title FINAL)
  Q_PROPERTY(QString symbol MEMBER symbol FINAL)
  Q_PROPERTY(QString description MEMBER description FINAL)
  Q_PROPERTY(bool isKnown MEMBER isKnown FINAL)
  Q_PROPERTY(QRectF frame MEMBER frame FINAL)
  Q_PROPERTY(int span MEMBER span FINAL)

 public:
  QString item;    // the slot
  QString widget;  // the name that the profile stores
  QString title;
  QString symbol;
  QString description;
  bool isKnown = true;  // to this version
  QRectF frame;         // from the slab's upper left corner, before any scrolling
  int span = 0;         // 0 to 3, from the narrowest width to the widest
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
