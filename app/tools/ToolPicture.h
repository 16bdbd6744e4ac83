#pragma once
// The picture of a text tool, with sharp edges at any size.

#include <QPainter>
#include <QQuickPaintedItem>

#include "app/base/Replaced.h"
#include "app/tools/ToolFace.h"

namespace ambrel {

class ToolPicture : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(ambrel::ToolFace face READ face WRITE setFace NOTIFY faceChanged FINAL)

 public:
  using QQuickPaintedItem::QQuickPaintedItem;

  const ToolFace& face() const { return face_; }
  void setFace(const ToolFace& face) {
    if (!replaced(face_, face)) return;
    update();
    Q_EMIT faceChanged();
  }
  void paint(QPainter* painter) override {
    if (!face_.picture.isNull()) painter->drawImage(boundingRect(), face_.picture);
  }

 Q_SIGNALS:
  void faceChanged();

 private:
  ToolFace face_;
};

}  // namespace ambrel
