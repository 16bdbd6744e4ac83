#pragma once
// Shows the tip that is wanted, in a window of its own, since a tip may be larger than the room beside its item.

#include <QObject>
#include <functional>
#include <memory>
#include <optional>

#include "app/window/PanelGeometry.h"
#include "platform/WindowStyle.h"

class QQmlEngine;
class QQuickItem;
class QQuickWindow;

namespace ambrel {

class PanelWindow;
class Tips;

class TipController : public QObject {
  Q_OBJECT

 public:
  // Tells the bar if it is this window: a tip of the bar is beside it, as its panels are, and covers no tile.
  using BarOf = std::function<std::optional<PanelAnchor>(const QQuickWindow& window)>;

  TipController(QQmlEngine& engine, WindowStyle& style, BarOf barOf, QObject* parent = nullptr);
  ~TipController() override;

 private:
  void update();

  struct Place {
    QRect frame, room;
  };
  Place placeFor(QSize size, const QQuickItem& item) const;

  QQmlEngine& engine_;
  WindowStyle& style_;
  BarOf barOf_;
  Tips& tips_;
  std::unique_ptr<PanelWindow> window_;
};

}  // namespace ambrel
