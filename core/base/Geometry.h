#pragma once
// Points and rectangles in device-independent points. The core and the seam count y upwards from the
// lower edge of the main screen; window systems count downwards from the top. `flipped` goes either way; x stays.

namespace ambrel {

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double minX() const { return x; }
  double minY() const { return y; }
  double maxX() const { return x + width; }
  double maxY() const { return y + height; }
  double midX() const { return x + width / 2; }
  double midY() const { return y + height / 2; }
  bool isEmpty() const { return width <= 0 || height <= 0; }
  // The lower edges belong to it; with `closed`, the upper ones do too.
  bool contains(Point point, bool closed = false) const {
    return point.x >= minX() && point.y >= minY() && (closed ? point.x <= maxX() : point.x < maxX()) &&
           (closed ? point.y <= maxY() : point.y < maxY());
  }
  // Larger by `margin` on every side.
  Rect grown(double margin) const { return {x - margin, y - margin, width + 2 * margin, height + 2 * margin}; }
  bool operator==(const Rect&) const = default;
};

// `mainHeight` is where the window system has the lower edge of the main screen: its height when it is at the top.
constexpr Point flipped(Point point, double mainHeight) { return {point.x, mainHeight - point.y}; }
constexpr Rect flipped(Rect rect, double mainHeight) {
  return {rect.x, mainHeight - rect.y - rect.height, rect.width, rect.height};
}

}  // namespace ambrel
