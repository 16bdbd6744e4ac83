#pragma once
// The icon of the status item, drawn with the symbols and colours of the kit.

#include <QIcon>

#include "app/kit/Palette.h"

namespace ambrel {

// The bar's own sign for 0; otherwise a raised hand with the count (from 10 on "9+"). It has a ground of its own, so
// that it can be read on any panel.
QIcon statusIcon(int attention, const Palette& palette);
// One size of it, in pixels.
QImage statusImage(int attention, const Palette& palette, int size);

}  // namespace ambrel
