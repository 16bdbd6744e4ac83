#include "app/dock/DockPopoverController.h"

#include <QQmlEngine>
#include <QQuickItem>

#include "app/dock/PanelWindow.h"

namespace ambrel {

DockPopoverController::DockPopoverController(QQmlEngine& engine, WindowStyle& style, DelayedStep later,
                                             PanelContent content, QObject* parent)
    : QObject(parent), engine_(engine), style_(style), content_(std::move(content)), presentation_(std::move(later)) {
  QQmlEngine::setObjectOwnership(&presentation_, QQmlEngine::CppOwnership);
  connect(&presentation_, &Presentation::changed, this, [this] {
    if (std::exchange(wasShown_, isShown()) != isShown()) Q_EMIT shownChanged();
  });
  connect(&presentation_, &Presentation::orderOut, this, [this] {
    if (window_) window_->hide();
  });
}

DockPopoverController::~DockPopoverController() = default;

QWindow* DockPopoverController::window() const { return window_.get(); }

void DockPopoverController::makeWindow() {
  window_ = std::make_unique<PanelWindow>(engine_, style_, WindowRole::panel);
  if (!stays_) connect(window_.get(), &PanelWindow::leaveAsked, &presentation_, &Presentation::dismiss);
  window_->setInitialProperties({{QStringLiteral("presentation"), QVariant::fromValue(&presentation_)},
                                 {QStringLiteral("window"), QVariant::fromValue(window_.get())},
                                 {QStringLiteral("contentSource"), content_.source},
                                 {QStringLiteral("contentProperties"), content_.properties}});
  window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/PanelHost.qml")));
  if (!onContentMade || !window_->rootObject()) return;
  if (auto* content = window_->rootObject()->property("content").value<QObject*>()) onContentMade(*content);
}

void DockPopoverController::place(const PanelAnchor& anchor) {
  if (!window_) return;
  window_->setPanelFrame(panelFrame(content_.size, anchor.tile, anchor.bar, anchor.screen, anchor.edge),
                         roomBesideBar(anchor.bar, anchor.screen, anchor.edge));
}

void DockPopoverController::open(const PanelAnchor& anchor) {
  if (!window_) makeWindow();
  place(anchor);
  window_->show();
  window_->raise();
  style_.activate(*window_);
  presentation_.show();
}

void DockPopoverController::close() { presentation_.hide(); }

void DockPopoverController::toggle(const PanelAnchor& anchor) {
  if (isShown())
    close();
  else
    open(anchor);
}

void DockPopoverController::setProperty(const QString& name, const QVariant& value) {
  content_.properties[name] = value;
  if (!window_ || !window_->rootObject()) return;
  if (auto* content = window_->rootObject()->property("content").value<QObject*>())
    content->setProperty(name.toUtf8().constData(), value);
}

}  // namespace ambrel
