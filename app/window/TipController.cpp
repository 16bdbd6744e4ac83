#include "app/window/TipController.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

#include "app/kit/Theme.h"
#include "app/kit/Tips.h"
#include "app/window/PanelWindow.h"

namespace ambrel {
namespace {

constexpr int gap = 6;

Tips& tipsOf(QQmlEngine& engine) { return *engine.singletonInstance<Tips*>(qmlTypeId("Ambrel.Kit", 1, 0, "Tips")); }

}  // namespace

TipController::TipController(QQmlEngine& engine, WindowStyle& style, BarOf barOf, QObject* parent)
    : QObject(parent), engine_(engine), style_(style), barOf_(std::move(barOf)), tips_(tipsOf(engine)) {
  connect(&tips_, &Tips::changed, this, &TipController::update);
}

TipController::~TipController() = default;

void TipController::update() {
  QQuickItem* item = tips_.item();
  if (!item || tips_.text().isEmpty() || !item->window()) {
    if (window_) window_->hide();
    return;
  }
  if (!window_) {
    window_ = std::make_unique<PanelWindow>(engine_, style_, WindowRole::bubble);
    window_->setCornerRadius(Theme::radiusSmall);
    // It may cover its item, which must not lose the pointer.
    window_->setFlag(Qt::WindowTransparentForInput);
    window_->setInitialProperties({{QStringLiteral("window"), QVariant::fromValue(window_.get())}});
    window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Window/TipView.qml")));
  }
  const QQuickItem* tip = window_->part("tip");
  if (!tip) return;
  const QSize size(qCeil(tip->implicitWidth()), qCeil(tip->implicitHeight()));
  const Place place = placeFor(size, *item);
  window_->setPanelFrame(place.frame, place.room);
  window_->show();
  window_->raise();
}

TipController::Place TipController::placeFor(QSize size, const QQuickItem& item) const {
  const QRect about(item.mapToGlobal(QPointF(0, 0)).toPoint(), item.size().toSize());
  if (const auto bar = barOf_(*item.window()))
    return {.frame = panelFrame(size, about, bar->bar, bar->screen, bar->edge),
            .room = roomBesideBar(bar->bar, bar->screen, bar->edge)};
  const QRect screen = item.window()->screen()->geometry();
  QPoint corner(about.center().x() - size.width() / 2, about.y() - gap - size.height());
  const bool isBelow = corner.y() < screen.y();
  if (isBelow) corner.setY(about.y() + about.height() + gap);
  // The window with its margin stays clear of the item, or it would take the pointer from it.
  QRect room = screen;
  if (isBelow)
    room.setTop(about.y() + about.height());
  else
    room.setBottom(about.y() - 1);
  corner.setX(qBound(screen.x() + gap, corner.x(), screen.x() + screen.width() - size.width() - gap));
  return {.frame = QRect(corner, size), .room = room};
}

}  // namespace ambrel
