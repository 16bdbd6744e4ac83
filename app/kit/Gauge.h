#pragma once
// A share of a hundred as an arc or as a bar. A new value eases in, and nothing is painted between changes.

#include <QColor>
#include <QVariantAnimation>
#include <memory>

#include "app/kit/StyledItem.h"

namespace ambrel {

// `value` is 0 to 100; beyond that it is cut off. Not a number means unknown: the empty track. A step too small to
// be seen as movement, an item that is not on screen and a duration of 0 take the new value at once.
class Gauge : public ambrel::StyledItem {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(qreal value READ value WRITE setValue NOTIFY valueChanged FINAL)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor trackColor MEMBER trackColor_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(int duration MEMBER duration_ NOTIFY styleChanged FINAL)

 public:
  using StyledItem::StyledItem;

  qreal value() const { return value_; }
  void setValue(qreal value);
  // What is painted at this moment, 0 to 100; 0 when the value is unknown.
  qreal shown() const { return shown_; }

 Q_SIGNALS:
  void valueChanged();

 protected:
  // How many pixels the full value covers.
  virtual qreal reach() const = 0;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

  QColor color_, trackColor_;

 private:
  void show(qreal value);

  qreal value_ = 0;
  qreal shown_ = 0;
  int duration_ = 0;  // milliseconds
  std::unique_ptr<QVariantAnimation> easing_;
};

// Starts at twelve o'clock and runs clockwise, with round ends.
class RingArc : public ambrel::Gauge {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal lineWidth MEMBER lineWidth_ NOTIFY styleChanged FINAL)

 public:
  using Gauge::Gauge;
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
