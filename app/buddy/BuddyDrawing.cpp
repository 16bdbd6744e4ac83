#include "app/buddy/BuddyDrawing.h"

#include <QPainter>
#include <QPen>
#include <algorithm>

namespace ambrel {
namespace {

constexpr QPointF leftEye{23, 35}, rightEye{41, 35};
constexpr double pivotX = 32, pivotY = 57;

QPainterPath bodyPath() {
  QPainterPath path({32, 14});
  path.cubicTo(33, 9, 37, 5.6, 42.4, 5.4);
  path.cubicTo(44.4, 5.3, 44.9, 7.4, 43.4, 8.5);
  path.cubicTo(41.6, 9.9, 41, 11.8, 42, 13.9);
  path.cubicTo(50.6, 17.4, 55, 25.6, 55, 36);
  path.cubicTo(55, 49.6, 46, 57, 32, 57);
  path.cubicTo(18, 57, 9, 49.6, 9, 36);
  path.cubicTo(9, 23, 17.4, 14.4, 32, 14);
  path.closeSubpath();
  return path;
}

void fillEllipse(QPainter& painter, const QColor& color, QPointF middle, double width, double height) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(middle, width / 2, height / 2);
}

void drawArm(QPainter& painter, const BuddyColors& colors, QPointF shoulder, QPointF hand) {
  painter.setPen(buddyPen(colors.limbs, 6));
  painter.drawLine(shoulder, hand);
}

// Raised hands move the shoulder inwards; otherwise the arm would run along the body's edge.
QPointF shoulderOf(QPointF hand, bool isLeft) {
  const double drawnIn = 4 * std::clamp((42 - hand.y()) / 22, 0.0, 1.0);
  return {isLeft ? 13 + drawnIn : 51 - drawnIn, 42};
}

void drawEye(QPainter& painter, const BuddyColors& colors, BuddyEye eye, QPointF at, bool isLeft) {
  const QColor white(Qt::white);
  const auto apart = [&](double x, double y) { return at + QPointF(x, y); };
  switch (eye) {
    case BuddyEye::open:
      fillEllipse(painter, colors.face, at, 6.4, 8.4);
      fillEllipse(painter, white, apart(1.1, -1.6), 2.4, 2.4);
      break;
    case BuddyEye::small:
      fillEllipse(painter, colors.face, apart(0, 0.8), 5.6, 7.2);
      fillEllipse(painter, white, apart(0.9, -0.6), 2, 2);
      break;
    case BuddyEye::shut:
      strokeBend(painter, buddyPen(colors.face, 2.2), apart(-4, 0.2), apart(0, 4.6), apart(4, 0.2));
      break;
    case BuddyEye::happy:
      strokeBend(painter, buddyPen(colors.face, 2.4), apart(-3.7, 1.6), apart(0, -5.2), apart(3.7, 1.6));
      break;
    case BuddyEye::squeezed: {
      const double to = isLeft ? 3.2 : -3.2;
      QPainterPath path(apart(-to, -3.1));
      path.lineTo(apart(to, 0));
      path.lineTo(apart(-to, 3.1));
      painter.strokePath(path, buddyPen(colors.face, 2.4));
      break;
    }
    case BuddyEye::startled:
      fillEllipse(painter, white, at, 10.8, 10.8);
      fillEllipse(painter, colors.face, at, 5.2, 5.2);
      break;
    case BuddyEye::heart:
      painter.fillPath(heartPath(at, 11.2), QColor(0xE4574C));
      break;
  }
}

void drawMouth(QPainter& painter, const BuddyColors& colors, BuddyMouth mouth) {
  const QPen pen = buddyPen(colors.face, 2);
  switch (mouth) {
    case BuddyMouth::none:
      break;
    case BuddyMouth::smile:
      strokeBend(painter, pen, {28, 42.5}, {32, 45.9}, {36, 42.5});
      break;
    case BuddyMouth::smirk:
      strokeBend(painter, pen, {30, 43.6}, {34.4, 45.8}, {36.8, 41.9});
      break;
    case BuddyMouth::frown:
      strokeBend(painter, pen, {28, 45.4}, {32, 41.6}, {36, 45.4});
      break;
    case BuddyMouth::flat:
      strokeLines(painter, pen, {{28.8, 43.6, 35.2, 43.6}});
      break;
    case BuddyMouth::round:
      fillEllipse(painter, colors.face, {32, 45}, 5.2, 6.6);
      break;
    case BuddyMouth::open: {
      QPainterPath lips({27.3, 42.2});
      lips.lineTo(36.7, 42.2);
      lips.cubicTo(37.3, 42.2, 37.5, 42.6, 37.4, 43.2);
      lips.cubicTo(37, 46.2, 34.9, 48.1, 32, 48.1);
      lips.cubicTo(29.1, 48.1, 27, 46.2, 26.6, 43.2);
      lips.cubicTo(26.5, 42.6, 26.7, 42.2, 27.3, 42.2);
      painter.fillPath(lips, colors.face);
      QPainterPath tongue;
      tongue.addEllipse(QPointF(32, 47.6), 3.2, 2.5);
      painter.fillPath(tongue.intersected(lips), colors.tongue);
      break;
    }
  }
}

void drawFace(QPainter& painter, const BuddyLook& look, const BuddyColors& colors, bool isBlinking) {
  const auto blinked = [isBlinking](BuddyEye eye) {
    return isBlinking && eye == BuddyEye::open ? BuddyEye::shut : eye;
  };
  if (look.hasCheeks) {
    fillEllipse(painter, colors.cheek, {17.6, 42.4}, 5.6, 3.8);
    fillEllipse(painter, colors.cheek, {46.4, 42.4}, 5.6, 3.8);
  }
  drawEye(painter, colors, blinked(look.leftEye), leftEye + look.glance, true);
  drawEye(painter, colors, blinked(look.rightEye), rightEye + look.glance, false);
  drawMouth(painter, colors, look.mouth);
}

}  // namespace

