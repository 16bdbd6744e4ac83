#include "platform/wayland/LayerWindow.h"

#include <QColor>
#include <QEvent>
#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

namespace ambrel {
namespace {

// A compositor that gives the keyboard has done so by then.
constexpr std::chrono::milliseconds keysPatience{400};
// Within it the toolkit has heard as well that a screen has gone.
constexpr std::chrono::milliseconds screenPatience{50};
// Where others leave room, and the place is ours within it.
constexpr int movesForOthers = 0;

QScreen* screenFor(const QRect& frame) {
  QScreen* const screen = QGuiApplication::screenAt(frame.center());
  return screen ? screen : QGuiApplication::primaryScreen();
}

// The toolkit looks a tenth of a second after each frame whether the compositor has shown it, so as not to wait for a
// hidden window. Only drawing by the graphics stack waits. The toolkit reads the choice whenever it makes a window, and
// programs that we start are not to inherit it.
void createWithoutLookingAtFrames(QWindow& window) {
  constexpr const char* choice = "QT_WAYLAND_FRAME_CALLBACK_TIMEOUT";
  const bool isChosen = qEnvironmentVariableIsSet(choice);
  if (!isChosen) qputenv(choice, "0");
  window.create();
  if (!isChosen) qunsetenv(choice);
}

}  // namespace

LayerWindow::LayerWindow(QWindow& window, WindowRole role, OriginOf originOf)
    : QObject(&window), window_(window), role_(role), originOf_(std::move(originOf)) {
  if (role_ == WindowRole::panel) keys_ = Layer::KeyboardInteractivityOnDemand;
  patience_.setSingleShot(true);
  patience_.setInterval(keysPatience);
  connect(&patience_, &QTimer::timeout, this, [this] { answer(window_.isActive()); });
  return_.setSingleShot(true);
  return_.setInterval(screenPatience);
  connect(&return_, &QTimer::timeout, this, [this] {
    // The toolkit's stand-in for a screen shows nothing.
    const auto* const screen = window_.screen();
    if (needsAnother(screen) && screen->nativeInterface<QNativeInterface::QWaylandScreen>()) showAgain();
  });
  connect(&window_, &QWindow::screenChanged, &return_, qOverload<>(&QTimer::start));
  connect(&window_, &QWindow::activeChanged, this, [this] {
    if (isAsking_ && window_.isActive()) answer(true);
  });
  attach();
  window_.installEventFilter(this);
}

LayerWindow* LayerWindow::of(const QWindow& window) {
  return window.findChild<LayerWindow*>(QString(), Qt::FindDirectChildrenOnly);
}

void LayerWindow::attach() {
  delete layer_;
  createWithoutLookingAtFrames(window_);
  layer_ = Layer::get(&window_);
  layer_->setScope(QStringLiteral("tilebay"));
  // As on X11, also above windows that fill the screen.
  layer_->setLayer(Layer::LayerOverlay);
  layer_->setAnchors(Layer::Anchors(Layer::AnchorTop) | Layer::AnchorLeft);
  layer_->setExclusiveZone(movesForOthers);
  layer_->setMargins(margins_);
  layer_->setKeyboardInteractivity(keys_);
}

void LayerWindow::place(const QRect& frame) {
  QScreen* const screen = screenFor(frame);
  if (!screen) return;
  const bool isReplaced = needsAnother(screen);
  if (isReplaced) window_.hide();
  window_.setScreen(screen);
  const QPoint at = frame.topLeft() - originOf_(*screen);
  margins_ = {at.x(), at.y(), 0, 0};
  layer_->setMargins(margins_);
  window_.setGeometry(frame);
  if (isReplaced) window_.show();
}

bool LayerWindow::needsAnother(const QScreen* screen) const {
  return window_.isVisible() && screen && (isDismissed_ || surfaceScreen_ != screen);
}

void LayerWindow::showAgain() {
  if (!window_.isVisible()) return;
  window_.hide();
  window_.show();
}

void LayerWindow::setKeys(Layer::KeyboardInteractivity keys) {
  keys_ = keys;
  layer_->setKeyboardInteractivity(keys);
  // It counts from the next picture on, and there is none without a change: what is clear becomes clear of another
  // color.
  if (!window_.isVisible()) return;
  isOfWhite_ = !isOfWhite_;
  const int tone = isOfWhite_ ? 255 : 0;
  window_.setProperty("color", QColor(tone, tone, tone, 0));
}

void LayerWindow::setTakesKeys(bool takesKeys) {
  setKeys(takesKeys ? Layer::KeyboardInteractivityOnDemand : Layer::KeyboardInteractivityNone);
}

void LayerWindow::activate(std::function<void(bool)> done) {
  done_ = std::move(done);
  isAsking_ = true;
  if (window_.isActive()) return answer(true);
  setKeys(Layer::KeyboardInteractivityExclusive);
  patience_.start();
}

void LayerWindow::letGo() {
  done_ = nullptr;
  if (isAsking_) answer(false);
  if (keys_ == Layer::KeyboardInteractivityExclusive) setTakesKeys(role_ == WindowRole::panel);
}

void LayerWindow::answer(bool isActive) {
  patience_.stop();
  isAsking_ = false;
  // Kept: some compositors take the keyboard away when a window asks for less. Clicks elsewhere are caught meanwhile
  // (WaylandPointer).
  if (!isActive) setTakesKeys(role_ == WindowRole::panel);
  if (const auto done = std::exchange(done_, nullptr)) done(isActive);
}

void LayerWindow::giveBack() {
  letGo();
  setTakesKeys(false);
  // KWin takes the keyboard from a window alone that goes.
  QTimer::singleShot(keysPatience, this, [this] {
    if (keys_ != Layer::KeyboardInteractivityNone || !window_.isVisible() || !window_.isActive()) return;
    showAgain();
  });
}

bool LayerWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Close:
      // Its screen has gone. It stays as visible as those who show and hide it take it to be.
      event->ignore();
      isDismissed_ = window_.isVisible();
      return_.start();
      return true;
    case QEvent::Show:
      surfaceScreen_ = window_.screen();
      break;
    case QEvent::Hide:
      isDismissed_ = false;
      letGo();
      break;
    case QEvent::PlatformSurface:
      // The toolkit makes another window when no screen was left.
      if (static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() == QPlatformSurfaceEvent::SurfaceCreated)
        attach();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace ambrel
