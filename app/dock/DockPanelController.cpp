#include "app/dock/DockPanelController.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <cmath>

#include "app/kit/KeyboardFocus.h"
#include "app/kit/Theme.h"
#include "app/window/PanelWindow.h"
#include "core/dock/DragScroll.h"
#include "core/dock/EdgeStrips.h"

namespace ambrel {
namespace {

// The pointer counts as resting when so many ticks have found it where it was.
constexpr int restingAfter = 4;
// A pointer that a program moves is not announced; a look now and then finds it. Without announcements at all the
// look has to be quicker.
constexpr int slowLookInterval = 3000, blindLookInterval = 150;

}  // namespace

DockPanelController::DockPanelController(QQmlEngine& engine, WidgetContext& context, Seams seams, QObject* parent)
    : QObject(parent),
      engine_(engine),
      context_(context),
      seams_(std::move(seams)),
      settings_(*context.settings()),
      presentation_(seams_.later),
      edge_(settings_.dockEdge()) {
  for (QObject* object : {static_cast<QObject*>(&tiles_), static_cast<QObject*>(&presentation_)})
    QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  slowLook_.setTimerType(Qt::CoarseTimer);
  connect(&timer_, &QTimer::timeout, this, [this] { tick(seams_.now()); });
  connect(&slowLook_, &QTimer::timeout, this, [this] {
    if (!timer_.isActive() && seams_.pointer.location() != lastPointer_) tick(seams_.now());
  });
  connect(&presentation_, &Presentation::orderFront, this, [this] {
    if (!window_) return;
    window_->show();
    window_->raise();
  });
  connect(&presentation_, &Presentation::orderOut, this, [this] {
    if (window_) window_->hide();
    takeEdge();
  });
  connect(&presentation_, &Presentation::changed, this,
          [this] { context_.setWidgetsActive(presentation_.isOnScreen()); });
  connect(&presentation_, &Presentation::changed, this, &DockPanelController::presentationChanged);
  systemDock_.onChange = [this](bool) { updatePosition(); };
  systemDock_.isPresent = [this] {
    const auto screen = mainScreen();
    return screen && screen->hidingDockHeight;
  };
  connect(&settings_, &AppSettings::dockEdgeChanged, this, [this] {
    apply();
    if (!presentation_.isOnScreen()) takeEdge();
  });
  connect(&settings_, &AppSettings::barAlwaysVisibleChanged, this, [this] {
    // A bar that is no longer always visible goes by the pointer, as if it had just been revealed.
    if (!settings_.barAlwaysVisible()) reveal_.reveal();
    placeStrip();
    apply();
    tick(seams_.now());
  });
  connect(context_.model(), &AppModel::activeProfileChanged, this, [this] { updatePosition(); });
  dragScroll_.setInterval(16);
  connect(&dragScroll_, &QTimer::timeout, this, &DockPanelController::scrollForDrag);
  connect(context_.drag(), &TileDrag::moved, this, [this] {
    if (!dragScroll_.isActive()) scrollForDrag();
  });
  context_.drag()->spotAt = [this](const QPoint& at) { return spotAt(at); };
  connect(context_.drag(), &TileDrag::changed, this, [this] {
    updatePosition();
    holdingChanged();
  });
  seams_.windowStyle.setCompositingHandler([this](bool) { updatePosition(); });
}

DockPanelController::~DockPanelController() {
  context_.drag()->spotAt = nullptr;
  // A window that ends before the monitor is a movement, too.
  seams_.pointer.stopWaiting();
}

QWindow* DockPanelController::window() const { return window_.get(); }

void DockPanelController::start() {
  updatePosition();
  makeWindow();
  apply();
  watchPointer();
  tick(seams_.now());
}

void DockPanelController::makeWindow() {
  window_ = std::make_unique<PanelWindow>(engine_, seams_.windowStyle, WindowRole::dock);
  window_->setCornerRadius(Theme::radiusBar);
  window_->setInitialProperties({{QStringLiteral("controller"), QVariant::fromValue(this)},
                                 {QStringLiteral("context"), QVariant::fromValue(&context_)}});
  window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/DockView.qml")));
  window_->setTitle(QStringLiteral("Tilebay"));
  connect(window_.get(), &PanelWindow::leaveAsked, this, &DockPanelController::leaveKeyboard);
  // While it moves.
  connect(window_.get(), &PanelWindow::panelRectChanged, this, &DockPanelController::layoutChanged);
  connect(window_.get(), &QWindow::activeChanged, this, [this] {
    if (!window_->isActive()) leaveKeyboard();
  });
  updatePosition();
}

std::optional<ScreenInfo> DockPanelController::mainScreen() const {
  const auto screens = seams_.screens.list();
  return screens.empty() ? std::nullopt : std::optional(screens.front());
}

QRect DockPanelController::inWindowSystem(const Rect& rect) const { return toRect(rect, seams_.screens.mainHeight()); }

void DockPanelController::setScale(qreal scale) {
  if (scale == scale_) return;
  scale_ = scale;
  updatePosition();
}

void DockPanelController::updateTiles() {
  const auto profile = context_.model()->activeProfile();
  content_ = barContent(profile ? context_.drag()->shown(*profile) : std::vector<DockItem>{}, edge_,
                        placement_.maxLength, scale_);
  tiles_.setRows(content_.tiles);
}

std::optional<TileDrag::Spot> DockPanelController::spotAt(const QPoint& at) const {
  const auto screen = mainScreen();
  const Point pointer = flipped(Point{double(at.x()), double(at.y())}, seams_.screens.mainHeight());
  if (!screen || !presentation_.isShown() || !hoverZone(placement_.frame, screen->frame, edge_).contains(pointer))
    return std::nullopt;
  const bool isRow = edge_ == DockEdge::bottom;
  const QString held = context_.drag()->item();
  std::vector<double> middles;
  std::vector<std::optional<UUID>> slots;
  for (const TileRecord& tile : content_.tiles) {
    if (tile.item == held) continue;
    middles.push_back(isRow ? tile.frame.center().x() : tile.frame.center().y());
    slots.push_back(UUID::parse(tile.item.toStdString()));
  }
  slots.emplace_back();
  return TileDrag::Spot{slots[landingPlace(middles, alongBar(at) + scrollOffset_)]};
}

double DockPanelController::alongBar(const QPoint& at) const {
  const QPoint from = at - inWindowSystem(placement_.frame).topLeft();
  return edge_ == DockEdge::bottom ? from.x() : from.y();
}

void DockPanelController::scrollForDrag() {
  TileDrag& drag = *context_.drag();
  const double length = edge_ == DockEdge::bottom ? content_.slab.width() : content_.slab.height();
  const double by =
      drag.isActive() && content_.isScrolling && spotAt(drag.at()) ? dragScroll(alongBar(drag.at()), length) : 0;
  if (by == 0) return dragScroll_.stop();
  if (!dragScroll_.isActive()) return dragScroll_.start();
  Q_EMIT scrollAsked(by);
  drag.look();
}

void DockPanelController::updatePosition() {
  const auto screen = mainScreen();
  if (!screen) return;
  const auto placed = [&] {
    return placedBar({screen->frame, screen->visibleFrame}, edge_, content_.slab.width(), content_.slab.height(),
                     systemDock_.isShowing(), screen->hidingDockHeight.value_or(BarPlacement::systemDockHeight));
  };
  placement_ = placed();
  if (onMaxLength) onMaxLength(placement_.maxLength);
  updateTiles();
  placement_ = placed();
  if (window_) {
    const QRect frame = inWindowSystem(placement_.frame);
    // Without room enough the bar is there all the same.
    window_->movePanelFrame(frame, inWindowSystem(placement_.room).united(frame));
  }
  placeStrip();
  Q_EMIT layoutChanged();
  if (!window_) return;
  // A bar that has moved may have left a pointer that rests.
  restingTicks_ = 0;
  schedule(seams_.now());
}

bool DockPanelController::isScreenFilled() const {
  const auto screen = mainScreen();
  return screen && screen->isFilled;
}

bool DockPanelController::isAlwaysVisible() const { return settings_.barAlwaysVisible() && !isScreenFilled(); }

void DockPanelController::screensChanged() {
  updatePosition();
  apply();
  tick(seams_.now());
}

void DockPanelController::takeEdge() {
  if (edge_ == settings_.dockEdge()) return;
  edge_ = settings_.dockEdge();
  updatePosition();
  apply();
}

void DockPanelController::apply() {
  const bool isLeaving = edge_ != settings_.dockEdge();
  presentation_.setPeeking(reveal_.isPeeking(seams_.now()));
  if (!isLeaving && reveal_.shouldShow(isAlwaysVisible(), isHeld()))
    presentation_.show();
  else
    presentation_.hide();
}

bool DockPanelController::isHeld() const { return context_.drag()->isActive() || (isHoldingOpen && isHoldingOpen()); }

Instant DockPanelController::peek(Seconds length) {
  const Instant until = reveal_.peek(length, seams_.now());
  apply();
  tick(seams_.now());
  return until;
}

void DockPanelController::endPeek(Instant until) {
  if (reveal_.endPeek(until)) tick(seams_.now());
}

void DockPanelController::reveal() {
  reveal_.reveal();
  apply();
  tick(seams_.now());
}

void DockPanelController::revealForKeyboard() {
  reveal();
  if (!window_) return;
  // A bar that was there may be below a window in full screen.
  window_->raise();
  hasKeyboard_ = true;
  if (window_->isActive()) {
    keyboardAnswered(true);
    return;
  }
  seams_.windowStyle.activate(*window_, [self = QPointer(this)](bool isActive) {
    if (self) self->keyboardAnswered(isActive);
  });
}

void DockPanelController::keyboardAnswered(bool isActive) {
  if (!hasKeyboard_) return;
  if (!isActive) {
    // Whoever asked for the bar can still look at it, and use it by the pointer.
    leaveKeyboard();
    peek(PeekMemory::peekLength);
    return;
  }
  keyboardFocusOf(engine_).setIsShown(true);
  if (QQuickItem* root = window_->rootObject()) {
    // To the tile that had it last, or else to the first.
    root->forceActiveFocus(Qt::TabFocusReason);
    if (window_->activeFocusItem() == root) root->nextItemInFocusChain()->forceActiveFocus(Qt::TabFocusReason);
  }
  Q_EMIT keyboardTaken();
}

void DockPanelController::leaveKeyboard() {
  if (!std::exchange(hasKeyboard_, false) || !window_) return;
  const bool wasActive = window_->isActive();
  if (window_->rootObject()) window_->rootObject()->setFocus(false);
  seams_.windowStyle.setTakesKeys(*window_, false);
  // Another window that has come to the front keeps it.
  if (wasActive) {
    seams_.windowStyle.giveBack(*window_);
    if (onKeyboardLeft) onKeyboardLeft();
  }
  tick(seams_.now());
}

void DockPanelController::holdingChanged() {
  apply();
  tick(seams_.now());
}

BarSurroundings DockPanelController::surroundings(Point pointer) const {
  const auto screen = mainScreen();
  return {.pointer = pointer,
          .screen = screen ? screen->frame : Rect{},
          .bar = placement_.frame,
          .edge = edge_,
          .isAlwaysVisible = isAlwaysVisible(),
          .isHeldOpen = hasKeyboard_ || isHeld()};
}

void DockPanelController::tick(Instant now) {
  const auto screen = mainScreen();
  const auto pointer = seams_.pointer.location();
  if (screen && pointer) {
    restingTicks_ = pointer == lastPointer_ ? restingTicks_ + 1 : 0;
    if (screen->frame.contains(*pointer, true)) systemDock_.tick(pointer->y - screen->frame.minY(), now);
    if (reveal_.tick(surroundings(*pointer), now)) apply();
    presentation_.setPeeking(reveal_.isPeeking(now));
  }
  lastPointer_ = pointer;
  schedule(now);
}

void DockPanelController::schedule(Instant now) {
  const auto screen = mainScreen();
  const bool isMoving = screen && lastPointer_ && restingTicks_ < restingAfter;
  const std::optional<Instant> deadlines[] = {
      lastPointer_ ? reveal_.waitsUntil(surroundings(*lastPointer_)) : std::nullopt, systemDock_.waitsUntil()};
  const auto next = nextTick(now, isMoving, deadlines);
  if (next) {
    const auto wait = std::ceil(secondsBetween(now, *next).count() * 1000);
    timer_.start(static_cast<int>(std::max(0.0, wait)));
  } else {
    timer_.stop();
  }
  if (!isMoving) watchPointer();
}

void DockPanelController::watchPointer() {
  // A bar that is always visible ignores the pointer, unless it makes room for the system's.
  if (isAlwaysVisible() && !systemDock_.isPresent()) {
    seams_.pointer.stopWaiting();
    slowLook_.stop();
    return;
  }
  const bool isAnnounced = seams_.pointer.wakeOnMove([this] {
    restingTicks_ = 0;
    tick(seams_.now());
  });
  const int interval = isAnnounced ? slowLookInterval : blindLookInterval;
  if (!slowLook_.isActive() || slowLook_.interval() != interval) slowLook_.start(interval);
}

// A bar that is always visible is not revealed.
void DockPanelController::placeStrip() {
  const auto screen = mainScreen();
  if (isAlwaysVisible() || !screen)
    seams_.pointer.setStrips({});
  else
    seams_.pointer.setStrips({revealStrip(placement_.frame, screen->frame, edge_)});
}

PanelAnchor DockPanelController::anchor(const QString& item) const {
  const auto screen = mainScreen();
  PanelAnchor anchor{.tile = {},
                     .bar = inWindowSystem(placement_.frame),
                     .screen = screen ? inWindowSystem(screen->visibleFrame) : QRect(),
                     .edge = edge_};
  for (const TileRecord& tile : content_.tiles) {
    if (tile.item != item) continue;
    const bool isRow = anchor.edge == DockEdge::bottom;
    const QPointF scrolled(isRow ? scrollOffset_ : 0, isRow ? 0 : scrollOffset_);
    anchor.tile = tile.frame.translated(anchor.bar.topLeft() - scrolled).toAlignedRect().intersected(anchor.bar);
  }
  return anchor;
}

QString DockPanelController::edgeName() const {
  const auto name = nameOf(edge_);
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QRectF DockPanelController::slab() const { return window_ ? window_->panelRect() : QRectF({}, content_.slab); }

}  // namespace ambrel