QPen buddyPen(const QColor& color, double width) {
  return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void strokeBend(QPainter& painter, const QPen& pen, QPointF from, QPointF bend, QPointF to) {
  QPainterPath path(from);
  path.quadTo(bend, to);
  painter.strokePath(path, pen);
}

void strokeLines(QPainter& painter, const QPen& pen, std::initializer_list<QLineF> lines) {
  painter.setPen(pen);
  for (const QLineF& line : lines) painter.drawLine(line);
}

QPainterPath heartPath(QPointF middle, double width) {
  // Drawn 12 wide and 10.5 high around the origin, then scaled.
  QPainterPath path({0, 5.2});
  path.cubicTo(-1, 4.4, -6, 1.2, -6, -2.1);
  path.cubicTo(-6, -4.2, -4.6, -5.3, -3, -5.3);
  path.cubicTo(-1.7, -5.3, -0.6, -4.6, 0, -3.5);
  path.cubicTo(0.6, -4.6, 1.7, -5.3, 3, -5.3);
  path.cubicTo(4.6, -5.3, 6, -4.2, 6, -2.1);
  path.cubicTo(6, 1.2, 1, 4.4, 0, 5.2);
  const double scale = width / 12;
  return QTransform(scale, 0, 0, scale, middle.x(), middle.y()).map(path);
}

BuddyColors buddyColors(bool isDark, const QColor& line, const QColor& board, const QColor& ink) {
  const auto picked = [isDark](unsigned dark, unsigned light) { return QColor::fromRgb(isDark ? dark : light); };
  return {.body = picked(0x5FD0BF, 0x4FC4B2),
          .limbs = picked(0x3DAE9E, 0x2F9C8C),
          .sheen = picked(0x8CE3D6, 0x84DCCE),
          .face = QColor(0x10, 0x23, 0x1F),
          .cheek = picked(0xF2A58E, 0xEE9A82),
          .tongue = QColor(0xEF, 0x8A, 0x78),
          .shadow = QColor(0, 0, 0, isDark ? 71 : 36),
          .line = line,
          .board = board,
          .ink = ink,
          .orange = picked(0xFFB266, 0xE08A2E),
          .blue = picked(0x7DA7FF, 0x4F86F0),
          .red = picked(0xFF7F77, 0xE4574C),
          .yellow = picked(0xF0CE62, 0xE0AE22),
          .violet = picked(0xB39BFF, 0x8B68E6)};
}

void drawBuddy(QPainter& painter, const BuddyLook& look, const BuddyStance& stance, const BuddyColors& colors,
               bool isBlinking) {
  painter.setRenderHint(QPainter::Antialiasing);
  if (look.shadow > 0) fillEllipse(painter, colors.shadow, {32, 60.6}, 34 * look.shadow, 4);

  painter.save();
  if (look.cutBelow) painter.setClipRect(QRectF(-64, -64, 192, 64 + *look.cutBelow));
  painter.translate(pivotX + stance.right, pivotY - stance.up);
  painter.rotate(stance.angle);
  painter.scale(stance.width, stance.height);
  painter.translate(-pivotX, -pivotY);

  const bool holdsLeft = look.hold && !look.hold->isLeftFree;
  if (!holdsLeft) drawArm(painter, colors, shoulderOf(stance.leftHand, true), stance.leftHand);
  if (!look.hold) drawArm(painter, colors, shoulderOf(stance.rightHand, false), stance.rightHand);
  fillEllipse(painter, colors.limbs, {24, 57}, 12, 7.2);
  fillEllipse(painter, colors.limbs, {40, 57}, 12, 7.2);
  painter.fillPath(bodyPath(), colors.body);
  QPainterPath sheen({16.4, 27.6});
  sheen.cubicTo(18.2, 23.4, 21.4, 20.4, 25.4, 19);
  painter.strokePath(sheen, buddyPen(colors.sheen, 3));
  drawFace(painter, look, colors, isBlinking);
  if (look.held) look.held(painter, colors);
  if (holdsLeft) drawArm(painter, colors, look.hold->leftShoulder, stance.leftHand);
  if (look.hold) drawArm(painter, colors, look.hold->rightShoulder, stance.rightHand);
  painter.restore();

  if (look.around) look.around(painter, colors);
}

}  // namespace ambrel
