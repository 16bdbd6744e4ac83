#pragma once
// The cover of what plays, cut to a square with round corners.

#include <QImage>

#include "app/kit/StyledItem.h"

namespace ambrel {

// Tells QML of the type of a property.
struct CoverImage {
  Q_GADGET
  QML_FOREIGN(QImage)
  QML_VALUE_TYPE(coverImage)
};

class CoverPicture : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QImage picture MEMBER picture_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY styleChanged FINAL)

 public:
  using StyledItem::StyledItem;

  void paint(QPainter* painter) override;

 private:
  QImage picture_;
  qreal radius_ = 0;
};

}  // namespace ambrel
