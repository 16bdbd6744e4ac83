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

QRect clearOf(const QRect& frame, const std::vector<QRect>& taken, const QRect& screen, DockEdge edge) {
  const auto covers = [&](const QRect& place) {
    return std::ranges::any_of(taken, [&](const QRect& other) { return other.intersects(place); });
  };
  QRect around;
  for (const QRect& other : taken)
    if (other.intersects(frame)) around |= other.adjusted(-panelGap, -panelGap, panelGap, panelGap);
  if (around.isEmpty()) return frame;
  QRect above = frame, below = frame, before = frame, behind = frame;
  above.moveBottom(around.top() - 1);
  below.moveTop(around.bottom() + 1);
  before.moveRight(around.left() - 1);
  behind.moveLeft(around.right() + 1);
  std::vector<QRect> places{above, below, before, behind};
  // The bar's side is not free.
  places.erase(places.begin() + (edge == DockEdge::bottom ? 1 : edge == DockEdge::left ? 2 : 3));
  std::erase_if(places, [&](const QRect& place) { return !screen.contains(place) || covers(place); });
  if (places.empty()) return frame;
  return *std::ranges::min_element(
      places, {}, [&](const QRect& place) { return (place.topLeft() - frame.topLeft()).manhattanLength(); });
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
