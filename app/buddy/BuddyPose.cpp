#include "app/buddy/BuddyPose.h"

#include <QPainter>
#include <map>

#include "app/buddy/BuddyDrawing.h"

namespace ambrel {
namespace {

constexpr double airLine = 2;

void strokePath(QPainter& painter, const QPen& pen, std::initializer_list<QPointF> points) {
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF(QList<QPointF>(points)));
}

void fillBox(QPainter& painter, const QColor& color, const QRectF& box, double radius) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(box, radius, radius);
}

void fillDot(QPainter& painter, const QColor& color, QPointF middle, double radius) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(middle, radius, radius);
}

void sleepSigns(QPainter& painter, const BuddyColors& colors) {
  const auto letter = [&](QPointF at, double width, double height, double line) {
    strokePath(painter, buddyPen(colors.line, line),
               {at, at + QPointF(width, 0), at + QPointF(0, height), at + QPointF(width, height)});
  };
  letter({51.6, 10.4}, 3.6, 3.6, 1.3);
  letter({58, 0.4}, 5, 5.4, 1.6);
}

void thoughts(QPainter& painter, const BuddyColors& colors) {
  fillBox(painter, colors.board, {48, -4.9, 20, 10.8}, 5.4);
  fillDot(painter, colors.board, {48.8, 9.3}, 1.7);
  for (const double x : {53.0, 58.0, 63.0}) fillDot(painter, colors.ink, {x, 0.5}, 1.5);
}

void alarmSign(QPainter& painter, const BuddyColors&) {
  fillDot(painter, QColor(0xDF463D), {55, 12}, 7.4);
  strokeLines(painter, buddyPen(Qt::white, 2.4), {{55, 8.4, 55, 12.4}});
  fillDot(painter, Qt::white, {55, 16}, 1.5);
}

void confetti(QPainter& painter, const BuddyColors& colors) {
  struct Snippet {
    QPointF at;
    double angle;
    QColor color;
  };
  const Snippet snippets[] = {{{3, 22}, 35, colors.blue},     {{6, 10}, 15, colors.orange},
                              {{14, 3}, -30, colors.blue},    {{24, 0}, 8, colors.red},
                              {{51.8, 2}, 38, colors.yellow}, {{58.8, 10}, -14, colors.violet},
                              {{60.8, 22}, 30, colors.orange}};
  for (const Snippet& each : snippets) {
    painter.save();
    painter.translate(each.at);
    painter.rotate(each.angle);
    fillBox(painter, each.color, {-1.7, -1.7, 3.4, 3.4}, 0.8);
    painter.restore();
  }
}

void waveLines(QPainter& painter, const BuddyColors& colors) {
  const QPen pen = buddyPen(colors.line, airLine);
  strokeBend(painter, pen, {59.6, 11.8}, {63.8, 16.6}, {62.6, 23});
  strokeBend(painter, pen, {64.2, 8}, {70, 15.4}, {68.2, 24.2});
}

void jumpLines(QPainter& painter, const BuddyColors& colors) {
  strokeLines(painter, buddyPen(colors.line, airLine), {{20, 55, 20, 59.4}, {32, 54, 32, 59.4}, {44, 55, 44, 59.4}});
}

void spinLines(QPainter& painter, const BuddyColors& colors) {
  const QPen pen = buddyPen(colors.line, airLine);
  strokeBend(painter, pen, {2, 26.2}, {4, 18.6}, {10.4, 13.8});
  strokeBend(painter, pen, {3.2, 49.8}, {-2.2, 54.6}, {8, 58.6});
  strokeBend(painter, pen, {60.8, 49.8}, {66.2, 54.6}, {56, 58.6});
}

void notes(QPainter& painter, const BuddyColors& colors) {
  const auto note = [&](QPointF head, const QColor& color) {
    painter.save();
    painter.translate(head);
    strokePath(painter, buddyPen(color, 1.7), {{2.4, -0.6}, {2.4, -8.6}, {6.6, -6.9}});
    painter.rotate(-15);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QPointF(), 2.7, 2.1);
    painter.restore();
  };
  note({52, 12.2}, colors.orange);
  note({58.2, 28.2}, colors.violet);
}

void nodArrow(QPainter& painter, const BuddyColors& colors) {
  const QPen pen = buddyPen(colors.line, airLine);
  strokeLines(painter, pen, {{61, 22, 61, 37}});
  strokePath(painter, pen, {{58, 33.8}, {61, 37}, {64, 33.8}});
}

