#include "app/context/TileHost.h"

#include <QQmlEngine>

#include "app/base/ItemMaker.h"
#include "app/base/StoredValue.h"
#include "app/base/TileSources.h"
#include "core/widgets.h"

namespace ambrel {

TileHost::TileHost(QQuickItem* parent) : QQuickItem(parent) {
  connect(this, &TileHost::sourceChanged, this, [this] {
    if (isComponentComplete()) make();
  });
  connect(this, &TileHost::stateChanged, this, &TileHost::passOn);
}

TileHost::~TileHost() = default;

void TileHost::componentComplete() {
  QQuickItem::componentComplete();
  make();
}

void TileHost::make() {
  const auto widget = fromName<DockWidget>(widget_.toStdString());
  const auto source = tileSources().find(widget_);
  tile_.reset();
  if (Area* area =
          widget && source != tileSources().end() && context_ ? context_->area(source->second.area) : nullptr) {
    QVariantMap properties = isSample_ ? area->sample(*widget) : QVariantMap();
    properties.insert({{QStringLiteral("widget"), widget_},
                       {QStringLiteral("title"), toQString(title(*widget))},
                       {QStringLiteral("shortTitle"), toQString(shortTitle(*widget))},
                       {QStringLiteral("description"), toQString(description(*widget))},
                       {QStringLiteral("widgetSymbol"), toQString(symbol(*widget))}});
    tile_.reset(makeItem(*qmlEngine(this), source->second.url, context_->modelsFor(area), properties));
  }
  if (tile_) {
    tile_->setParentItem(this);
    passOn();
  }
  Q_EMIT tileChanged();
}

void TileHost::passOn() {
  if (!tile_) return;
  tile_->setProperty("span", span_);
  tile_->setProperty("live", live_);
  tile_->setSize(size());
}

void TileHost::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (tile_) tile_->setSize(now.size());
}

}  // namespace ambrel
