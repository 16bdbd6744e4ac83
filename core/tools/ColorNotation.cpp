// Colours between the notations of CSS Color 4. What is outside of sRGB is clamped into it.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <numbers>

#include "core/base/Text.h"
#include "core/tools/Tools.h"

namespace ambrel::tools {
namespace {

using Three = std::array<double, 3>;

double limited(double value) { return std::clamp(value, 0.0, 1.0); }

double toLinear(double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); }
double fromLinear(double c) { return c <= 0.0031308 ? 12.92 * c : 1.055 * std::pow(c, 1 / 2.4) - 0.055; }

// Hue in degrees; undefined, and 0, for a grey.
double hue(const ToolColor& c) {
  const double most = std::max({c.red, c.green, c.blue}), range = most - std::min({c.red, c.green, c.blue});
  if (range == 0) return 0;
  const double sixth = most == c.red     ? (c.green - c.blue) / range
                       : most == c.green ? (c.blue - c.red) / range + 2
                                         : (c.red - c.green) / range + 4;
  return sixth < 0 ? 60 * (sixth + 6) : 60 * sixth;
}

ToolColor fromHSL(double h, double s, double l) {
  const auto channel = [&](double n) {
    const double k = std::fmod(n + h / 30, 12);
    return limited(l - s * std::min(l, 1 - l) * std::max(-1.0, std::min({k - 3, 9 - k, 1.0})));
  };
  return {channel(0), channel(8), channel(4)};
}

ToolColor fromHWB(double h, double white, double black) {
  if (white + black >= 1) return {white / (white + black), white / (white + black), white / (white + black)};
  const ToolColor pure = fromHSL(h, 1, 0.5);
  const auto mixed = [&](double c) { return c * (1 - white - black) + white; };
  return {mixed(pure.red), mixed(pure.green), mixed(pure.blue)};
}

// The matrices are those of Oklab's author (bottosson.github.io/posts/oklab, in the public domain).
ToolColor fromOklch(double l, double chroma, double h) {
  const double angle = h * std::numbers::pi / 180, a = chroma * std::cos(angle), b = chroma * std::sin(angle);
  const auto cubed = [](double x) { return x * x * x; };
  const double long_ = cubed(l + 0.3963377774 * a + 0.2158037573 * b);
  const double medium = cubed(l - 0.1055613458 * a - 0.0638541728 * b);
  const double short_ = cubed(l - 0.0894841775 * a - 1.2914855480 * b);
  return {limited(fromLinear(4.0767416621 * long_ - 3.3077115913 * medium + 0.2309699292 * short_)),
          limited(fromLinear(-1.2684380046 * long_ + 2.6097574011 * medium - 0.3413193965 * short_)),
          limited(fromLinear(-0.0041960863 * long_ - 0.7034186147 * medium + 1.7076147010 * short_))};
}

Three oklch(const ToolColor& c) {
  const double r = toLinear(c.red), g = toLinear(c.green), b = toLinear(c.blue);
  const double long_ = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
  const double medium = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
  const double short_ = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
  const double l = 0.2104542553 * long_ + 0.7936177850 * medium - 0.0040720468 * short_;
  const double a = 1.9779984951 * long_ - 2.4285922050 * medium + 0.4505937099 * short_;
  const double bee = 0.0259040371 * long_ + 0.7827717662 * medium - 0.8086757660 * short_;
  const double chroma = std::hypot(a, bee);
  double h = chroma < 0.00005 ? 0 : std::atan2(bee, a) * 180 / std::numbers::pi;
  if (h < 0) h += 360;
  return {l, chroma, h};
}

std::optional<ToolColor> parsedHex(std::string_view digits) {
  if (digits.find_first_not_of("0123456789abcdef") != std::string_view::npos) return std::nullopt;
  const bool isShort = digits.size() == 3 || digits.size() == 4;
  if (!isShort && digits.size() != 6 && digits.size() != 8) return std::nullopt;
  const std::size_t width = isShort ? 1 : 2;
  std::array<double, 4> channels{0, 0, 0, 1};
  for (std::size_t i = 0; i * width < digits.size(); ++i) {
    unsigned value = 0;
    std::from_chars(digits.data() + i * width, digits.data() + (i + 1) * width, value, 16);
    channels[i] = value / (isShort ? 15.0 : 255.0);
  }
  return ToolColor{channels[0], channels[1], channels[2], channels[3]};
}

struct Number {
  double value = 0;
  std::string_view unit;
};

std::optional<Number> parsedNumber(std::string_view text) {
  if (text == "none") return Number{};
  if (text.starts_with('+')) text.remove_prefix(1);
  Number number;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number.value);
  if (error != std::errc() || !std::isfinite(number.value)) return std::nullopt;
  number.unit = text.substr(static_cast<std::size_t>(end - text.data()));
  return number;
}

// A share from 0 to 1: percents, or a number of which `whole` is one.
std::optional<double> share(std::string_view text, double whole) {
  const auto number = parsedNumber(text);
  if (!number || (!number->unit.empty() && number->unit != "%")) return std::nullopt;
  return number->value / (number->unit.empty() ? whole : 100);
}

std::optional<double> degrees(std::string_view text) {
  const auto number = parsedNumber(text);
  if (!number) return std::nullopt;
  const double turn = number->unit.empty() || number->unit == "deg" ? 360
                      : number->unit == "turn"                      ? 1
                      : number->unit == "grad"                      ? 400
                      : number->unit == "rad"                       ? 2 * std::numbers::pi
                                                                    : 0;
  if (turn == 0) return std::nullopt;
  const double h = std::fmod(number->value / turn * 360, 360);
  return h < 0 ? h + 360 : h;
}

