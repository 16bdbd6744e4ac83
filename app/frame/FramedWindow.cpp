#include "app/frame/FramedWindow.h"

#include <QCloseEvent>
#include <QScreen>

namespace ambrel {
namespace {

constexpr double cornerRadius = 14;
// Beyond the frame, where the pointer can still take hold of an edge.
constexpr int grip = 5;

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
}

void FramedWindow::toggleMaximized() {
  if (isFilling_)
    showNormal();
  else
    showMaximized();
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
