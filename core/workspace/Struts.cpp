#include "core/workspace/Struts.h"

#include <algorithm>
#include <limits>

namespace ambrel {
namespace {

// Whether the pixels from `start` to `end` meet the stretch from `from` up to `to`. Some programs leave both at 0
// when they mean the whole edge.
bool meets(std::uint32_t start, std::uint32_t end, double from, double to) {
  if (start == 0 && end == 0) return true;
  return end >= start && start < to && end >= from;
}

void reserve(double& inset, double depth, double length) {
  if (depth > 0 && depth < length) inset = std::max(inset, depth);
}

}  // namespace

std::optional<Strut> parseStrut(std::span<const std::uint32_t> numbers) {
  constexpr auto whole = std::numeric_limits<std::uint32_t>::max();
  if (numbers.size() >= 12)
    return Strut{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4],  numbers[5],
                 numbers[6], numbers[7], numbers[8], numbers[9], numbers[10], numbers[11]};
  if (numbers.size() >= 4)
    return Strut{numbers[0], numbers[1], numbers[2], numbers[3], 0, whole, 0, whole, 0, whole, 0, whole};
  return std::nullopt;
}

Insets reservedEdges(const Rect& screen, double desktopWidth, double desktopHeight, const std::vector<Strut>& struts) {
  Insets insets;
  for (const Strut& strut : struts) {
    if (strut.left > 0 && meets(strut.leftStart, strut.leftEnd, screen.minY(), screen.maxY()))
      reserve(insets.left, strut.left - screen.minX(), screen.width);
    if (strut.right > 0 && meets(strut.rightStart, strut.rightEnd, screen.minY(), screen.maxY()))
      reserve(insets.right, strut.right - (desktopWidth - screen.maxX()), screen.width);
    if (strut.top > 0 && meets(strut.topStart, strut.topEnd, screen.minX(), screen.maxX()))
      reserve(insets.top, strut.top - screen.minY(), screen.height);
    if (strut.bottom > 0 && meets(strut.bottomStart, strut.bottomEnd, screen.minX(), screen.maxX()))
      reserve(insets.bottom, strut.bottom - (desktopHeight - screen.maxY()), screen.height);
  }
  return insets;
}

Insets outsideWorkArea(const Rect& screen, const Rect& area) {
  Insets insets;
  if (!screen.contains({area.midX(), area.midY()}, true)) return insets;
  reserve(insets.left, area.minX() - screen.minX(), screen.width);
  reserve(insets.right, screen.maxX() - area.maxX(), screen.width);
  reserve(insets.top, area.minY() - screen.minY(), screen.height);
  reserve(insets.bottom, screen.maxY() - area.maxY(), screen.height);
  return insets;
}

Insets combined(const Insets& one, const Insets& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top), std::max(one.right, other.right),
          std::max(one.bottom, other.bottom)};
}

}  // namespace ambrel