std::optional<ToolColor> ofFunction(std::string_view name, const std::vector<std::string_view>& parts) {
  if (name == "rgb" || name == "rgba") {
    const auto r = share(parts[0], 255), g = share(parts[1], 255), b = share(parts[2], 255);
    if (!r || !g || !b) return std::nullopt;
    return ToolColor{limited(*r), limited(*g), limited(*b)};
  }
  const bool isOklch = name == "oklch";
  const auto h = degrees(parts[isOklch ? 2 : 0]);
  if (isOklch) {
    const auto l = share(parts[0], 1), chroma = share(parts[1], 1);
    if (!l || !chroma || !h) return std::nullopt;
    // Percents of the chroma are of 0.4.
    return fromOklch(limited(*l), std::clamp(*chroma * (parts[1].ends_with('%') ? 0.4 : 1), 0.0, 1.0), *h);
  }
  const auto first = share(parts[1], 100), second = share(parts[2], 100);
  if (!h || !first || !second) return std::nullopt;
  if (name == "hsl" || name == "hsla") return fromHSL(*h, limited(*first), limited(*second));
  if (name == "hwb") return fromHWB(*h, limited(*first), limited(*second));
  return std::nullopt;
}

std::optional<ToolColor> parsed(std::string_view input) {
  if (input.size() > 128) return std::nullopt;
  const std::string text = asciiLower(input);
  const std::string_view all = text;
  if (all.starts_with('#')) return parsedHex(all.substr(1));
  const std::size_t open = all.find('(');
  // Words like "facade" have the letters of one by chance.
  if (open == std::string_view::npos)
    return all.find_first_of("0123456789") == std::string_view::npos ? std::nullopt : parsedHex(all);
  if (!all.ends_with(')')) return std::nullopt;
  std::vector<std::string_view> parts;
  std::string_view inside = all.substr(open + 1, all.size() - open - 2);
  constexpr std::string_view separators = ", /\t";
  while (true) {
    inside.remove_prefix(std::min(inside.size(), inside.find_first_not_of(separators)));
    if (inside.empty()) break;
    const std::size_t end = std::min(inside.size(), inside.find_first_of(separators));
    parts.push_back(inside.substr(0, end));
    inside.remove_prefix(end);
  }
  if (parts.size() != 3 && parts.size() != 4) return std::nullopt;
  auto color = ofFunction(trimmed(all.substr(0, open)), parts);
  const auto alpha = parts.size() == 4 ? share(parts[3], 1) : 1.0;
  if (!color || !alpha) return std::nullopt;
  color->alpha = limited(*alpha);
  return color;
}

// With at most so many digits, none of them an idle zero.
std::string number(double value, int digits) {
  const double scale = std::pow(10.0, digits);
  return fmt::format("{}", std::round(value * scale) / scale + 0.0);
}

// As it is read back: a channel of 8 bits.
long byteOf(double channel) { return std::lround(channel * 255); }

std::string notation(const ToolColor& c, std::string_view choice) {
  const std::string alpha = c.alpha == 1 ? "" : number(c.alpha, 3);
  const std::string commaAlpha = alpha.empty() ? "" : ", " + alpha, slashAlpha = alpha.empty() ? "" : " / " + alpha;
  const double most = std::max({c.red, c.green, c.blue}), least = std::min({c.red, c.green, c.blue});
  if (choice == "rgb")
    return fmt::format("rgb{}({}, {}, {}{})", alpha.empty() ? "" : "a", byteOf(c.red), byteOf(c.green), byteOf(c.blue),
                       commaAlpha);
  if (choice == "hsl") {
    const double light = (most + least) / 2;
    const double saturation = light == 0 || light == 1 ? 0 : (most - light) / std::min(light, 1 - light);
    return fmt::format("hsl{}({}, {}%, {}%{})", alpha.empty() ? "" : "a", number(hue(c), 1),
                       number(saturation * 100, 1), number(light * 100, 1), commaAlpha);
  }
  if (choice == "hwb")
    return fmt::format("hwb({} {}% {}%{})", number(hue(c), 1), number(least * 100, 1), number((1 - most) * 100, 1),
                       slashAlpha);
  if (choice == "oklch") {
    const auto [l, chroma, h] = oklch(c);
    return fmt::format("oklch({}% {} {}{})", number(l * 100, 2), number(chroma, 4), number(h, 2), slashAlpha);
  }
  const std::string hex = fmt::format("#{:02X}{:02X}{:02X}", byteOf(c.red), byteOf(c.green), byteOf(c.blue));
  return c.alpha == 1 ? hex : hex + fmt::format("{:02X}", byteOf(c.alpha));
}

}  // namespace

ToolOutcome colorNotation(const ToolCall& call) {
  const auto color = parsed(call.input);
  if (!color) return {{}, "Not a color in hex, rgb(), hsl(), hwb() or oklch()"};
  return {notation(*color, call.choice), {}};
}

ToolGlance colorGlance(const ToolCall& call, const ToolOutcome& outcome) {
  const auto color = parsed(call.input);
  if (!color) return {"–", "No color copied", {}};
  return {notation(*color, "hex"), call.choice == "hex" ? "" : outcome.output, color};
}

}  // namespace ambrel::tools
