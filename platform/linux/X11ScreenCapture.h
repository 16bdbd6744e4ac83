#pragma once
// The root window's pixels, by shared memory where the server is on this computer.

#include <QObject>
#include <memory>

#include "platform/ScreenCapture.h"
#include "platform/linux/X11Connection.h"

class QScreen;

namespace ambrel {

class X11ScreenCapture : public QObject, public ScreenCapture {
 public:
  // Without a connection there is no picture.
  explicit X11ScreenCapture(X11Connection* connection) : connection_(connection) {}

  // Our own windows are cut to nothing for a moment; programs below them get time to draw what they covered.
  void capture(std::function<void(ScreenPicture)> done) override;

 private:
  class Hidden;
  ScreenPicture picture(const QScreen& screen);
  QImage pixels(const QRect& area);
  std::vector<QRectF> windows(const QRect& area);

  X11Connection* connection_;
  // Shared by captures that overlap: a second one would take the cut windows for whole ones.
  std::weak_ptr<Hidden> hidden_;
  int turn_ = 0;
};

}  // namespace ambrel
