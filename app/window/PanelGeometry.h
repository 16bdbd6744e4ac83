#pragma once
// Where a panel is placed beside the bar. Qt's coordinates: y grows downwards; logical pixels.

#include <QRect>
#include <vector>

#include "core/dock.h"

namespace ambrel {

// From core's coordinates, in which y grows upwards from the lower edge of a main screen of that height.
QRect toRect(const Rect& rect, double mainHeight);

// What a panel opens beside.
struct PanelAnchor {
  QRect tile;  // empty: the middle of the bar
  QRect bar;
  QRect screen;  // without what other programs keep of it
  DockEdge edge = DockEdge::bottom;
};

// Free between the bar and a panel, and between a panel and the edges of its screen.
inline constexpr int panelGap = 8;

// A panel of `size` beside `bar`, centred on `anchor` (the tile it belongs to; empty means the bar's middle) and
// moved along the bar as far as it must to stay on `screen`. A panel larger than the room is cut to it.
QRect panelFrame(QSize size, const QRect& anchor, const QRect& bar, const QRect& screen, DockEdge edge);

// `frame`, moved as little as it must to cover nothing of `taken`: away from the bar or along it. Where there is no
// such place on `screen` it stays.
QRect clearOf(const QRect& frame, const std::vector<QRect>& taken, const QRect& screen, DockEdge edge);

// The part of the screen that is not beside or beyond the bar. A panel's window, whose margin is wider than the gap,
// stays in it: window managers do not let clicks through the margins of windows that they frame.
QRect roomBesideBar(const QRect& bar, const QRect& screen, DockEdge edge);

}  // namespace ambrel
