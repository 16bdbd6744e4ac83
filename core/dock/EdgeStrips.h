#pragma once
// Where at the edges of a screen the pointer asks for something: the outermost point of them, or as much of the room
// below another program's panel as a hand can rest in (EdgeDwell).

#include "core/dock.h"

namespace ambrel {

// Along the bar's length. bar: where it is when it is shown.
Rect revealStrip(const Rect& bar, const Rect& screen, DockEdge edge);
// In the middle of the upper edge.
Rect shelfStrip(const ScreenFrames& screen);

}  // namespace ambrel
