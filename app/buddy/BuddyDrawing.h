#pragma once
// Draws the character.

#include <QColor>
#include <QPainterPath>

#include "app/buddy/BuddyPose.h"

class QPainter;

namespace ambrel {

struct BuddyColors {
  QColor body, limbs, sheen, face, cheek, tongue, shadow;
  QColor line;   // strokes in the air
  QColor board;  // what he looks over, and what his thoughts are drawn on
  QColor ink;    // on the board
  QColor orange, blue, red, yellow, violet;
};

// `line`, `board` and `ink` come from the theme, since they are drawn on its grounds.
BuddyColors buddyColors(bool isDark, const QColor& line, const QColor& board, const QColor& ink);

// Into the box (0, 0, 64, 64) of the painter's units, and up to 8 units beyond it. `stance` is that of `look`, or on
// its way there; `isBlinking` shuts eyes that are open.
void drawBuddy(QPainter& painter, const BuddyLook& look, const BuddyStance& stance, const BuddyColors& colors,
               bool isBlinking);

// For what is drawn about him.
QPen buddyPen(const QColor& color, double width);
void strokeLines(QPainter& painter, const QPen& pen, std::initializer_list<QLineF> lines);
QPainterPath heartPath(QPointF middle, double width);

}  // namespace ambrel
