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

// `line`, `board` and `ink` are theme colours, because they are drawn on the theme's backgrounds.
BuddyColors buddyColors(bool isDark, const QColor& line, const QColor& board, const QColor& ink);

// Draws into (0, 0, 64, 64) in the painter's units, and up to 8 units outside it. `stance` is the stance of `look`, or
// one on the way there; `isBlinking` closes open eyes.
void drawBuddy(QPainter& painter, const BuddyLook& look, const BuddyStance& stance, const BuddyColors& colors,
               bool isBlinking);

// Helpers for the drawings around him.
QPen buddyPen(const QColor& color, double width);
void strokeBend(QPainter& painter, const QPen& pen, QPointF from, QPointF bend, QPointF to);
void strokeLines(QPainter& painter, const QPen& pen, std::initializer_list<QLineF> lines);
QPainterPath heartPath(QPointF middle, double width);

}  // namespace ambrel
