#pragma once
// A clock's dial with its two hands.

#include <QColor>

#include "app/kit/StyledItem.h"

namespace ambrel {

class ClockDial : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(int hour MEMBER hour_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(int minute MEMBER minute_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor ground MEMBER ground_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor marks MEMBER marks_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor hands MEMBER hands_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor accent MEMBER accent_ NOTIFY styleChanged FINAL)

 public:
  using StyledItem::StyledItem;
  void paint(QPainter* painter) override;

 private:
  int hour_ = 0, minute_ = 0;
  QColor ground_, marks_, hands_, accent_;
};

}  // namespace ambrel
