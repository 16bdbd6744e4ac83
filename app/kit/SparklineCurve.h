#pragma once
// A short history as a line with a flat fill and a dot at its newest point.

#include <QQuickPaintedItem>

namespace ambrel {

// The newest value is at the right edge; `capacity` values fill the width, fewer leave the left side empty.
// Values that are no numbers are gaps. With a `maximum` of 0 the largest value reaches the top.
class SparklineCurve : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QList<qreal> values READ values WRITE setValues NOTIFY valuesChanged FINAL)
  Q_PROPERTY(int capacity READ capacity WRITE setCapacity NOTIFY styleChanged FINAL)
  Q_PROPERTY(qreal maximum READ maximum WRITE setMaximum NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY styleChanged FINAL)
  Q_PROPERTY(bool marksLast READ marksLast WRITE setMarksLast NOTIFY styleChanged FINAL)

 public:
  explicit SparklineCurve(QQuickItem* parent = nullptr);

  QList<qreal> values() const { return values_; }
  void setValues(const QList<qreal>& values);
  int capacity() const { return capacity_; }
  void setCapacity(int capacity);
  qreal maximum() const { return maximum_; }
  void setMaximum(qreal maximum);
  QColor color() const { return color_; }
  void setColor(const QColor& color);
  bool marksLast() const { return marksLast_; }
  void setMarksLast(bool marks);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void valuesChanged();
  void styleChanged();

 private:
  template <typename Field>
  void setStyle(Field& field, const Field& value);

  QList<qreal> values_;
  QColor color_;
  qreal maximum_ = 100;
  int capacity_ = 12;
  bool marksLast_ = true;
};

}  // namespace ambrel
