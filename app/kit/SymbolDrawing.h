#pragma once
// Symbols that the icon font lacks: weather pictures, composed of sun, cloud and what falls from it.

#include <QColor>
#include <optional>
#include <string_view>

class QPainter;
class QRectF;

namespace ambrel {

enum class Weather { sunny, partlyCloudy, cloudy, foggy, drizzle, rain, snow, thunder };

// "sun.max.fill", "cloud.sun", "cloud.sun.fill", "cloud.fill", "cloud.fog.fill", ...
std::optional<Weather> weatherOf(std::string_view symbol);

struct WeatherColors {
  QColor sun;
  QColor cloud;
  QColor water;
};

// Fills the square `box`. With one colour for all three the parts stay apart by gaps.
void drawWeather(QPainter& painter, const QRectF& box, Weather weather, const WeatherColors& colors);

}  // namespace ambrel
