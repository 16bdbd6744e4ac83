#include "app/kit/Palette.h"

#include <algorithm>
#include <cmath>

namespace ambrel {
namespace {

QColor rgb(unsigned value) { return QColor::fromRgb(value); }

QColor withAlpha(unsigned value, double alpha) {
  QColor color = rgb(value);
  color.setAlphaF(static_cast<float>(alpha));
  return color;
}

ToneColors tone(unsigned text, unsigned soft, unsigned mark) { return {rgb(text), rgb(soft), rgb(mark)}; }

double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

}  // namespace

Palette darkPalette() {
  return {
      .bar = withAlpha(0x11141A, 0.88),
      .barLine = withAlpha(0xFFFFFF, 0.10),
      .tile = rgb(0x242932),
      .tileHover = rgb(0x2E343F),
      .tilePressed = rgb(0x1D2129),
      .panel = rgb(0x181C23),
      .card = rgb(0x222730),
      .cardHover = rgb(0x2B313C),
      .field = rgb(0x12151B),
      .greySoft = rgb(0x333945),
      .line = withAlpha(0xFFFFFF, 0.10),
      .lineStrong = withAlpha(0xFFFFFF, 0.16),
      .track = rgb(0x3A414D),
      .accent = rgb(0x7DA7FF),
      .accentHover = rgb(0x97B9FF),
      .accentPressed = rgb(0x6690EA),
      .onAccent = rgb(0x0A1430),
      .ink = rgb(0xF3F5F8),
      .ink2 = rgb(0xBAC2CE),
      .ink3 = rgb(0x9BA5B4),
      .weatherSun = rgb(0xF3B73E),
      .weatherCloud = rgb(0xD5DAE4),
      .neutral = tone(0xBAC2CE, 0x333945, 0x9BA5B4),
      .orange = tone(0xFFB266, 0x43331F, 0xFFB266),
      .blue = tone(0x8FB4FF, 0x27344F, 0x7DA7FF),
      .green = tone(0x74D99A, 0x203D2E, 0x6BD394),
      .red = tone(0xFF9A91, 0x47292B, 0xFF8A80),
      .teal = tone(0x62D2C3, 0x333945, 0x5FD0BF),
      .violet = tone(0xBDA8FF, 0x333945, 0xB39BFF),
      .yellow = tone(0xF0CE62, 0x333945, 0xF0CE62),
      .sunburst = {rgb(0x6F9BF5), rgb(0x5FC7B8), rgb(0xF0A95C), rgb(0xB08CF0), rgb(0xE8807A), rgb(0x8C9AAE)},
  };
}

Palette lightPalette() {
  return {
      .bar = withAlpha(0xEEF1F5, 0.90),
      .barLine = withAlpha(0xFFFFFF, 0.75),
      .tile = rgb(0xFFFFFF),
      .tileHover = rgb(0xF4F7FC),
      .tilePressed = rgb(0xE6EAF1),
      .panel = rgb(0xFCFDFE),
      .card = rgb(0xF1F3F7),
      .cardHover = rgb(0xE8ECF2),
      .field = rgb(0xFFFFFF),
      .greySoft = rgb(0xE6EAF0),
      .line = withAlpha(0x141C2A, 0.11),
      .lineStrong = withAlpha(0x141C2A, 0.20),
      .track = rgb(0xDDE2EA),
      .accent = rgb(0x2458D3),
      .accentHover = rgb(0x1E4BB8),
      .accentPressed = rgb(0x193F9C),
      .onAccent = rgb(0xFFFFFF),
      .ink = rgb(0x161B23),
      .ink2 = rgb(0x454E5D),
      .ink3 = rgb(0x586271),
      .weatherSun = rgb(0xF3B73E),
      .weatherCloud = rgb(0x9FAEC2),
      .neutral = tone(0x454E5D, 0xE6EAF0, 0x586271),
      .orange = tone(0x954300, 0xFDEBDA, 0xC2630A),
      .blue = tone(0x2151C4, 0xE1EAFD, 0x2F6BE8),
      .green = tone(0x12652F, 0xDDF3E4, 0x1F8F4C),
      .red = tone(0xAE231B, 0xFCE4E2, 0xD2392F),
      .teal = tone(0x0A6A62, 0xE6EAF0, 0x0F8F82),
      .violet = tone(0x6338C4, 0xE6EAF0, 0x7A52DE),
      .yellow = tone(0x7A5A00, 0xE6EAF0, 0xA07600),
      .sunburst = {rgb(0x3F74DE), rgb(0x1E9485), rgb(0xCC7A1E), rgb(0x8257D6), rgb(0xCF5048), rgb(0x6B788B)},
  };
}

double contrastRatio(const QColor& first, const QColor& second) {
  const double a = luminance(first);
  const double b = luminance(second);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor laidOver(const QColor& top, const QColor& ground) {
  const float alpha = top.alphaF();
  const auto mixed = [alpha](float over, float under) { return over * alpha + under * (1 - alpha); };
  return QColor::fromRgbF(mixed(top.redF(), ground.redF()), mixed(top.greenF(), ground.greenF()),
                          mixed(top.blueF(), ground.blueF()));
}

}  // namespace ambrel
