#include <algorithm>

#include "core/dock.h"

namespace ambrel {
namespace {

double lengthOf(std::size_t count, double tiles) {
  const double gaps = count > 1 ? static_cast<double>(count - 1) * TileLayout::gap : 0;
  return 2 * TileLayout::padding + tiles + gaps;
}

TileSize stepDown(TileSize size) { return static_cast<TileSize>(static_cast<int>(size) - 1); }

// The sizes at which a row is no longer than `maxLength`, or the smallest of all.
std::vector<TileSize> sizesInRow(std::span<const TileRequest> requests, double maxLength) {
  std::vector<TileSize> sizes;
  double tiles = 0;
  for (const TileRequest& request : requests) {
    sizes.push_back(std::max(request.size, request.smallest));
    tiles += width(sizes.back());
  }
  while (lengthOf(sizes.size(), tiles) > maxLength) {
    std::optional<std::size_t> widest;
    for (std::size_t i = 0; i < sizes.size(); ++i)
      if (sizes[i] > requests[i].smallest && (!widest || sizes[i] >= sizes[*widest])) widest = i;
    if (!widest) break;
    tiles -= width(sizes[*widest]);
    sizes[*widest] = stepDown(sizes[*widest]);
    tiles += width(sizes[*widest]);
  }
  return sizes;
}

TileLayout row(std::span<const TileRequest> requests, double maxLength) {
  TileLayout layout{.height = TileLayout::tileHeight + 2 * TileLayout::padding};
  double x = TileLayout::padding, tiles = 0;
  for (const TileSize size : sizesInRow(requests, maxLength)) {
    layout.tiles.push_back({x, TileLayout::padding, width(size), TileLayout::tileHeight});
    x += width(size) + TileLayout::gap;
    tiles += width(size);
  }
  layout.contentLength = lengthOf(requests.size(), tiles);
  layout.width = std::min(layout.contentLength, maxLength);
  layout.isScrolling = layout.contentLength > maxLength;
  return layout;
}

TileLayout column(std::span<const TileRequest> requests, double maxLength) {
  TileSize size = TileSize::small;
  for (const TileRequest& request : requests)
    size = std::max({size, request.smallest, std::min(request.size, TileSize::medium)});
  TileLayout layout{.width = width(size) + 2 * TileLayout::padding};
  layout.contentLength = lengthOf(requests.size(), static_cast<double>(requests.size()) * TileLayout::tileHeight);
  layout.height = std::min(layout.contentLength, maxLength);
  layout.isScrolling = layout.contentLength > maxLength;
  double top = layout.height - TileLayout::padding;
  for (std::size_t i = 0; i < requests.size(); ++i) {
    layout.tiles.push_back({TileLayout::padding, top - TileLayout::tileHeight, width(size), TileLayout::tileHeight});
    top -= TileLayout::tileHeight + TileLayout::gap;
  }
  return layout;
}

}  // namespace

TileRequest tileRequest(std::string_view widgetID) {
  const auto widget = fromName<DockWidget>(widgetID);
  return widget ? TileRequest{defaultSize(*widget), smallestSize(*widget)} : TileRequest{};
}

TileLayout fittedTiles(std::span<const TileRequest> requests, DockEdge edge, double maxLength) {
  return edge == DockEdge::bottom ? row(requests, maxLength) : column(requests, maxLength);
}

std::size_t landingPlace(std::span<const double> middles, double at) {
  return static_cast<std::size_t>(std::ranges::lower_bound(middles, at) - middles.begin());
}

}  // namespace ambrel
