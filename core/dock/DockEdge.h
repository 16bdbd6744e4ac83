#pragma once
// The edge of the screen where the bar is.

#include "core/base/EnumText.h"

namespace ambrel {

enum class DockEdge { bottom, left, right };

}  // namespace ambrel
