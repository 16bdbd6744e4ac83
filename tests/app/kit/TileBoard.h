#pragma once
// Tiles or panels as the bar makes them, laid out in rows for a test to look at.

#include <QQuickItem>
#include <memory>
#include <vector>

#include "app/base/Area.h"
#include "app/base/ItemMaker.h"
#include "app/base/StoredValue.h"
#include "app/base/TileSources.h"
#include "core/widgets.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/Scene.h"

namespace ambrel {

class TileBoard : public QQuickItem {
 public:
  // The areas give the models, and outlive the board.
  TileBoard(Scene& scene, std::vector<Area*> areas) : scene_(scene), areas_(std::move(areas)) {}

  // A tile in one size, named as in "cpuSmall". Null when it has no file, or a fault.
  QQuickItem* add(DockWidget widget, TileSize size) {
    const QString id = toQString(nameOf(widget));
    const auto source = tileSources().find(id);
    if (source == tileSources().end()) return nullptr;
    QString span = toQString(nameOf(size));
    span[0] = span[0].toUpper();
    QQuickItem* tile = make(source->second.area, source->second.url,
                            {{QStringLiteral("widget"), id},
                             {QStringLiteral("title"), toQString(title(widget))},
                             {QStringLiteral("shortTitle"), toQString(shortTitle(widget))},
                             {QStringLiteral("widgetSymbol"), toQString(symbol(widget))},
                             {QStringLiteral("live"), true},
                             {QStringLiteral("span"), static_cast<int>(size)}});
    if (tile) tile->setObjectName(id + span);
    return tile;
  }
  // The widgets of the areas, in the order of their ids.
  std::vector<DockWidget> widgets() const {
    std::vector<DockWidget> found;
    for (const auto& [widget, source] : tileSources())
      if (areaOf(source.area)) found.push_back(*fromName<DockWidget>(widget.toStdString()));
    return found;
  }
  // A panel by its address below qrc:/qt/qml/Ambrel/, such as "Focus/WaterPanel.qml".
  QQuickItem* addPanel(const QString& file, const QVariantMap& properties = {}) {
    QQuickItem* panel = make(file.section(u'/', 0, 0), QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/") + file), properties);
    if (panel) panel->setObjectName(file.section(u'/', -1).section(u'.', 0, 0));
    return panel;
  }

 private:
  Area* areaOf(const QString& name) const {
    for (Area* area : areas_)
      if (area->name() == name) return area;
    return nullptr;
  }
  QQuickItem* make(const QString& areaName, const QUrl& source, const QVariantMap& properties) {
    const Area* area = areaOf(areaName);
    if (!area) return nullptr;
    const QObject* const models[] = {area};
    return place(makeItem(scene_.engine(), source, models, properties));
  }
  QQuickItem* place(QQuickItem* item) {
    if (!item) return nullptr;
    const QSizeF size(item->implicitWidth(), item->implicitHeight());
    if (x_ > gap && x_ + size.width() > width_) {
      x_ = gap;
      y_ += rowHeight_ + gap;
      rowHeight_ = 0;
    }
    item->setParentItem(this);
    item->setPosition({x_, y_});
    item->setSize(size);
    x_ += size.width() + gap;
    rowHeight_ = std::max(rowHeight_, size.height());
    setSize({width_ + gap, y_ + rowHeight_ + gap});
    items_.emplace_back(item);
    return item;
  }

  static constexpr qreal gap = 8, width_ = 1280;
  Scene& scene_;
  std::vector<Area*> areas_;
  qreal x_ = gap, y_ = gap, rowHeight_ = 0;
  std::vector<std::unique_ptr<QQuickItem>> items_;
};

// Shows every tile of the areas in every size. How many that are; 0 when one cannot be made.
inline int showTiles(Scene& scene, std::vector<Area*> areas) {
  auto board = std::make_unique<TileBoard>(scene, std::move(areas));
  int count = 0;
  for (const DockWidget widget : board->widgets())
    for (const TileSize size : allCases<TileSize>()) {
      if (!board->add(widget, size)) return 0;
      ++count;
    }
  return scene.show(std::move(board)) ? count : 0;
}
// The tiles that `showTiles` shows.
inline QList<QQuickItem*> tilesOf(Scene& scene) { return scene.root()->childItems(); }
inline QStringList collisionsOfTiles(Scene& scene) {
  QStringList found;
  for (QQuickItem* tile : tilesOf(scene)) found += collisionsOf(tile);
  return found;
}
// Shows panels of the area, such as "Water" for WaterPanel.qml; false when one cannot be made.
inline bool showPanels(Scene& scene, Area& area, std::initializer_list<const char*> names,
                       const QVariantMap& properties = {}) {
  auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&area});
  for (const char* name : names)
    if (!board->addPanel(QStringLiteral("%1/%2Panel.qml").arg(area.name(), QLatin1String(name)), properties))
      return false;
  return scene.show(std::move(board));
}

}  // namespace ambrel
