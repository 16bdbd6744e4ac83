#pragma once
// A capture at any zoom: only the part in view is drawn.

#include <QImage>
#include <QQuickPaintedItem>
#include <optional>

namespace ambrel {

// Tells QML of the type of a property.
struct CapturedPicture {
  Q_GADGET
  QML_FOREIGN(QImage)
  QML_VALUE_TYPE(capturedPicture)
};

class CaptureView : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QImage picture READ picture WRITE setPicture NOTIFY pictureChanged FINAL)
  // Where the picture is, in this item's coordinates. It can be larger than the item.
  Q_PROPERTY(QRectF frame READ frame NOTIFY frameChanged FINAL)
  // Points to a pixel of the picture, in percent, and whether it follows the item's size.
  Q_PROPERTY(int percent READ percent NOTIFY frameChanged FINAL)
  Q_PROPERTY(bool fits READ fits NOTIFY frameChanged FINAL)

 public:
  explicit CaptureView(QQuickItem* parent = nullptr);

  const QImage& picture() const { return picture_; }
  // Keeps zoom and place when only the picture's content has changed.
  void setPicture(const QImage& picture);
  QRectF frame() const { return frame_; }
  int percent() const { return qRound(zoom() * 100); }
  bool fits() const { return !zoom_; }

  // The whole picture, not larger than its pixels.
  Q_INVOKABLE void fit();
  // `at` keeps its place.
  Q_INVOKABLE void zoomBy(qreal factor, QPointF at);
  Q_INVOKABLE void pan(qreal dx, qreal dy);
  // So that this place of the picture, in fractions, can be seen.
  Q_INVOKABLE void reveal(QPointF place);
  // A point of the item as fractions of the picture, moved into it.
  Q_INVOKABLE QPointF placeOf(QPointF point) const;

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void pictureChanged();
  void frameChanged();

 protected:
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  qreal fitting() const;
  qreal zoom() const { return zoom_.value_or(fitting()); }
  void place(QPointF origin);

  QImage picture_;
  QImage scaled_;              // the picture at its zoom, where that is smaller
  std::optional<qreal> zoom_;  // absent while it follows the item's size
  QRectF frame_;
};

}  // namespace ambrel
