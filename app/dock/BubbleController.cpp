#include "app/dock/BubbleController.h"

#include <QQmlEngine>
#include <QQuickItem>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "app/buddy/BuddyNoticeCenter.h"
#include "app/dock/DockPopoverController.h"
#include "app/kit/SayAgain.h"
#include "app/window/PanelWindow.h"

namespace ambrel {

BubbleController::BubbleController(QQmlEngine& engine, WindowStyle& style, DelayedStep later, BuddyNoticeCenter& center,
                                   std::function<PanelAnchor()> anchor, QObject* parent)
    : QObject(parent),
      engine_(engine),
      style_(style),
      center_(center),
      anchor_(std::move(anchor)),
      presentation_(std::move(later)) {
  keep({this, &presentation_});
  connect(&center_, &BuddyNoticeCenter::bubbleChanged, this, &BubbleController::update);
  connect(&presentation_, &Presentation::orderOut, this, [this] {
    if (window_) window_->hide();
  });
}

BubbleController::~BubbleController() = default;

QWindow* BubbleController::window() const { return window_.get(); }

void BubbleController::makeWindow() {
  window_ = std::make_unique<PanelWindow>(engine_, style_, WindowRole::bubble);
  window_->setInitialProperties({{QStringLiteral("window"), toVariant(*window_)},
                                 {QStringLiteral("controller"), toVariant(*this)},
                                 {QStringLiteral("center"), toVariant(center_)},
                                 {QStringLiteral("presentation"), toVariant(presentation_)}});
  window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Dock/BubbleView.qml")));
}

void BubbleController::update() {
  if (!center_.hasBubble()) {
    presentation_.hide();
    return;
  }
  if (!window_) makeWindow();
  const QString spoken = center_.bubbleText().spoken;
  if (QQuickItem* panel = window_->part("panel"); panel && panel->isVisible() && spoken != spoken_) sayAgain(panel);
  spoken_ = spoken;
  place();
  if (presentation_.isShown()) return;
  window_->show();
  window_->raise();
  presentation_.show();
}

void BubbleController::place() {
  if (!window_ || !center_.hasBubble()) return;
  const QQuickItem* panel = window_->part("panel");
  if (!panel) return;
  const PanelAnchor anchor = anchor_();
  // Without a compositor the window is cut to one rectangle, and a tail would be in a black strip.
  const BubbleTail tail = style_.isCompositing() ? BubbleTail::pointing : BubbleTail::none;
  const QSize size(qCeil(panel->property("panelWidth").toReal()), qCeil(panel->property("panelHeight").toReal()));
  placement_ = placedBubble(size, anchor.tile, anchor.bar, anchor.screen, anchor.edge, tail);
  tailSide_ = placement_.hasTail ? toQString(nameOf(anchor.edge)) : QString();
  Q_EMIT placed();
  window_->setPanelFrame(placement_.frame, roomBesideBar(anchor.bar, anchor.screen, anchor.edge));
}

}  // namespace ambrel
