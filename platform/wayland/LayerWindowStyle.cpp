#include "platform/wayland/LayerWindowStyle.h"

#include <QGuiApplication>
#include <QRegion>
#include <QWindow>

namespace ambrel {

void LayerWindowStyle::prepare(QWindow& window, WindowRole role) {
  window.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
  if (role != WindowRole::window) new LayerWindow(window, role, originOf_);
}

void LayerWindowStyle::place(QWindow& window, const QRect& frame) {
  if (LayerWindow* ours = LayerWindow::of(window)) ours->place(frame);
}

void LayerWindowStyle::setTakesKeys(QWindow& window, bool takesKeys) {
  if (LayerWindow* ours = LayerWindow::of(window)) ours->setTakesKeys(takesKeys);
}

void LayerWindowStyle::activate(QWindow& window, std::function<void(bool)> done) {
  LayerWindow* const ours = LayerWindow::of(window);
  const auto windows = QGuiApplication::allWindows();
  for (QWindow* each : windows)
    if (LayerWindow* other = LayerWindow::of(*each); other && other != ours) other->letGo();
  if (ours)
    ours->activate(std::move(done));
  else
    window.requestActivate();
}

void LayerWindowStyle::giveBack(QWindow& window) {
  if (LayerWindow* ours = LayerWindow::of(window)) ours->giveBack();
}

void LayerWindowStyle::setInputRect(QWindow& window, double x, double y, double width, double height) {
  // What is drawn outside of it stays: here a mask says where clicks are taken alone.
  window.setMask(QRectF(x, y, width, height).toAlignedRect());
}

}  // namespace ambrel
