#pragma once
// Pins and highlights as they are drawn over a capture, on the screen and in exports.

#include <QColor>
#include <QRectF>

#include "core/review.h"

class QPainter;

namespace ambrel {

// Of the mark of this number, from 0. White text on it, and its white edge on any picture, reach 4.5:1 or 3:1.
QColor markColor(std::size_t index);

// Draws the marks of a page over its picture, which fills `frame`. `size` is the diameter of a pin. Pins near an edge
// are moved inside.
void drawMarks(QPainter& painter, const ReviewPage& page, const QRectF& frame, double size);
// One pin with its number.
void drawPin(QPainter& painter, QPointF center, std::size_t index, double size);

}  // namespace ambrel
