#pragma once
// The moon's disc with its lit part, as it is seen from the northern half of the earth.

#include <QColor>

#include "app/kit/StyledItem.h"

namespace ambrel {

class MoonDisc : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  // 0 to 100
  Q_PROPERTY(int percent MEMBER percent_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(bool isWaxing MEMBER isWaxing_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor lit MEMBER lit_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor dark MEMBER dark_ NOTIFY styleChanged FINAL)

 public:
  using StyledItem::StyledItem;
  void paint(QPainter* painter) override;

 private:
  int percent_ = 0;
  bool isWaxing_ = true;
  QColor lit_, dark_;
};

}  // namespace ambrel
