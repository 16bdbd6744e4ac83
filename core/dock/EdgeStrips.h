#pragma once
// Where at the edges of a screen the pointer asks for something: the outermost point of them.

#include "core/dock.h"

namespace ambrel {

// Along the bar's length. bar: where it is when it is shown.
Rect revealStrip(const Rect& bar, const Rect& screen, DockEdge edge);
// In the middle of the upper edge, or right below another program's panel (EdgeDwell).
Rect shelfStrip(const ScreenFrames& screen);

}  // namespace ambrel
