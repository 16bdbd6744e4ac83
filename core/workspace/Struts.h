#pragma once
// Edges of the desktop that docks and panels reserve (_NET_WM_STRUT_PARTIAL), in pixels, y downwards.

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/base/Geometry.h"

namespace ambrel {

// How far a window reaches in from the desktop's edges, and along which stretch (first and last pixel).
struct Strut {
  std::uint32_t left = 0, right = 0, top = 0, bottom = 0;
  std::uint32_t leftStart = 0, leftEnd = 0;
  std::uint32_t rightStart = 0, rightEnd = 0;
  std::uint32_t topStart = 0, topEnd = 0;
  std::uint32_t bottomStart = 0, bottomEnd = 0;
  bool operator==(const Strut&) const = default;
};

// Twelve numbers as in _NET_WM_STRUT_PARTIAL, or the four of _NET_WM_STRUT, which reach along whole edges.
std::optional<Strut> parseStrut(std::span<const std::uint32_t> numbers);

struct Insets {
  double left = 0, top = 0, right = 0, bottom = 0;
  bool operator==(const Insets&) const = default;
};

// What of this screen is outside a work area, if the area belongs to it. Desktops whose panels are not windows announce
// them only in this way.
Insets outsideWorkArea(const Rect& screen, const Rect& area);

// The deeper of both at each edge.
Insets combined(const Insets& one, const Insets& other);

// What the struts take from one screen of a desktop of this size. A strut that would swallow the whole screen is
// meant for a screen beyond it and is ignored here.
Insets reservedEdges(const Rect& screen, double desktopWidth, double desktopHeight, const std::vector<Strut>& struts);

}  // namespace ambrel
