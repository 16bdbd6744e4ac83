#pragma once
// Our colours for dialogs that the toolkit draws.

#include <QPalette>

#include "app/kit/Palette.h"

namespace ambrel {

QPalette dialogPalette(const Palette& colors);

}  // namespace ambrel
