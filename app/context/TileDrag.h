#pragma once
// A tile that the pointer holds: on its way along the bar, off the bar, or from the gallery onto it. Nothing is edited
// before the pointer lets go.

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QQuickWindow>
#include <QRect>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>

#include "app/model/AppModel.h"

class QQuickItem;

namespace ambrel {

// Escape, a window that closes, and any other change of the active profile end the drag and leave everything as it is.
class TileDrag : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isActive READ isActive NOTIFY changed FINAL)
  // The slot that is held, and its widget; "" while none is.
  Q_PROPERTY(QString item READ item NOTIFY changed FINAL)
  Q_PROPERTY(QString widget READ widget NOTIFY changed FINAL)
  Q_PROPERTY(int span READ span NOTIFY changed FINAL)
  // Whether it comes from the gallery.
  Q_PROPERTY(bool isSample READ isSample NOTIFY changed FINAL)
  // Whether letting go here takes the tile off the bar.
  Q_PROPERTY(bool removes READ removes NOTIFY changed FINAL)

 public:
  // A place on the bar: in front of this slot, or at the end.
  struct Spot {
    std::optional<UUID> before;
    bool operator==(const Spot&) const = default;
  };

  // The model outlives it.
  explicit TileDrag(AppModel& model, QObject* parent = nullptr);
  ~TileDrag() override;

  // The place that a point of the screen is over; absent where no bar is. Assigned by the bar.
  std::function<std::optional<Spot>(const QPoint& at)> spotAt;

  // The pointer holds `source`, which shows the widget, at `grip` (from the item's corner). item: the slot; empty in
  // the gallery. From now on the drag follows the pointer by itself.
  Q_INVOKABLE void begin(QQuickItem* source, const QString& widget, const QString& item, int span, QPointF grip);
  void cancel() { end(); }

  bool isActive() const { return held_.has_value(); }
  QString item() const;
  QString widget() const;
  int span() const { return span_; }
  bool isSample() const { return isSample_; }
  bool removes() const { return held_ && !isSample_ && !spot_; }
  // Where the pointer is on the screen.
  QPoint at() const { return at_; }
  // The bar below the pointer has moved.
  void look();
  // Of the picture under the pointer, on the screen.
  QRect frame() const { return frame_; }
  // From the item's corner to that of the picture.
  Q_INVOKABLE QPointF offsetFrom(const QQuickItem* item) const;
  // What the bar shows meanwhile of the active profile.
  std::vector<DockItem> shown(const Profile& profile) const;

  bool eventFilter(QObject* target, QEvent* event) override;

 Q_SIGNALS:
  // Begun, over another place, or ended.
  void changed();
  void moved();

 private:
  void moveTo(const QPoint& at);
  void drop();
  void end();

  AppModel& model_;
  std::optional<DockItem> held_;
  UUID profile_;
  std::optional<Spot> spot_;
  QPointer<QQuickWindow> window_;
  QPoint grip_, at_;
  QRect frame_;
  int span_ = 0;
  bool isSample_ = false;
};

}  // namespace ambrel
