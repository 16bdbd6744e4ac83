#pragma once
// A share of a hundred as an arc or as a bar. A new value eases in, and nothing is painted between changes.

#include <QQuickPaintedItem>
#include <QVariantAnimation>
#include <memory>

namespace ambrel {

// `value` is 0 to 100; beyond that it is cut off. Not a number means unknown: the empty track. A step too small to
// be seen as movement, an item that is not on screen and a duration of 0 take the new value at once.
class Gauge : public QQuickPaintedItem {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(qreal value READ value WRITE setValue NOTIFY valueChanged FINAL)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY styleChanged FINAL)
  Q_PROPERTY(int duration READ duration WRITE setDuration NOTIFY styleChanged FINAL)

 public:
  explicit Gauge(QQuickItem* parent = nullptr);

  qreal value() const { return value_; }
  void setValue(qreal value);
  QColor color() const { return color_; }
  void setColor(const QColor& color);
  QColor trackColor() const { return trackColor_; }
  void setTrackColor(const QColor& color);
  int duration() const { return duration_; }
  void setDuration(int milliseconds);

  // What is painted at this moment, 0 to 100; 0 when the value is unknown.
  qreal shown() const { return shown_; }

 Q_SIGNALS:
  void valueChanged();
  void styleChanged();

 protected:
  // How many pixels the full value covers.
  virtual qreal reach() const = 0;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void show(qreal value);

  qreal value_ = 0;
  qreal shown_ = 0;
  QColor color_;
  QColor trackColor_;
  int duration_ = 0;
  std::unique_ptr<QVariantAnimation> easing_;
};

// The base is qualified for the QML tools, which look names up from outside of the namespace.
// Starts at twelve o'clock and runs clockwise, with round ends.
class RingArc : public ambrel::Gauge {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal lineWidth READ lineWidth WRITE setLineWidth NOTIFY styleChanged FINAL)

 public:
  using Gauge::Gauge;
  qreal lineWidth() const { return lineWidth_; }
  void setLineWidth(qreal width);
  void paint(QPainter* painter) override;

 protected:
  qreal reach() const override;

 private:
  qreal lineWidth_ = 4;
};

// Lies along its width, fully round.
class MeterBar : public ambrel::Gauge {
  Q_OBJECT
  QML_ELEMENT

 public:
  using Gauge::Gauge;
  void paint(QPainter* painter) override;

 protected:
  qreal reach() const override { return width(); }
};

}  // namespace ambrel
