#include "app/window/FramedWindow.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QScreen>
#include <chrono>

namespace ambrel {
namespace {

constexpr double cornerRadius = 14;
// Beyond the frame, where the pointer can still take hold of an edge.
constexpr int grip = 5;
// How often we look, while the window manager moves the window, whether the button is still held.
constexpr std::chrono::milliseconds releaseInterval{100};

}  // namespace

FramedWindow::FramedWindow(QQmlEngine& engine, WindowStyle& style, const QString& title, QSize size, QSize smallest)
    : QQuickView(&engine, nullptr), style_(style), smallest_(smallest) {
  setTitle(title);
  setColor(Qt::transparent);
  setResizeMode(QQuickView::SizeRootObjectToView);
  setPersistentGraphics(false);
  style_.prepare(*this, WindowRole::window);
  margin_ = style_.isCompositing() ? shadowMargin : 0;
  // The frame is never larger than the screen, however small or scaled that is; the shadow may be.
  const QSize room = screen()->availableSize();
  smallest_ = smallest_.boundedTo(room);
  setMinimumSize(smallest_.grownBy({margin_, margin_, margin_, margin_}));
  resize(size.boundedTo(room).grownBy({margin_, margin_, margin_, margin_}));
  connect(this, &QWindow::windowStateChanged, this, &FramedWindow::updateFrame);
  release_.setInterval(releaseInterval);
  connect(&release_, &QTimer::timeout, this, [this] {
    if (style_.isPressed()) return;
    release_.stop();
    style_.endMove(*this);
  });
}

void FramedWindow::toggleMaximized() {
  if (isFilling_)
    showNormal();
  else
    showMaximized();
}

void FramedWindow::startMove() {
  if (!isFilling_)
    held_ = pressed_;
  else if (style_.isPressed() && startSystemMove())
    release_.start();
}

void FramedWindow::startResize(int edges) {
  // A quick drag can be over when we hear of it; the edge would follow the pointer until the next click.
  if (style_.isPressed() && startSystemResize(Qt::Edges(edges))) release_.start();
}

void FramedWindow::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->globalPosition().toPoint() - position();
  QQuickView::mousePressEvent(event);
}

void FramedWindow::mouseMoveEvent(QMouseEvent* event) {
  QQuickView::mouseMoveEvent(event);
  if (!event->buttons().testFlag(Qt::LeftButton)) held_.reset();
  if (held_) setPosition(event->globalPosition().toPoint() - *held_);
}

void FramedWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (held_) setPosition(event->globalPosition().toPoint() - *held_);
  held_.reset();
  QQuickView::mouseReleaseEvent(event);
}

bool FramedWindow::event(QEvent* event) {
  // The window manager asks; whoever made the window decides.
  if (event->type() == QEvent::Close) {
    event->ignore();
    Q_EMIT closeAsked();
    return true;
  }
  return QQuickView::event(event);
}

void FramedWindow::resizeEvent(QResizeEvent* event) {
  QQuickView::resizeEvent(event);
  updateShape();
}

void FramedWindow::showEvent(QShowEvent* event) {
  QQuickView::showEvent(event);
  updateFrame();
}

void FramedWindow::updateFrame() {
  isFilling_ = windowStates() & (Qt::WindowMaximized | Qt::WindowFullScreen);
  margin_ = !isFilling_ && style_.isCompositing() ? shadowMargin : 0;
  setMinimumSize(smallest_.grownBy({margin_, margin_, margin_, margin_}));
  style_.setShadowMargin(*this, margin_);
  updateShape();
  Q_EMIT frameChanged();
}

void FramedWindow::updateShape() {
  const double corner = isFilling_ || style_.isCompositing() ? 0 : cornerRadius;
  style_.setRoundedMask(*this, 0, 0, width(), height(), corner);
  const int free = std::max(margin_ - grip, 0);
  style_.setInputRect(*this, free, free, width() - 2 * free, height() - 2 * free);
}

}  // namespace ambrel
