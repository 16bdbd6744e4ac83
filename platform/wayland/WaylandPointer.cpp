#include "platform/wayland/WaylandPointer.h"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>

#include "platform/linux/ClearStrip.h"

namespace ambrel {
namespace {

using Layer = LayerShellQt::Window;

constexpr int coversOthers = -1;

std::unique_ptr<ClearStrip> clearWindow(const QRect& place, QScreen& screen, Layer::Layer on) {
  auto window = std::make_unique<ClearStrip>(Qt::Window | Qt::FramelessWindowHint, place);
  window->setScreen(&screen);
  Layer* const layer = Layer::get(window.get());
  layer->setScope(QStringLiteral("tilebay-edge"));
  layer->setLayer(on);
  layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
  return window;
}

// Puts the strip at an edge of its screen, which a scale that is no whole number moves by a part of a point; one that
// is at none is right below the panel of another program.
void putAt(Layer& layer, const QRect& strip, const QScreen& screen, QPoint origin) {
  const QRect whole = screen.geometry();
  const QPoint at = strip.topLeft() - whole.topLeft();
  const bool isUpright = strip.width() == 1;
  layer.setExclusiveZone(coversOthers);
  if (isUpright) {
    const bool isLeft = strip.left() == whole.left();
    layer.setAnchors(Layer::Anchors(Layer::AnchorTop) | (isLeft ? Layer::AnchorLeft : Layer::AnchorRight));
    layer.setMargins({0, at.y(), 0, 0});
  } else if (strip.bottom() == whole.bottom()) {
    layer.setAnchors(Layer::Anchors(Layer::AnchorBottom) | Layer::AnchorLeft);
    layer.setMargins({at.x(), 0, 0, 0});
  } else {
    const QPoint below = strip.topLeft() - origin;
    if (strip.top() != whole.top()) layer.setExclusiveZone(0);
    layer.setAnchors(Layer::Anchors(Layer::AnchorTop) | Layer::AnchorLeft);
    layer.setMargins(strip.top() == whole.top() ? QMargins(at.x(), 0, 0, 0) : QMargins(below.x(), below.y(), 0, 0));
  }
}

}  // namespace

WaylandPointer::WaylandPointer(const Screens& screens, OriginOf originOf)
    : screens_(screens), originOf_(std::move(originOf)) {
  remake_.setSingleShot(true);
  left_.setSingleShot(true);
  connect(&left_, &QTimer::timeout, this, &WaylandPointer::tellOfMove);
  connect(&remake_, &QTimer::timeout, this, [this] {
    if (wereScreensChanged_) makeStrips();
    wereScreensChanged_ = false;
    makeCatchers();
  });
  // Those of a screen go with it.
  const auto remakeSoon = [this] {
    wereScreensChanged_ = true;
    remake_.start(0);
  };
  connect(qGuiApp, &QGuiApplication::screenAdded, this, remakeSoon);
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, remakeSoon);
  qGuiApp->installEventFilter(this);
}

WaylandPointer::~WaylandPointer() = default;

std::optional<Point> WaylandPointer::location() const {
  return at_ ? flipped(Point{at_->x(), at_->y()}, screens_.mainHeight()) : beyondAllScreens;
}

bool WaylandPointer::isPressed() const { return QGuiApplication::mouseButtons() != Qt::NoButton; }

bool WaylandPointer::wakeOnMove(std::function<void()> onMove) {
  onMove_ = std::move(onMove);
  return true;
}

void WaylandPointer::setStrips(std::vector<Rect> strips) {
  if (strips == wanted_) return;
  wanted_ = std::move(strips);
  makeStrips();
}

void WaylandPointer::setPressHandler(std::function<void()> onPress) {
  onPress_ = std::move(onPress);
  // Called at a press on one of them, which the toolkit is not done with.
  remake_.start(0);
}

void WaylandPointer::tellOfMove() {
  if (const auto onMove = std::exchange(onMove_, nullptr)) onMove();
}

void WaylandPointer::end(Strips& strips) {
  if (std::ranges::any_of(strips, [this](const auto& strip) { return strip.get() == window_; })) {
    window_ = nullptr;
    at_.reset();
    left_.start(0);
  }
  strips.clear();
}

void WaylandPointer::makeCatchers() {
  end(catchers_);
  if (!onPress_) return;
  for (QScreen* screen : QGuiApplication::screens()) {
    catchers_.push_back(clearWindow(screen->geometry(), *screen, Layer::LayerTop));
    Layer& layer = *Layer::get(catchers_.back().get());
    layer.setExclusiveZone(coversOthers);
    layer.setAnchors(Layer::Anchors(Layer::AnchorTop) | Layer::AnchorBottom | Layer::AnchorLeft | Layer::AnchorRight);
    catchers_.back()->show();
  }
}

void WaylandPointer::makeStrips() {
  end(strips_);
  for (const Rect& wanted : wanted_) {
    const Rect down = flipped(wanted, screens_.mainHeight());
    const QRect place = QRectF(down.x, down.y, down.width, down.height).toAlignedRect();
    QScreen* const screen = QGuiApplication::screenAt(place.center());
    if (!screen) continue;
    auto strip = clearWindow(place, *screen, Layer::LayerOverlay);
    putAt(*Layer::get(strip.get()), place, *screen, originOf_(*screen));
    strip->show();
    strips_.push_back(std::move(strip));
  }
}

void WaylandPointer::moved(const QWindow* window, QPointF at) {
  const bool isPlaced = LayerWindow::of(*window) ||
                        std::ranges::any_of(strips_, [&](const auto& strip) { return strip.get() == window; });
  window_ = window;
  at_ = isPlaced ? std::optional(window->geometry().topLeft() + at) : std::nullopt;
  tellOfMove();
}

bool WaylandPointer::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWindowType()) return false;
  const auto* const window = static_cast<const QWindow*>(watched);
  switch (event->type()) {
    case QEvent::Enter:
      moved(window, static_cast<QEnterEvent*>(event)->position());
      break;
    case QEvent::MouseMove:
      moved(window, static_cast<QMouseEvent*>(event)->position());
      break;
    case QEvent::MouseButtonPress:
      moved(window, static_cast<QMouseEvent*>(event)->position());
      if (const auto onPress = onPress_) onPress();
      break;
    case QEvent::Leave:
    case QEvent::Hide:
      if (window != window_) break;
      window_ = nullptr;
      at_.reset();
      tellOfMove();
      break;
    default:
      break;
  }
  return false;
}

}  // namespace ambrel
