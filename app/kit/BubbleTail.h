#pragma once
// The tail of a bubble: 28 x 14, its tip at the middle of its lower edge; or turned to the left or the right.

#include <QColor>

#include "app/kit/StyledItem.h"

namespace ambrel {

// `color` fills it, `lineColor` draws its two flanks; its upper edge is open, to be laid over the bubble's line.
class BubbleTail : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  // "bottom", "left" or "right": where it points.
  Q_PROPERTY(QString side MEMBER side_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor lineColor MEMBER lineColor_ NOTIFY styleChanged FINAL)

 public:
  explicit BubbleTail(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 private:
  void restyle() override;

  QString side_ = QStringLiteral("bottom");
  QColor color_, lineColor_;
};

}  // namespace ambrel
