#include "app/dock/DockPopoverController.h"

#include <QQmlEngine>
#include <QQuickItem>

#include "app/base/ItemMaker.h"
#include "app/window/PanelWindow.h"

namespace ambrel {

DockPopoverController::DockPopoverController(QQmlEngine& engine, WidgetContext& context, WindowStyle& style,
                                             DelayedStep later, PanelContent content, QObject* parent)
    : QObject(parent),
      engine_(engine),
      context_(context),
      style_(style),
      content_(std::move(content)),
      later_(std::move(later)),
      presentation_(later_) {
  QQmlEngine::setObjectOwnership(&presentation_, QQmlEngine::CppOwnership);
  connect(&presentation_, &Presentation::changed, this, [this] {
    if (std::exchange(wasShown_, isShown()) != isShown()) Q_EMIT shownChanged();
  });
  connect(&presentation_, &Presentation::orderOut, this, [this] {
    if (!window_) return;
    window_->hide();
    later_(keptFor, [this, generation = presentation_.generation()] {
      if (generation != presentation_.generation() || isShown()) return;
      discard();
      forgetUnused(engine_);
    });
    Q_EMIT closed();
  });
}

DockPopoverController::~DockPopoverController() = default;

QWindow* DockPopoverController::window() const { return window_.get(); }

void DockPopoverController::discard() {
  if (isShown()) return;
  item_.reset();
  window_.reset();
}

void DockPopoverController::makeWindow() {
  QVariantMap properties = content_.properties;
  properties.insert(QStringLiteral("presentation"), QVariant::fromValue(&presentation_));
  // Closed at first, so that it does not come in before the window is there.
  properties.insert(QStringLiteral("open"), false);
  properties.insert(QStringLiteral("fades"), style_.isCompositing());
  item_.reset(makeItem(engine_, content_.source, content_.models, properties));
  if (!item_) return;
  // Some of what it shows comes only once it is open.
  const auto follow = [this] {
    if (isShown()) place(PanelAnchor(anchor_));
  };
  connect(item_.get(), &QQuickItem::implicitWidthChanged, this, follow);
  connect(item_.get(), &QQuickItem::implicitHeightChanged, this, follow);
  window_ = std::make_unique<PanelWindow>(engine_, style_, WindowRole::panel);
  if (!stays_) connect(window_.get(), &PanelWindow::leaveAsked, &presentation_, &Presentation::dismiss);
  window_->setInitialProperties({{QStringLiteral("presentation"), QVariant::fromValue(&presentation_)},
                                 {QStringLiteral("window"), QVariant::fromValue(window_.get())},
                                 {QStringLiteral("context"), QVariant::fromValue(&context_)},
                                 {QStringLiteral("content"), QVariant::fromValue(item_.get())}});
  window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/PanelHost.qml")));
}

QSize DockPopoverController::size() const {
  return item_ ? QSizeF(item_->implicitWidth(), item_->implicitHeight()).toSize() : QSize();
}

void DockPopoverController::place(const PanelAnchor& anchor) {
  anchor_ = anchor;
  if (!window_) return;
  window_->setPanelFrame(panelFrame(size(), anchor.tile, anchor.bar, anchor.screen, anchor.edge),
                         roomBesideBar(anchor.bar, anchor.screen, anchor.edge));
  Q_EMIT placed();
}

QRect DockPopoverController::frame() const { return window_ ? window_->panelFrame() : QRect(); }

void DockPopoverController::open(const PanelAnchor& anchor) {
  if (!window_) makeWindow();
  // A panel that cannot be made has been logged.
  if (!item_) return;
  if (!isShown() && item_->metaObject()->indexOfSignal("aboutToOpen()") >= 0)
    QMetaObject::invokeMethod(item_.get(), "aboutToOpen");
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
  if (item_) item_->setProperty(name.toUtf8().constData(), value);
}

}  // namespace ambrel
