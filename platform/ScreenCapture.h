#pragma once
// A picture of what is on a screen.

#include <QImage>
#include <QRectF>
#include <functional>
#include <string>
#include <vector>

namespace ambrel {

struct ScreenPicture {
  QImage image = {};                 // in the screen's own pixels; null when there is none
  std::vector<QRectF> windows = {};  // of other programs, from the bottom to the top, as fractions of the picture
  std::string problem = {};          // why there is no picture: one sentence; empty when the user called it off
};

class ScreenCapture {
 public:
  virtual ~ScreenCapture() = default;

  // The screen under the pointer, without our own windows. `done` runs on the main thread, later or at once; a new call
  // abandons the one before. The desktop may ask the user first.
  virtual void capture(std::function<void(ScreenPicture)> done) = 0;
};

}  // namespace ambrel
