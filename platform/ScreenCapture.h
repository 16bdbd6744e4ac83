#pragma once
// A picture of what is on a screen.

#include <QColor>
#include <QImage>
#include <QRectF>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ambrel {

struct ScreenPicture {
  QImage image = {};                 // in the screen's own pixels; null when there is none
  std::vector<QRectF> windows = {};  // of other programs, from the bottom to the top, as fractions of the picture
  std::string problem = {};          // why there is no picture: one sentence; empty when the user called it off
};

struct PickedColor {
  std::optional<QColor> color = {};  // absent when the user called it off
  std::string problem = {};          // why there is none: one sentence
};

class ScreenCapture {
 public:
  virtual ~ScreenCapture() = default;

  // The screen under the pointer, without our own windows. `done` runs on the main thread, later or at once; a new call
  // abandons the one before. The desktop may ask the user first.
  virtual void capture(std::function<void(ScreenPicture)> done) = 0;
  // Has the desktop let the user pick a color. False where it has no way to, and `done` is never called: a picture of
  // the screen serves there.
  virtual bool pickColor(std::function<void(PickedColor)> /*done*/) { return false; }
};

}  // namespace ambrel
