#include "app/dock/DragPicture.h"

#include <QQmlEngine>

#include "app/kit/Theme.h"
#include "app/window/PanelWindow.h"

namespace ambrel {

DragPicture::DragPicture(QQmlEngine& engine, WidgetContext& context, WindowStyle& style, QObject* parent)
    : QObject(parent), engine_(engine), context_(context), style_(style) {
  connect(context_.drag(), &TileDrag::changed, this, &DragPicture::update);
  connect(context_.drag(), &TileDrag::moved, this, &DragPicture::place);
}

DragPicture::~DragPicture() = default;

void DragPicture::update() {
  if (!context_.drag()->isActive()) {
    window_.reset();
    return;
  }
  if (window_) return;
  window_ = std::make_unique<PanelWindow>(engine_, style_, WindowRole::bubble);
  window_->setCornerRadius(Theme::radiusTile);
  // What is below it has to hear of the pointer.
  window_->setFlag(Qt::WindowTransparentForInput);
  window_->setInitialProperties({{QStringLiteral("window"), QVariant::fromValue(window_.get())},
                                 {QStringLiteral("context"), QVariant::fromValue(&context_)}});
  window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/DragView.qml")));
  place();
  window_->show();
  window_->raise();
}

void DragPicture::place() {
  if (!window_) return;
  const QRect frame = context_.drag()->frame();
  window_->setPanelFrame(frame, frame.marginsAdded(QMargins(1, 1, 1, 1) * PanelWindow::shadowMargin));
}

}  // namespace ambrel
