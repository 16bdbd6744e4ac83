#pragma once
// The edge of the screen that the bar stands on.

#include "core/base/EnumText.h"

namespace ambrel {

enum class DockEdge { bottom, left, right };

template <>
struct EnumText<DockEdge> {
  static constexpr std::array table{
      std::pair{DockEdge::bottom, std::string_view("bottom")},
      std::pair{DockEdge::left, std::string_view("left")},
      std::pair{DockEdge::right, std::string_view("right")},
  };
};

}  // namespace ambrel
