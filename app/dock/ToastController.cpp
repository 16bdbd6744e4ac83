#include "app/dock/ToastController.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

#include "app/dock/DockPopoverController.h"
#include "app/dock/PanelWindow.h"

namespace ambrel {
namespace {

// A little more than the toast takes to fade.
constexpr Seconds fade{0.2};

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

void ToastController::show(const QString& title, const QString& detail, const QString& symbol) {
  if (!engine_) return;
  if (!window_) {
    window_ = std::make_unique<PanelWindow>(*engine_, *style_, WindowRole::bubble);
    window_->setInitialProperties({{QStringLiteral("window"), QVariant::fromValue(window_.get())},
                                   {QStringLiteral("controller"), QVariant::fromValue(this)}});
    window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/ToastView.qml")));
  }
  QQuickItem* root = window_->rootObject();
  auto* toast = root ? root->property("toast").value<QQuickItem*>() : nullptr;
  if (!toast) return;
  ++generation_;
  QMetaObject::invokeMethod(root, "present", Q_ARG(QString, title), Q_ARG(QString, detail), Q_ARG(QString, symbol));
  const PanelAnchor anchor = anchor_();
  const QSize size(qCeil(toast->implicitWidth()), qCeil(toast->implicitHeight()));
  window_->setPanelFrame(panelFrame(size, {}, anchor.bar, anchor.screen, anchor.edge),
                         roomBesideBar(anchor.bar, anchor.screen, anchor.edge));
  window_->show();
  window_->raise();
}

void ToastController::close() {
  later_(fade, [self = QPointer(this), generation = ++generation_] {
    if (self && generation == self->generation_ && self->window_) self->window_->hide();
  });
}

}  // namespace ambrel
