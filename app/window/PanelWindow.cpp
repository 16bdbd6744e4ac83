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
    : QQuickView(&engine, nullptr), style_(style), cornerRadius_(Theme::radiusPanel) {
  setColor(Qt::transparent);
  setResizeMode(QQuickView::SizeRootObjectToView);
  setPersistentGraphics(false);
  style_.prepare(*this, role);
  move_.setDuration(moveDuration);
  move_.setEasingCurve(QEasingCurve::InOutQuad);
  connect(&move_, &QVariantAnimation::valueChanged, this, [this](const QVariant& corner) {
    // New ends give a new value, too.
    if (move_.state() == QAbstractAnimation::Running)
      setPanelFrame(QRect(corner.toPoint(), panelFrame_.size()), screen_);
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

void PanelWindow::movePanelFrame(const QRect& frame, const QRect& screen) {
  const bool isMoving = move_.state() == QAbstractAnimation::Running;
  if (!isVisible() || screen != screen_ || frame.size() != panelFrame_.size() || themeOf(*engine()).reducedMotion()) {
    move_.stop();
    setPanelFrame(frame, screen);
    return;
  }
  if (frame.topLeft() == (isMoving ? move_.endValue().toPoint() : panelFrame_.topLeft())) return;
  move_.stop();
  move_.setStartValue(panelFrame_.topLeft());
  move_.setEndValue(frame.topLeft());
  move_.start();
}

void PanelWindow::setPanelFrame(const QRect& frame, const QRect& screen) {
  panelFrame_ = frame;
  screen_ = screen;
  windowFrame_ = frame.adjusted(-shadowMargin, -shadowMargin, shadowMargin, shadowMargin).intersected(screen);
  style_.place(*this, windowFrame_);
  updateShape();
  Q_EMIT panelRectChanged();
}

void PanelWindow::setCornerRadius(int radius) {
  if (cornerRadius_ == radius) return;
  cornerRadius_ = radius;
  if (!panelFrame_.isNull()) updateShape();
}

void PanelWindow::updateShape() {
  const QRect panel = panelRect();
  style_.setRoundedMask(*this, panel.x(), panel.y(), panel.width(), panel.height(),
                        style_.isCompositing() ? 0 : cornerRadius_);
  if (!flags().testFlag(Qt::WindowTransparentForInput))
    style_.setInputRect(*this, panel.x(), panel.y(), panel.width(), panel.height());
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  QQuickView::keyPressEvent(event);
  if (event->key() == Qt::Key_Escape && !event->isAccepted()) {
    event->accept();
    Q_EMIT leaveAsked();
  }
}

void PanelWindow::mousePressEvent(QMouseEvent* event) {
  QQuickView::mousePressEvent(event);
  Q_EMIT pressed();
  if (!panelRect().contains(event->position().toPoint())) Q_EMIT leaveAsked();
}

}  // namespace ambrel
