#include <cmath>

#include "core/widgets.h"

namespace ambrel {

GalleryLayout galleryLayout(const std::vector<DockWidget>& widgets, double width) {
  GalleryLayout layout;
  int line = -1;
  for (const WidgetGroup group : allCases<WidgetGroup>()) {
    double x = 0;
    bool isFirst = true;
    for (const DockWidget widget : widgets) {
      if (ambrel::group(widget) != group) continue;
      const double wide = ambrel::width(defaultSize(widget));
      if (isFirst) {
        layout.headings.push_back({group, layout.height});
        layout.height += GalleryLayout::headingHeight;
      }
      if (isFirst || x + wide > width) {
        x = 0;
        layout.height += GalleryLayout::lineHeight;
        ++line;
      }
      layout.tiles.push_back({widget, {x, layout.height - GalleryLayout::lineHeight, wide, 64}, line});
      x += wide + GalleryLayout::gap;
      isFirst = false;
    }
  }
  return layout;
}

std::size_t GalleryLayout::stepped(std::size_t from, Step step) const {
  if (step == Step::left) return from > 0 ? from - 1 : from;
  if (step == Step::right) return from + 1 < tiles.size() ? from + 1 : from;
  const int line = tiles[from].line + (step == Step::down ? 1 : -1);
  std::size_t nearest = from;
  for (std::size_t i = 0; i < tiles.size(); ++i) {
    const auto distance = [&](std::size_t at) { return std::abs(tiles[at].frame.midX() - tiles[from].frame.midX()); };
    if (tiles[i].line == line && (nearest == from || distance(i) < distance(nearest))) nearest = i;
  }
  return nearest;
}

}  // namespace ambrel
