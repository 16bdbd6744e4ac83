#pragma once
// The picture of a text tool, with sharp edges at any size.

#include <QPainter>

#include "app/kit/StyledItem.h"
#include "app/tools/ToolFace.h"

namespace ambrel {

class ToolPicture : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(ambrel::ToolFace face MEMBER face_ NOTIFY styleChanged FINAL)

 public:
  using StyledItem::StyledItem;

  void paint(QPainter* painter) override {
    if (!face_.picture.isNull()) painter->drawImage(boundingRect(), face_.picture);
  }

 private:
  ToolFace face_;
};

}  // namespace ambrel
