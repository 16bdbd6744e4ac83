#pragma once
// A picture of the screen over the screen, with a loupe at the pointer: what is under it is chosen by a click or
// Return.

#include <QImage>
#include <QRasterWindow>
#include <functional>

class QScreen;

namespace ambrel {

class ColorLoupe : public QRasterWindow {
  Q_OBJECT

 public:
  // `picture` in the screen's own pixels. `words` gives what is written below the loupe for a color.
  ColorLoupe(QImage picture, QScreen* screen, std::function<QString(QColor)> words);

  // For screen readers: the color in words, and what it is in.
  QString spoken() const;
  QAccessibleInterface* accessibleRoot() const override;
  // Of the picture's pixels.
  QPoint place() const { return place_; }

 Q_SIGNALS:
  void picked(const QColor& color);
  void left();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  qreal scale() const;  // pixels of the picture for one of the window
  void moveTo(QPoint place);
  void follow(QPointF pointer);
  QRect loupeFrame() const;
  QColor color() const { return picture_.pixelColor(place_); }

  QImage picture_;
  std::function<QString(QColor)> words_;
  QPoint place_;
};

}  // namespace ambrel
