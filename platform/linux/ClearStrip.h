#pragma once
// A window of nothing, for the pointer to be told of over it.

#include <QPainter>
#include <QRasterWindow>

namespace ambrel {

class ClearStrip : public QRasterWindow {
 public:
  ClearStrip(Qt::WindowFlags flags, const QRect& place) {
    setFlags(flags);
    QSurfaceFormat clear = format();
    clear.setAlphaBufferSize(8);
    setFormat(clear);
    setGeometry(place);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(QRect({}, size()), Qt::transparent);
  }
};

}  // namespace ambrel
