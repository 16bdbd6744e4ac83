#pragma once
// What the window manager and the compositor have to know about our windows.

#include <functional>

class QWindow;

namespace ambrel {

enum class WindowRole {
  dock,    // the bar: above others, never focused, no place in task lists
  panel,   // opens from the bar and takes keys
  window,  // an ordinary window of its own, whose frame we draw
  bubble,  // a short message of our own: above others, never focused
};

class WindowStyle {
 public:
  virtual ~WindowStyle() = default;

  // Before the window is shown for the first time: its type, its place above others, whether it takes focus.
  virtual void prepare(QWindow& window, WindowRole role) = 0;

  // Whether windows may be translucent. Without a compositor what is meant to be clear is black.
  virtual bool isCompositing() const = 0;
  // `handler` is called on the main thread when a compositor has come or gone.
  virtual void setCompositingHandler(std::function<void(bool isCompositing)> handler) = 0;

  // Cuts the window to a rectangle with round corners, in points from the window's upper left corner; the stand-in
  // for a translucent margin when there is no compositor. A radius of 0 or less takes the cut away.
  virtual void setRoundedMask(QWindow& window, double x, double y, double width, double height, double radius) = 0;

  // Lets clicks through everywhere but in this rectangle, in points from the window's upper left corner: the margin
  // in which a shadow lies is not ours to take clicks in. Before it is shown or after.
  virtual void setInputRect(QWindow& window, double x, double y, double width, double height) = 0;

  // How much of the window, on each side, is shadow: window managers align what lies within. In points.
  virtual void setShadowMargin(QWindow& window, double margin) = 0;
};

}  // namespace ambrel
