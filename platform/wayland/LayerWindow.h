#pragma once
// One window of ours on a layer of the compositor's: above others, without a frame, where we put it.

#include <LayerShellQt/window.h>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QScreen>
#include <QTimer>
#include <functional>

#include "platform/WindowStyle.h"

class QWindow;

namespace ambrel {

// The corner of what others leave of a screen, from which its windows are placed.
using OriginOf = std::function<QPoint(const QScreen&)>;

class LayerWindow : public QObject {
  Q_OBJECT

 public:
  // Belongs to the window.
  LayerWindow(QWindow& window, WindowRole role, OriginOf originOf);
  // Null for a window that is on no layer.
  static LayerWindow* of(const QWindow& window);

  void place(const QRect& frame);
  void setTakesKeys(bool takesKeys);
  void activate(std::function<void(bool isActive)> done);
  // Another window of ours is to have the keyboard.
  void letGo();
  void giveBack();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Layer = LayerShellQt::Window;

  void attach();
  void setKeys(Layer::KeyboardInteractivity keys);
  void answer(bool isActive);
  // It can be seen on that screen with another surface alone.
  bool needsAnother(const QScreen* screen) const;
  void showAgain();

  QWindow& window_;
  const WindowRole role_;
  OriginOf originOf_;
  QPointer<Layer> layer_;
  Layer::KeyboardInteractivity keys_ = Layer::KeyboardInteractivityNone;
  QMargins margins_;
  bool isOfWhite_ = false;
  // What its surface was made for, and whether the compositor has closed that: some do when the screen goes, some say
  // nothing.
  QPointer<QScreen> surfaceScreen_;
  bool isDismissed_ = false;
  QTimer return_;
  std::function<void(bool)> done_;
  bool isAsking_ = false;
  QTimer patience_;
};

}  // namespace ambrel
