#include "app/window/PanelWindow.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>

#include "app/kit/Theme.h"

namespace ambrel {
namespace {

constexpr int moveDuration = 250;

}  // namespace

PanelWindow::PanelWindow(QQmlEngine& engine, WindowStyle& style, WindowRole role)
    : ClearWindow(engine, style, role), cornerRadius_(Theme::radiusPanel) {
  move_.setDuration(moveDuration);
  move_.setEasingCurve(QEasingCurve::InOutQuad);
  connect(&move_, &QVariantAnimation::valueChanged, this, [this](const QVariant& corner) {
    // New ends give a new value, too.
    if (move_.state() != QAbstractAnimation::Running) return;
    const QRect frame(corner.toPoint(), panelFrame_.size()), room = room_;
    // On its way it may be outside of where it goes.
    setPanelFrame(frame, room.united(frame));
    room_ = room;
  });
  if (role != WindowRole::panel) return;
  connect(this, &QWindow::activeChanged, this, [this] {
    if (isActive())
      wasActive_ = true;
    else if (std::exchange(wasActive_, false))
      Q_EMIT leaveAsked();
  });
}

QQuickItem* PanelWindow::part(const char* name) const {
  return rootObject() ? rootObject()->property(name).value<QQuickItem*>() : nullptr;
}

void PanelWindow::movePanelFrame(const QRect& frame, const QRect& room) {
  const bool isMoving = move_.state() == QAbstractAnimation::Running;
  if (!isVisible() || !room.contains(panelFrame_.center()) || frame.size() != panelFrame_.size() ||
      (!isMoving && frame == panelFrame_) || themeOf(*engine()).reducedMotion()) {
    move_.stop();
    setPanelFrame(frame, room);
    return;
  }
  room_ = room;
  if (isMoving && frame.topLeft() == move_.endValue().toPoint()) return;
  move_.stop();
  move_.setStartValue(panelFrame_.topLeft());
  move_.setEndValue(frame.topLeft());
  move_.start();
}

void PanelWindow::setPanelFrame(const QRect& frame, const QRect& room) {
  panelFrame_ = frame;
  room_ = room;
  windowFrame_ = frame.adjusted(-shadowMargin, -shadowMargin, shadowMargin, shadowMargin).intersected(room);
  style_.place(*this, windowFrame_);
  setShape(panelRect(), cornerRadius_, panelRect());
  Q_EMIT panelRectChanged();
}

void PanelWindow::setCornerRadius(int radius) {
  if (cornerRadius_ == radius) return;
  cornerRadius_ = radius;
  if (!panelFrame_.isNull()) setShape(panelRect(), cornerRadius_, panelRect());
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  ClearWindow::keyPressEvent(event);
  if (event->key() == Qt::Key_Escape && !event->isAccepted()) {
    event->accept();
    Q_EMIT leaveAsked();
  }
}

void PanelWindow::mousePressEvent(QMouseEvent* event) {
  ClearWindow::mousePressEvent(event);
  Q_EMIT pressed();
  if (!panelRect().contains(event->position().toPoint())) Q_EMIT leaveAsked();
}

}  // namespace ambrel
