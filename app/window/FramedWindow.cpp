#include "app/window/FramedWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleHints>
#include <algorithm>
#include <chrono>
#include <utility>

namespace ambrel {
namespace {

constexpr double cornerRadius = 14;
// Beyond the frame, where the pointer can still take hold of an edge.
constexpr int grip = 5;
// How often we look, while the window manager moves the window, whether the button is still held.
constexpr std::chrono::milliseconds releaseInterval{100};
// By then a window manager that frames every window has done so.
constexpr std::chrono::milliseconds frameCheckDelay{150};

}  // namespace

FramedWindow::FramedWindow(QQmlEngine& engine, WindowStyle& style, const QString& title, QSize size, QSize smallest)
    : ClearWindow(engine, style, WindowRole::window), smallest_(smallest) {
  setTitle(title);
  margin_ = castsShadow() ? shadowMargin : 0;
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
  frameCheck_.setSingleShot(true);
  frameCheck_.setInterval(frameCheckDelay);
  connect(&frameCheck_, &QTimer::timeout, this, [this] {
    if (isFramed_ == style_.isFramed(*this)) return;
    isFramed_ = !isFramed_;
    updateFrame();
  });
}

void FramedWindow::toggleMaximized() {
  if (isFilling_)
    showNormal();
  else
    showMaximized();
}

bool FramedWindow::castsShadow() const { return style_.isCompositing() && style_.placesWindows(); }

void FramedWindow::startMove() {
  if (!style_.placesWindows())
    startSystemMove();
  else if (!isFilling_)
    drag_ = {{}, geometry()};
  else if (style_.isPressed() && startSystemMove())
    release_.start();
}

void FramedWindow::startResize(int edges) {
  if (!style_.placesWindows())
    startSystemResize(Qt::Edges(edges));
  else if (!isFilling_)
    drag_ = {Qt::Edges(edges), geometry()};
}

void FramedWindow::follow(QPoint pointer) {
  if (!drag_) return;
  const QPoint way = pointer - pressed_;
  QRect frame = drag_->start;
  if (!drag_->edges) frame.translate(way);
  if (drag_->edges & Qt::LeftEdge) frame.setLeft(std::min(frame.left() + way.x(), frame.right() + 1 - minimumWidth()));
  if (drag_->edges & Qt::RightEdge)
    frame.setRight(std::max(frame.right() + way.x(), frame.left() - 1 + minimumWidth()));
  if (drag_->edges & Qt::TopEdge) frame.setTop(std::min(frame.top() + way.y(), frame.bottom() + 1 - minimumHeight()));
  if (drag_->edges & Qt::BottomEdge)
    frame.setBottom(std::max(frame.bottom() + way.y(), frame.top() - 1 + minimumHeight()));
  setGeometry(frame);
}

void FramedWindow::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->globalPosition().toPoint();
  ClearWindow::mousePressEvent(event);
}

void FramedWindow::mouseMoveEvent(QMouseEvent* event) {
  ClearWindow::mouseMoveEvent(event);
  if (!event->buttons().testFlag(Qt::LeftButton)) drag_.reset();
  follow(event->globalPosition().toPoint());
}

void FramedWindow::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint released = event->globalPosition().toPoint();
  if ((released - pressed_).manhattanLength() > QGuiApplication::styleHints()->startDragDistance()) {
    // The toolkit drops movements that came before later ones, also the last before the release.
    QMouseEvent last(QEvent::MouseMove, event->position(), event->globalPosition(), Qt::NoButton,
                     event->buttons() | event->button(), event->modifiers());
    mouseMoveEvent(&last);
  }
  drag_.reset();
  ClearWindow::mouseReleaseEvent(event);
}

bool FramedWindow::event(QEvent* event) {
  // The window manager asks; whoever made the window decides.
  if (event->type() == QEvent::Close) {
    event->ignore();
    Q_EMIT closeAsked();
    return true;
  }
  return ClearWindow::event(event);
}

void FramedWindow::resizeEvent(QResizeEvent* event) {
  ClearWindow::resizeEvent(event);
  updateShape();
}

void FramedWindow::showEvent(QShowEvent* event) {
  ClearWindow::showEvent(event);
  updateFrame();
}

void FramedWindow::exposeEvent(QExposeEvent* event) {
  ClearWindow::exposeEvent(event);
  if (isExposed()) frameCheck_.start();
}

void FramedWindow::updateFrame() {
  isFilling_ = windowStates() & (Qt::WindowMaximized | Qt::WindowFullScreen);
  const int before = std::exchange(margin_, !isSquare() && castsShadow() ? shadowMargin : 0);
  setMinimumSize(smallest_.grownBy({margin_, margin_, margin_, margin_}));
  // What is inside stays where it is.
  if (const int less = before - margin_; less != 0 && !isFilling_ && isFramed_)
    setGeometry(geometry().adjusted(less, less, -less, -less));
  style_.setShadowMargin(*this, margin_);
  updateShape();
  Q_EMIT frameChanged();
}

void FramedWindow::updateShape() {
  const QRect whole({}, size());
  const int free = std::max(margin_ - grip, 0);
  setShape(whole, isSquare() ? 0 : cornerRadius, whole.adjusted(free, free, -free, -free));
}

}  // namespace ambrel
