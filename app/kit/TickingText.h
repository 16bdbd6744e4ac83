#pragma once
// A line of text that ticks: with `widest` given, its digits all have the same width and its box is as wide as the
// widest text, so that nothing moves but the figures. With `room` given, a text that is too wide for it is set smaller,
// down to `leastSize`, and then tighter, where that makes it fit.

#include <QColor>
#include <QFont>
#include <array>

#include "app/kit/StyledItem.h"

namespace ambrel {

class TickingText : public ambrel::StyledItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)
  // A text of the greatest width to come, such as "00:00:00"; empty when box and digits follow the text.
  Q_PROPERTY(QString widest MEMBER widest_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QFont font MEMBER font_ NOTIFY styleChanged FINAL)
  // Logical pixels; negative while there is no limit.
  Q_PROPERTY(qreal room MEMBER room_ NOTIFY styleChanged FINAL)
  // Pixels of the font.
  Q_PROPERTY(int leastSize MEMBER leastSize_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(Qt::Alignment alignment MEMBER alignment_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(bool truncated READ truncated NOTIFY textChanged FINAL)

 public:
  explicit TickingText(QQuickItem* parent = nullptr);

  QString text() const { return text_; }
  void setText(const QString& text);
  // Whether the text does not fit; then it ends in an ellipsis.
  bool truncated() const;

  qreal widthOf(const QString& text) const;
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void textChanged();

 protected:
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void restyle() override;

 private:
  // What a font says of itself, asked once.
  struct Ruler {
    explicit Ruler(const QFont& of = {});
    QFont font;
    qreal height = 0, ascent = 0;
    std::array<qreal, 10> digits{};
    qreal widestDigit = 0;
  };
  struct Cell {
    QString text;
    qreal inset, width;
  };
  QList<Cell> cellsOf(const Ruler& ruler, const QString& text) const;
  static qreal widthOf(const QList<Cell>& cells);
  void measure();
  void placeBaseline();
  bool isFixed() const { return !widest_.isEmpty(); }

  QString text_, widest_;
  QFont font_;
  Ruler own_, shown_;                      // of `font_`; of that, or of a smaller one
  QList<Cell> cells_;                      // of the text as it is shown
  qreal textWidth_ = 0, widestWidth_ = 0;  // as shown; in `font_`
  qreal room_ = -1;
  int leastSize_ = 11;
  QColor color_ = Qt::black;
  Qt::Alignment alignment_ = Qt::AlignLeft;
};

}  // namespace ambrel
