#include "app/dock/BarContent.h"

#include "app/base/StoredValue.h"
#include "core/widgets.h"

namespace ambrel {
namespace {

TileRecord tileOf(const DockItem& item, const std::string& widgetID) {
  TileRecord tile;
  tile.item = toQString(item.id.text());
  tile.widget = toQString(widgetID);
  if (const auto widget = fromName<DockWidget>(widgetID)) {
    tile.title = toQString(title(*widget));
    tile.shortTitle = toQString(shortTitle(*widget));
    tile.symbol = toQString(symbol(*widget));
    tile.description = toQString(description(*widget));
  } else {
    tile.title = tile.shortTitle = tile.widget;
    tile.symbol = QStringLiteral("questionmark.circle");
    tile.description = QStringLiteral("This version does not know this widget");
    tile.isKnown = false;
  }
  return tile;
}

// Room for a sentence and a button.
constexpr double emptyLength = 232;

int spanOf(double length) {
  int span = 0;
  for (const TileSize size : {TileSize::medium, TileSize::large, TileSize::extraLarge})
    if (length >= width(size)) ++span;
  return span;
}

}  // namespace

BarContent barContent(const std::vector<DockItem>& items, DockEdge edge, double maxLength, double scale) {
  BarContent content;
  std::vector<TileRequest> requests;
  for (const DockItem& item : items) {
    if (!item.widget) continue;
    content.tiles.push_back(tileOf(item, *item.widget));
    requests.push_back(tileRequest(*item.widget));
  }
  const TileLayout layout = fittedTiles(requests, edge, maxLength / scale);
  for (std::size_t i = 0; i < layout.tiles.size(); ++i) {
    // The layout counts from the lower left corner.
    const Rect& tile = layout.tiles[i];
    const double y = layout.height - tile.maxY();
    content.tiles[i].frame = {tile.x * scale, y * scale, tile.width * scale, tile.height * scale};
    content.tiles[i].span = spanOf(tile.width);
  }
  content.slab = QSizeF(layout.width, layout.height) * scale;
  if (content.tiles.empty())
    content.slab = QSizeF(emptyLength, TileLayout::tileHeight + 2 * TileLayout::padding) * scale;
  content.contentLength = layout.contentLength * scale;
  content.isScrolling = layout.isScrolling;
  return content;
}

}  // namespace ambrel
