#pragma once
// The catalogue of the bar: what every widget is called, looks like and asks for.

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "core/base/EnumText.h"
#include "core/base/Geometry.h"
#include "core/widgets/DockWidget.h"

namespace ambrel {

// In the order of the gallery.
enum class WidgetGroup { system, productivity, weather, textTools, focus, developer, infoAndFun, media };

// What a licence may be asked for.
enum class ProFeature { agentTracking, askBuddy, proactiveBuddy, screenNotes, translate, profileSwitching };

// The widths that a tile comes in; all are 64 tall.
enum class TileSize { small, medium, large, extraLarge };

// Logical pixels: 64, 112, 176, 240.
constexpr double width(TileSize size) {
  switch (size) {
    case TileSize::small:
      return 64;
    case TileSize::medium:
      return 112;
    case TileSize::large:
      return 176;
    case TileSize::extraLarge:
      return 240;
  }
  return 0;
}

// The catalogue. Texts are UTF-8 and live as long as the program; none is empty.
std::string_view title(DockWidget widget);
// For a tile of the two smaller sizes.
std::string_view shortTitle(DockWidget widget);
std::string_view description(DockWidget widget);
std::string_view symbol(DockWidget widget);
WidgetGroup group(DockWidget widget);
// The heading over a group.
std::string_view title(WidgetGroup group);

// The size on a bar with room, and the least at which the tile can still say something.
TileSize defaultSize(DockWidget widget);
TileSize smallestSize(DockWidget widget);

// Absent for a widget that is free.
std::optional<ProFeature> requiredFeature(DockWidget widget);

// What it shows nothing without, "a battery", for the sentence "Needs …"; empty when it needs nothing.
std::string_view need(DockWidget widget);

// Those whose title or description holds the query, letter case aside, in catalogue order; all for a blank query.
std::vector<DockWidget> widgetsMatching(std::string_view query);

// The gallery: its groups below one another, each a heading and its tiles in lines from left to right.
struct GalleryLayout {
  static constexpr double headingHeight = 44, gap = 12, lineHeight = 64 + 12;

  struct Heading {
    WidgetGroup group;
    double y = 0;
  };
  struct Tile {
    DockWidget widget;
    Rect frame;  // y grows downwards here, from the top of the first heading
    int line = 0;
  };
  enum class Step { left, right, up, down };

  std::vector<Heading> headings{};
  std::vector<Tile> tiles{};
  double height = 0;

  // Where an arrow key leads: along the order of the tiles, or to the nearest of the next line. The same at the ends.
  std::size_t stepped(std::size_t from, Step step) const;
};
// width: of the lines; a tile that is wider still has a line of its own. Groups without widgets are left out.
GalleryLayout galleryLayout(const std::vector<DockWidget>& widgets, double width);

}  // namespace ambrel
