#pragma once
// One window of ours under X11: what the window manager reads of it, and how it comes by the keyboard.

#include <QElapsedTimer>
#include <QObject>
#include <QRect>
#include <QRectF>
#include <QTimer>
#include <array>
#include <functional>
#include <optional>

#include "platform/WindowStyle.h"
#include "platform/linux/X11Connection.h"

class QWindow;

namespace ambrel {

class X11WindowManager;

// Belongs to its window and ends with it.
class X11Window : public QObject {
 public:
  X11Window(QWindow& window, WindowRole role, X11Connection* connection, X11WindowManager& manager);

  // Null for a window that has none.
  static X11Window* of(QWindow& window);
  // A border counts, too.
  static bool isFramed(const QWindow& window, X11Connection* connection);

  WindowRole role() const { return role_; }
  void place(const QRect& frame);
  void setInputRect(const QRectF& rect);
  void setTakesKeys(bool takesKeys);
  void activate(std::function<void(bool)> done);
  // Gives up asking for the keyboard, if it does.
  void stopAsking();
  void giveBack();
  // What is known of the window manager has changed.
  void managerChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static X11Window* ownWindow(xcb_window_t id);
  xcb_window_t id() const;
  bool isBypassing() const;
  bool shouldBypass() const;
  bool canAsk() const { return connection_ && !connection_->isBroken(); }
  bool changesHands() const;
  void showAsAnother();
  void beforeShow();
  void afterHide();
  void applyInputRect();
  std::vector<std::uint32_t> wantedStates() const;
  // By a message to the root window, as those to window managers are.
  void tellManager(const char* what, const std::array<std::uint32_t, 5>& values);
  void checkStates();
  void writeProtocols();
  void writeUserTime(xcb_timestamp_t time);
  void checkPlace();
  bool isViewable(xcb_window_t window) const { return connection_->isViewable(window); }
  xcb_window_t focused() const { return connection_->focused(); }
  // The steps of `activate`; each gives up when a newer call has come.
  void askForFocus(int attempt, int turn);
  void takeFocus(int attempt);
  void awaitFocus(int attempt, int turn, std::function<void()> otherwise);
  void finish(bool isActive);
  void keyboardLost();
  bool isNobody(xcb_window_t window) const;
  void leaveToCompositor();
  void later(int milliseconds, int attempt, std::function<void()> step);

  QWindow& window_;
  WindowRole role_;
  X11Connection* connection_;
  X11WindowManager& manager_;
  bool takesKeys_;
  std::optional<QRect> asked_;
  std::optional<QRectF> input_;
  QTimer placeTimer_;
  X11Watch watch_;
  QElapsedTimer sinceKeyboard_;  // since it has last got it by `activate`
  int attempt_ = 0;
  std::function<void(bool)> done_;                // set as long as the keyboard is asked for
  xcb_window_t previousFocus_ = XCB_WINDOW_NONE;  // who had the keyboard before; none when nothing is to be given back
};

}  // namespace ambrel
