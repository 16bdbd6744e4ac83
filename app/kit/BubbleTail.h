#pragma once
// The tail of a bubble: 28 x 14, its tip at the middle of its lower edge.

#include <QQuickPaintedItem>

namespace ambrel {

// `color` fills it, `lineColor` draws its two flanks; its upper edge is open, to be laid over the bubble's line.
class BubbleTail : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorsChanged FINAL)
  Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor NOTIFY colorsChanged FINAL)

 public:
  explicit BubbleTail(QQuickItem* parent = nullptr);

  QColor color() const { return color_; }
  void setColor(const QColor& color);
  QColor lineColor() const { return lineColor_; }
  void setLineColor(const QColor& color);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void colorsChanged();

 private:
  QColor color_, lineColor_;
};

}  // namespace ambrel
