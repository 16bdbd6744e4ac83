#pragma once
// The tiles of the bar in order, each with its place on the slab.

#include <QRectF>
#include <QtQml/qqmlregistration.h>

#include "app/base/RecordListModel.h"
#include "core/dock.h"
#include "core/profiles.h"

namespace ambrel {

struct TileRecord {
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

class TileListModel : public RecordListModel<TileRecord, QString> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the bar")

 public:
  enum Role {
    ItemRole = Qt::UserRole,
    WidgetRole,
    TitleRole,
    SymbolRole,
    DescriptionRole,
    KnownRole,
    FrameRole,
    SpanRole
  };
  Q_ENUM(Role)
  using RecordListModel::RecordListModel;

  void show(const std::vector<TileRecord>& tiles) { setRows(tiles); }

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 protected:
  QString keyOf(const TileRecord& tile) const override { return tile.item; }
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
