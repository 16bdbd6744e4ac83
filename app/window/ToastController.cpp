#include "app/window/ToastController.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <algorithm>

#include "app/kit/SayAgain.h"
#include "app/kit/Theme.h"
#include "app/window/PanelGeometry.h"
#include "app/window/PanelWindow.h"

namespace ambrel {
namespace {

// A little more than the toast takes to fade.
constexpr Seconds fade{0.2};
// Between a toast and what it is placed below.
constexpr int toastGap = 16;

}  // namespace

ToastController::ToastController(DelayedStep later, QObject* parent) : QObject(parent), later_(std::move(later)) {
  QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
}

ToastController::~ToastController() = default;

QWindow* ToastController::window() const { return window_.get(); }

void ToastController::attach(QQmlEngine& engine, WindowStyle& style, std::function<PanelAnchor()> anchor) {
  engine_ = &engine;
  style_ = &style;
  anchor_ = std::move(anchor);
}

void ToastController::end() {
  engine_ = nullptr;
  onAction_ = nullptr;
  window_.reset();
}

void ToastController::show(const QString& title, const QString& detail, const QString& symbol) {
  show({.title = title, .detail = detail, .symbol = symbol, .action = {}, .onAction = {}, .above = {}, .screen = {}});
}

int ToastController::show(ToastMessage message) {
  if (!engine_) return 0;
  if (!window_) {
    window_ = std::make_unique<PanelWindow>(*engine_, *style_, WindowRole::bubble);
    window_->setInitialProperties({{QStringLiteral("window"), QVariant::fromValue(window_.get())},
                                   {QStringLiteral("controller"), QVariant::fromValue(this)}});
    window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Window/ToastView.qml")));
  }
  QQuickItem* root = window_->rootObject();
  if (!root) return 0;
  ++generation_;
  onAction_ = std::move(message.onAction);
  QQuickItem* toast = window_->part("toast");
  const bool isThere = toast->isVisible();
  QMetaObject::invokeMethod(root, "present", Q_ARG(QString, message.title), Q_ARG(QString, message.detail),
                            Q_ARG(QString, message.symbol), Q_ARG(QString, message.action));
  if (isThere) sayAgain(toast);
  above_ = message.above;
  screen_ = message.screen;
  place();
  window_->show();
  window_->raise();
  return ++number_;
}

void ToastController::place() {
  const QQuickItem* toast = window_ ? window_->part("toast") : nullptr;
  if (!toast) return;
  const QSize size(qCeil(toast->implicitWidth()), qCeil(toast->implicitHeight()));
  window_->setCornerRadius(std::min(Theme::radiusBar, size.height() / 2));
  if (above_.isEmpty()) {
    const PanelAnchor anchor = anchor_();
    const QRect frame = clearOf(panelFrame(size, {}, anchor.bar, anchor.screen, anchor.edge),
                                occupied ? occupied() : std::vector<QRect>(), anchor.screen, anchor.edge);
    window_->setPanelFrame(frame, roomBesideBar(anchor.bar, anchor.screen, anchor.edge));
    return;
  }
  QRect room = screen_;
  // Clicks on what it belongs to are not for its margin.
  room.setTop(above_.y() + above_.height());
  const QPoint corner(above_.x() + (above_.width() - size.width()) / 2, room.y() + toastGap);
  window_->setPanelFrame({corner, size}, room);
}

void ToastController::withdraw(int number) {
  if (number == 0 || number != number_ || !window_ || !window_->rootObject()) return;
  QMetaObject::invokeMethod(window_->rootObject(), "dismiss");
}

void ToastController::act() {
  if (const auto act = std::exchange(onAction_, nullptr)) act();
}

void ToastController::close() {
  later_(fade, [self = QPointer(this), generation = ++generation_] {
    if (self && generation == self->generation_ && self->window_) self->window_->hide();
  });
}

}  // namespace ambrel
