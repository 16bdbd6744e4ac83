#pragma once
// The cover of what plays, cut to a square with round corners.

#include <QImage>
#include <QQuickPaintedItem>

namespace ambrel {

// Tells QML of the type of a property.
struct CoverImage {
  Q_GADGET
  QML_FOREIGN(QImage)
  QML_VALUE_TYPE(coverImage)
};

class CoverPicture : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QImage picture READ picture WRITE setPicture NOTIFY changed FINAL)
  Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY changed FINAL)

 public:
  using QQuickPaintedItem::QQuickPaintedItem;

  const QImage& picture() const { return picture_; }
  void setPicture(const QImage& picture);
  qreal radius() const { return radius_; }
  void setRadius(qreal radius);
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  QImage picture_;
  qreal radius_ = 0;
};

}  // namespace ambrel
