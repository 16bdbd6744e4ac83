#pragma once
// A short history as a line with a flat fill and a dot at its newest point.

#include <QColor>
#include <QList>

#include "app/kit/StyledItem.h"

namespace ambrel {

// The newest value is at the right edge; `capacity` values (two or more) fill the width, fewer leave the left side
// empty. Values that are no numbers are gaps. With a `maximum` of 0 the largest value reaches the top.
class SparklineCurve : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QList<qreal> values MEMBER values_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(int capacity MEMBER capacity_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(qreal maximum MEMBER maximum_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(bool marksLast MEMBER marksLast_ NOTIFY styleChanged FINAL)

 public:
  explicit SparklineCurve(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 private:
  QList<qreal> values_;
  QColor color_;
  qreal maximum_ = 100;
  int capacity_ = 12;
  bool marksLast_ = true;
};

}  // namespace ambrel
