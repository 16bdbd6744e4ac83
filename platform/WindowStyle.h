#pragma once
// What the window manager and the compositor have to know about our windows.

#include <functional>

class QRect;
class QWindow;

namespace ambrel {

enum class WindowRole {
  dock,    // the bar: above others, on every workspace, no place in task lists, focused by key alone
  panel,   // opens from the bar and takes keys; otherwise like the bar
  window,  // an ordinary window of its own, whose frame we draw
  bubble,  // a short message of our own: above others, never focused, no business of the window manager's
  cover,   // over a whole screen and all that is on it, with the keyboard; no business of the window manager's either
};

class WindowStyle {
 public:
  virtual ~WindowStyle() = default;

  // Before the window is shown for the first time: its type, its place above others, whether it takes focus.
  virtual void prepare(QWindow& window, WindowRole role) = 0;

  // Where a bar, a panel or a bubble is to be, in the window system's coordinates. A window manager that would put
  // it elsewhere or give it a frame is not asked.
  virtual void place(QWindow& window, const QRect& frame) = 0;

  // Whether a window may have the keyboard. One that may not does not get it by being shown or clicked.
  virtual void setTakesKeys(QWindow& window, bool takesKeys) = 0;
  // Brings the keyboard to a window that takes keys and is shown, or about to be: at the user's wish alone. `done`
  // is called later, with whether the window has got it; not when the window is closed or asked again before that.
  virtual void activate(QWindow& window, std::function<void(bool isActive)> done = {}) = 0;
  // The user is done with a window that stays on the screen: the window that had the keyboard before gets it back.
  virtual void giveBack(QWindow& window) = 0;

  // Whether an ordinary window is where the program puts it. Where it is not, the window has no room for a shadow
  // around its frame, and the toolkit is asked to move it.
  virtual bool placesWindows() const = 0;

  // Whether windows may be translucent. Without a compositor what is meant to be clear is black.
  virtual bool isCompositing() const = 0;
  // `handler` is called on the main thread when a compositor has come or gone.
  virtual void setCompositingHandler(std::function<void(bool isCompositing)> handler) = 0;

  // Cuts the window to a rectangle with round corners, in points from the window's upper left corner; the stand-in
  // for a translucent margin when there is no compositor. A radius of 0 or less takes the cut away.
  virtual void setRoundedMask(QWindow& window, double x, double y, double width, double height, double radius) = 0;

  // Lets clicks through everywhere but in this rectangle, in points from the window's upper left corner: the margin
  // that holds a shadow is not ours to take clicks in. Before it is shown or after.
  virtual void setInputRect(QWindow& window, double x, double y, double width, double height) = 0;

  // How much of the window, on each side, is shadow: window managers align what is inside. In points.
  virtual void setShadowMargin(QWindow& window, double margin) = 0;

  // Whether the window manager has put a frame round a window that is shown, although it asks for none.
  virtual bool isFramed(const QWindow& window) const = 0;

  // Whether a button of the mouse is held now. What the toolkit says of it is as old as its last event.
  virtual bool isPressed() const = 0;
  // Ends a move or a change of size that the window manager has begun. Some never end it by themselves when the
  // button was released before they took the pointer.
  virtual void endMove(QWindow& window) = 0;
};

}  // namespace ambrel
