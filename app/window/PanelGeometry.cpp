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
  const QRect room = screen.adjusted(panelGap, panelGap, -panelGap, -panelGap);
  // QRect::center() is half a pixel off for even sizes.
  const QRect about = anchor.isEmpty() ? bar : anchor;
  const QPoint middle(about.x() + about.width() / 2, about.y() + about.height() / 2);
  const int right = room.x() + room.width(), bottom = room.y() + room.height();
  int space = room.height();
  switch (edge) {
    case DockEdge::bottom:
      space = bar.y() - panelGap - room.y();
      break;
    case DockEdge::left:
      space = right - (bar.x() + bar.width() + panelGap);
      break;
    case DockEdge::right:
      space = bar.x() - panelGap - room.x();
      break;
  }
  if (edge == DockEdge::bottom) {
    const QSize fit(std::min(size.width(), room.width()), std::min(size.height(), space));
    return {QPoint(centred(middle.x(), fit.width(), room.x(), right), bar.y() - panelGap - fit.height()), fit};
  }
  const QSize fit(std::min(size.width(), space), std::min(size.height(), room.height()));
  const int x = edge == DockEdge::left ? bar.x() + bar.width() + panelGap : bar.x() - panelGap - fit.width();
  return {QPoint(x, centred(middle.y(), fit.height(), room.y(), bottom)), fit};
}

}  // namespace ambrel
