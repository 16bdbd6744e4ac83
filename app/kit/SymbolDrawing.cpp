#include "app/kit/SymbolDrawing.h"

#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <cmath>
#include <numbers>
#include <utility>

namespace ambrel {
namespace {

// All measures are in a box of 24 x 24.
constexpr std::pair<std::string_view, Weather> names[] = {
    {"sun.max.fill", Weather::sunny},           {"cloud.sun", Weather::partlyCloudy},
    {"cloud.sun.fill", Weather::partlyCloudy},  {"cloud.fill", Weather::cloudy},
    {"cloud.fog.fill", Weather::foggy},         {"cloud.drizzle.fill", Weather::drizzle},
    {"cloud.rain.fill", Weather::rain},         {"cloud.snow.fill", Weather::snow},
    {"cloud.bolt.rain.fill", Weather::thunder},
};

QPainterPath sunPath(QPointF center, qreal radius) {
  QPainterPath path;
  path.addEllipse(center, radius, radius);
  QPainterPathStroker stroker;
  stroker.setWidth(1.7);
  stroker.setCapStyle(Qt::RoundCap);
  QPainterPath rays;
  for (int i = 0; i < 8; ++i) {
    const qreal angle = i * std::numbers::pi / 4;
    const QPointF direction(std::cos(angle), std::sin(angle));
    rays.moveTo(center + direction * (radius + 2.2));
    rays.lineTo(center + direction * (radius + 3.2));
  }
  path.addPath(stroker.createStroke(rays));
  return path;
}

// 19.5 wide, 13 tall, its lower left corner at `foot`.
QPainterPath cloudPath(QPointF foot) {
  QPainterPath path;
  path.addEllipse(QRectF(foot.x(), foot.y() - 9, 9, 9));
  QPainterPath part;
  part.addEllipse(QRectF(foot.x() + 4.2, foot.y() - 13, 11, 11));
  path = path.united(part);
  part.clear();
  part.addEllipse(QRectF(foot.x() + 10.7, foot.y() - 8.8, 8.8, 8.8));
  path = path.united(part);
  part.clear();
  part.addRect(QRectF(foot.x() + 4.5, foot.y() - 6, 10.6, 6));
  return path.united(part);
}

QPainterPath grown(const QPainterPath& path, qreal by) {
  QPainterPathStroker stroker;
  stroker.setWidth(by * 2);
  stroker.setJoinStyle(Qt::RoundJoin);
  return path.united(stroker.createStroke(path));
}

void drawLines(QPainter& painter, const QColor& color, qreal width, std::initializer_list<QLineF> lines) {
  painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
  for (const QLineF& line : lines) painter.drawLine(line);
  painter.setPen(Qt::NoPen);
}

void drawUnderCloud(QPainter& painter, Weather weather, const WeatherColors& colors) {
  switch (weather) {
    case Weather::sunny:
    case Weather::partlyCloudy:
    case Weather::cloudy:
      return;
    case Weather::foggy:
      drawLines(painter, colors.cloud, 1.8, {QLineF(4, 18.5, 20, 18.5), QLineF(6.5, 22, 17.5, 22)});
      return;
    case Weather::drizzle:
      drawLines(painter, colors.water, 1.8, {QLineF(8.5, 18.5, 8, 20), QLineF(15.5, 18.5, 15, 20)});
      return;
    case Weather::rain:
      drawLines(painter, colors.water, 1.8,
                {QLineF(7.5, 18.2, 6, 22), QLineF(12.5, 18.2, 11, 22), QLineF(17.5, 18.2, 16, 22)});
      return;
    case Weather::snow:
      drawLines(painter, colors.water, 2.4,
                {QLineF(7, 18.8, 7, 18.9), QLineF(12, 21.6, 12, 21.7), QLineF(17, 18.8, 17, 18.9)});
      return;
    case Weather::thunder: {
      const QPointF bolt[] = {{13, 16.6}, {9.4, 20.4}, {11.9, 20.4}, {10.8, 24}, {14.8, 19.4}, {12.3, 19.4}};
      painter.setBrush(colors.sun);
      painter.drawPolygon(bolt, std::size(bolt));
      drawLines(painter, colors.water, 1.8, {QLineF(6.5, 18.2, 5.4, 21), QLineF(18.6, 18.2, 17.5, 21)});
      return;
    }
  }
}

}  // namespace

std::optional<Weather> weatherOf(std::string_view symbol) {
  for (const auto& [name, weather] : names)
    if (name == symbol) return weather;
  return std::nullopt;
}

void drawWeather(QPainter& painter, const QRectF& box, Weather weather, const WeatherColors& colors) {
  painter.save();
  painter.translate(box.topLeft());
  painter.scale(box.width() / 24, box.height() / 24);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  if (weather == Weather::sunny) {
    painter.fillPath(sunPath({12, 12}, 6), colors.sun);
  } else if (weather == Weather::partlyCloudy) {
    const QPainterPath cloud = cloudPath({4, 22.5});
    const qreal gap = colors.sun == colors.cloud ? 1.3 : 0;
    painter.fillPath(sunPath({9.2, 8.2}, 4.6).subtracted(gap > 0 ? grown(cloud, gap) : cloud), colors.sun);
    painter.fillPath(cloud, colors.cloud);
  } else {
    painter.fillPath(cloudPath({2.2, weather == Weather::cloudy ? 18.5 : 15.8}), colors.cloud);
    drawUnderCloud(painter, weather, colors);
  }
  painter.restore();
}

}  // namespace ambrel
