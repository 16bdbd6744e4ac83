#pragma once
// A line of text that ticks: with `widest` given, its digits all have the same width and its box is as wide as the
// widest text, so that nothing moves but the figures. With `room` given, a text that is too wide for it is set smaller,
// down to `leastSize`, and then tighter, where that makes it fit.

#include <QFont>
#include <QQuickPaintedItem>
#include <array>

namespace ambrel {

class TickingText : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)
  Q_PROPERTY(QString widest READ widest WRITE setWidest NOTIFY styleChanged FINAL)
  Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY styleChanged FINAL)
  Q_PROPERTY(qreal room READ room WRITE setRoom NOTIFY styleChanged FINAL)
  Q_PROPERTY(int leastSize READ leastSize WRITE setLeastSize NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY styleChanged FINAL)
  Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment NOTIFY styleChanged FINAL)
  Q_PROPERTY(bool truncated READ truncated NOTIFY textChanged FINAL)

 public:
  explicit TickingText(QQuickItem* parent = nullptr);

  QString text() const { return text_; }
  void setText(const QString& text);
  // A text of the greatest width to come, such as "00:00:00"; empty when box and digits follow the text.
  QString widest() const { return widest_; }
  void setWidest(const QString& widest);
  QFont font() const { return font_; }
  void setFont(const QFont& font);
  // Logical pixels; negative while there is no limit.
  qreal room() const { return room_; }
  void setRoom(qreal room);
  // Pixels of the font.
  int leastSize() const { return leastSize_; }
  void setLeastSize(int size);
  QColor color() const { return color_; }
  void setColor(const QColor& color);
  Qt::Alignment alignment() const { return alignment_; }
  void setAlignment(Qt::Alignment alignment);
  // Whether the text does not fit; then it ends in an ellipsis.
  bool truncated() const;

  qreal widthOf(const QString& text) const;
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void textChanged();
  void styleChanged();

 protected:
  void geometryChange(const QRectF& now, const QRectF& before) override;

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