void shakeLines(QPainter& painter, const BuddyColors& colors) {
  const QPen pen = buddyPen(colors.line, airLine);
  strokeBend(painter, pen, {3, 24}, {-1, 32}, {3, 40.4});
  strokeBend(painter, pen, {61, 22}, {65, 30}, {61, 38.4});
}

void sparkle(QPainter& painter, const BuddyColors& colors) {
  const QPointF middle(57.2, 23.4);
  QPainterPath path(middle + QPointF(0, -5.6));
  for (const auto& [waist, tip] : {std::pair{QPointF(1.1, -1.1), QPointF(5.6, 0)},
                                   {QPointF(1.1, 1.1), QPointF(0, 5.6)},
                                   {QPointF(-1.1, 1.1), QPointF(-5.6, 0)},
                                   {QPointF(-1.1, -1.1), QPointF(0, -5.6)}})
    path.quadTo(middle + waist, middle + tip);
  painter.fillPath(path, colors.yellow);
}

void hearts(QPainter& painter, const BuddyColors& colors) {
  painter.fillPath(heartPath({8, 15.8}, 7), colors.red);
  painter.fillPath(heartPath({55.8, 9.8}, 9), colors.red);
}

void startleLines(QPainter& painter, const BuddyColors& colors) {
  strokeLines(painter, buddyPen(colors.line, airLine),
              {{10.2, 3, 14.2, 8.2}, {23.6, -0.8, 24.9, 4}, {59.2, 8, 54, 12.2}});
}

void board(QPainter& painter, const BuddyColors& colors) {
  fillBox(painter, colors.board, {-4, 51, 72, 13.6}, 3.6);
  for (const double x : {13.0, 51.0}) {
    painter.setBrush(colors.limbs);
    painter.drawEllipse(QPointF(x, 51), 4.9, 4.1);
  }
}

void cup(QPainter& painter, const BuddyColors& colors) {
  const QColor paper(0xF7, 0xF3, 0xEC), band(0xFF, 0x7F, 0x6E);
  strokePath(painter, buddyPen(band, 1.9), {{26.4, 38.9}, {32, 41.4}, {32, 46}});
  QPainterPath side({25.2, 46.4});
  side.lineTo(38.8, 46.4);
  side.lineTo(37.6, 58.4);
  side.cubicTo(37.5, 59.3, 37.1, 59.6, 36.4, 59.6);
  side.lineTo(27.6, 59.6);
  side.cubicTo(26.9, 59.6, 26.5, 59.3, 26.4, 58.4);
  side.closeSubpath();
  painter.fillPath(side, paper);
  QPainterPath stripe;
  stripe.addRect(24, 47.8, 16, 3.6);
  painter.fillPath(stripe.intersected(side), band);
  fillBox(painter, paper, {23.9, 44.6, 16.2, 3}, 0.9);
  Q_UNUSED(colors);
}

void computer(QPainter& painter, const BuddyColors&) {
  fillBox(painter, QColor(0x5A, 0x65, 0x78), {16.2, 44.4, 31.6, 13.6}, 2.2);
  fillDot(painter, QColor(0xD3, 0xD9, 0xE3), {32, 50.9}, 1.9);
  fillBox(painter, QColor(0x8D, 0x97, 0xAB), {9, 56, 46, 3.9}, 1.9);
}

void handClap(QPainter& painter, const BuddyColors& colors) {
  fillDot(painter, colors.limbs, {55, 19.9}, 4.5);
  strokeLines(painter, buddyPen(colors.line, airLine),
              {{54.7, 3.6, 54.1, 7.8}, {65, 8.9, 61, 12}, {61.8, 20.2, 65.8, 21.2}});
}

void mug(QPainter& painter, const BuddyColors& colors) {
  const QColor china(0xF7, 0xF3, 0xEC);
  painter.setPen(buddyPen(china, 2.4));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QPointF(38.2, 44), 4.2, 4);
  fillBox(painter, china, {23, 37.2, 14.8, 14}, 2.4);
  fillBox(painter, colors.blue, {26, 41.2, 8.8, 2.9}, 1.2);
}

