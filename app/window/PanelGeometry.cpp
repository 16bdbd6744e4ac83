#include "app/window/PanelGeometry.h"

#include <algorithm>

namespace ambrel {
namespace {

// The start of a span of `length` centred on `middle`, inside [low, high).
int centred(int middle, int length, int low, int high) {
  return std::max(low, std::min(middle - length / 2, high - length));
}

}  // namespace

QRect toRect(const Rect& rect, double mainHeight) {
  const Rect down = flipped(rect, mainHeight);
  return QRectF(down.x, down.y, down.width, down.height).toAlignedRect();
}

QRect roomBesideBar(const QRect& bar, const QRect& screen, DockEdge edge) {
  QRect room = screen;
  switch (edge) {
    case DockEdge::bottom:
      room.setBottom(bar.y() - 1);
      break;
    case DockEdge::left:
      room.setLeft(bar.x() + bar.width());
      break;
    case DockEdge::right:
      room.setRight(bar.x() - 1);
      break;
  }
  return room;
}

QRect panelFrame(QSize size, const QRect& anchor, const QRect& bar, const QRect& screen, DockEdge edge) {
  const QRect room = roomBesideBar(bar, screen, edge).adjusted(panelGap, panelGap, -panelGap, -panelGap);
  const QSize fit = size.boundedTo(room.size());
  // QRect::center() and QRect::right() are half a pixel and a pixel off.
  const QRect about = anchor.isEmpty() ? bar : anchor;
  const int right = room.x() + room.width(), bottom = room.y() + room.height();
  const int x = centred(about.x() + about.width() / 2, fit.width(), room.x(), right);
  const int y = centred(about.y() + about.height() / 2, fit.height(), room.y(), bottom);
  switch (edge) {
    case DockEdge::bottom:
      return {QPoint(x, bottom - fit.height()), fit};
    case DockEdge::left:
      return {QPoint(room.x(), y), fit};
    case DockEdge::right:
      return {QPoint(right - fit.width(), y), fit};
  }
  return {};
}

}  // namespace ambrel
