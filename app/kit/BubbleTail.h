#pragma once
// The tail of a bubble: 28 x 14, its tip at the middle of its lower edge; or turned to the left or the right.

#include <QQuickPaintedItem>

namespace ambrel {

// `color` fills it, `lineColor` draws its two flanks; its upper edge is open, to be laid over the bubble's line.
class BubbleTail : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  // "bottom", "left" or "right": where it points.
  Q_PROPERTY(QString side READ side WRITE setSide NOTIFY sideChanged FINAL)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorsChanged FINAL)
  Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor NOTIFY colorsChanged FINAL)

 public:
  explicit BubbleTail(QQuickItem* parent = nullptr);

  QString side() const { return side_; }
  void setSide(const QString& side);
  QColor color() const { return color_; }
  void setColor(const QColor& color);
  QColor lineColor() const { return lineColor_; }
  void setLineColor(const QColor& color);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void sideChanged();
  void colorsChanged();

 private:
  QString side_ = QStringLiteral("bottom");
  QColor color_, lineColor_;
};

}  // namespace ambrel