void spray(QPainter& painter, const BuddyColors& colors) {
  strokeLines(painter, buddyPen(colors.line, airLine), {{-2, 37.6, 4, 39}, {-3, 46, 3, 44.8}});
  fillDot(painter, colors.blue, {-5.4, 41.8}, 1.8);
  fillDot(painter, colors.blue, {-4.4, 50.4}, 1.2);
  fillDot(painter, colors.blue, {1.6, 51.6}, 1.5);
}

void chevrons(QPainter& painter, const BuddyColors& colors) {
  const QPen pen = buddyPen(colors.line, 2.2);
  strokePath(painter, pen, {{4.2, 20.4}, {0, 24.4}, {4.2, 28.4}});
  strokePath(painter, pen, {{59.8, 20.4}, {64, 24.4}, {59.8, 28.4}});
}

constexpr QPointF leftUp{5.5, 28}, rightUp{58.5, 28}, leftHigh{9, 20}, rightHigh{55, 20}, leftOut{4, 40},
    rightOut{60, 40}, leftDown{9, 48}, rightDown{55, 48};

std::map<BuddyPose, BuddyLook> makeLooks() {
  using enum BuddyEye;
  using Mouth = BuddyMouth;
  return {
      {BuddyMood::idle, {}},
      {BuddyMood::asleep,
       {.stance = {.width = 1.05, .height = 0.92},
        .leftEye = shut,
        .rightEye = shut,
        .mouth = Mouth::flat,
        .around = sleepSigns}},
      {BuddyMood::thinking,
       {.stance = {.rightHand = {51.8, 45.2}},
        .glance = {1.9, -2.6},
        .mouth = Mouth::smirk,
        .hold = BuddyLook::Hold{.leftShoulder = {}, .rightShoulder = {42.6, 47.8}, .isLeftFree = true},
        .around = thoughts}},
      {BuddyMood::happy,
       {.stance = {.leftHand = leftUp, .rightHand = rightUp},
        .leftEye = happy,
        .rightEye = happy,
        .mouth = Mouth::open,
        .seconds = 0.8,
        .swing = {.up = 3, .times = 2}}},
      {BuddyMood::error,
       {.leftEye = small,
        .rightEye = small,
        .mouth = Mouth::frown,
        .around = alarmSign,
        .seconds = 0.8,
        .swing = {.angle = 4, .times = 3}}},
      {BuddyTrigger::celebrate,
       {.stance = {.up = 3, .leftHand = leftHigh, .rightHand = rightHigh},
        .leftEye = happy,
        .rightEye = happy,
        .mouth = Mouth::open,
        .around = confetti,
        .seconds = 1.4,
        .swing = {.up = 4, .leftHand = {-2, 2}, .rightHand = {2, 2}, .times = 3}}},
      {BuddyTrigger::wave,
       {.stance = {.rightHand = rightHigh},
        .mouth = Mouth::open,
        .around = waveLines,
        .seconds = 1.4,
        .swing = {.rightHand = {4, 2}, .times = 4}}},
      {BuddyTrigger::jump,
       {.stance = {.width = 0.95, .height = 1.05, .up = 9, .leftHand = leftUp, .rightHand = rightUp},
        .leftEye = happy,
        .rightEye = happy,
        .mouth = Mouth::open,
        .shadow = 0.7,
        .around = jumpLines,
        .seconds = 1.0,
        .swing = {.height = 0.08, .up = 6, .times = 2}}},
      {BuddyTrigger::spin,
       {.stance = {.width = 0.8, .leftHand = leftOut, .rightHand = rightOut},
        .mouth = Mouth::round,
        .around = spinLines,
        .seconds = 1.2,
        .swing = {.width = 0.5, .times = 3}}},
      {BuddyTrigger::dance,
       {.stance = {.angle = -11, .leftHand = leftUp, .rightHand = {57, 45}},
        .leftEye = happy,
        .rightEye = happy,
        .mouth = Mouth::open,
        .around = notes,
        .seconds = 1.6,
        .swing = {.angle = 20, .times = 3}}},
      {BuddyTrigger::nod,
       {.stance = {.height = 0.957},
        .glance = {0, 3},
        .mouth = Mouth::smile,
        .around = nodArrow,
        .seconds = 0.9,
        .swing = {.height = 0.05, .times = 2}}},
      {BuddyTrigger::shake,
       {.stance = {.angle = 5},
        .leftEye = shut,
        .rightEye = shut,
        .mouth = Mouth::flat,
        .around = shakeLines,
        .seconds = 1.0,
        .swing = {.angle = 10, .times = 3}}},
      {BuddyTrigger::stretch,
       {.stance = {.width = 0.92, .height = 1.1, .leftHand = leftHigh, .rightHand = rightHigh},
        .leftEye = squeezed,
        .rightEye = squeezed,
        .mouth = Mouth::round,
        .seconds = 1.2,
        .swing = {.height = 0.04, .times = 1}}},
      {BuddyTrigger::wink, {.rightEye = happy, .mouth = Mouth::smirk, .around = sparkle, .seconds = 0.6}},
      {BuddyTrigger::love,
       {.leftEye = heart,
        .rightEye = heart,
        .mouth = Mouth::open,
        .around = hearts,
        .seconds = 1.0,
        .swing = {.up = 2, .times = 2}}},
      {BuddyTrigger::startle,
       {.stance = {.up = 4, .leftHand = leftOut, .rightHand = rightOut},
        .leftEye = startled,
        .rightEye = startled,
        .mouth = Mouth::round,
        .hasCheeks = false,
        .around = startleLines,
        .seconds = 0.8,
        .swing = {.up = 5, .times = 2}}},
      {BuddyTrigger::peek,
       {.stance = {.up = -9.2},
        .glance = {0, -0.6},
        .mouth = Mouth::none,
        .hasCheeks = false,
        .shadow = 0,
        .cutBelow = 51,
        .around = board,
        .seconds = 0.8}},
      {BuddyTrigger::sip,
       {.stance = {.leftHand = {25.4, 51.3}, .rightHand = {38.6, 51.3}},
        .glance = {0, 1.9},
        .mouth = Mouth::none,
        .hold = BuddyLook::Hold{.leftShoulder = {16.4, 44.4}, .rightShoulder = {47.6, 44.4}},
        .held = cup,
        .seconds = 0.8}},
      {BuddyTrigger::typing,
       {.stance = {.leftHand = {15.4, 54.2}, .rightHand = {48.6, 54.2}},
        .glance = {0, 2.2},
        .mouth = Mouth::flat,
        .hold = BuddyLook::Hold{.leftShoulder = {12, 45.4}, .rightShoulder = {52, 45.4}},
        .held = computer,
        .seconds = 1.6,
        .swing = {.leftHand = {0, -2}, .rightHand = {0, 2}, .times = 7}}},
      {BuddyTrigger::highFive,
       {.stance = {.rightHand = rightHigh},
        .leftEye = happy,
        .rightEye = happy,
        .mouth = Mouth::open,
        .around = handClap,
        .seconds = 0.8,
        .swing = {.up = 2, .times = 1}}},
      {BuddyTrigger::drink,
       {.stance = {.angle = -5, .leftHand = {23.6, 47.8}, .rightHand = {42.4, 48.2}},
        .leftEye = happy,
        .rightEye = happy,
        .mouth = Mouth::none,
        .hold = BuddyLook::Hold{.leftShoulder = {15, 45.8}, .rightShoulder = {50.6, 46.4}},
        .held = mug,
        .seconds = 1.0,
        .swing = {.angle = -4, .times = 1}}},
      {BuddyTrigger::sneeze,
       {.stance = {.angle = -9, .right = 4.5, .rightHand = {59.4, 39}},
        .leftEye = squeezed,
        .rightEye = squeezed,
        .mouth = Mouth::round,
        .around = spray,
        .seconds = 0.8,
        .swing = {.angle = -10, .times = 1}}},
      {BuddyTrigger::lookAround,
       {.glance = {-4, 0.2},
        .mouth = Mouth::flat,
        .around = chevrons,
        .seconds = 1.2,
        .swing = {.angle = 5, .times = 2}}},
  };
}

}  // namespace

std::string_view nameOf(BuddyPose pose) {
  return std::visit([](auto each) { return nameOf(each); }, pose);
}

std::optional<BuddyPose> poseNamed(std::string_view name) {
  if (const auto mood = fromName<BuddyMood>(name)) return *mood;
  if (const auto trigger = fromName<BuddyTrigger>(name)) return *trigger;
  return std::nullopt;
}

const BuddyLook& lookOf(BuddyPose pose) {
  static const std::map<BuddyPose, BuddyLook> looks = makeLooks();
  return looks.at(pose);
}

}  // namespace ambrel
