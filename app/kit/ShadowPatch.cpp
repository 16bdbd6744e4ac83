#include "app/kit/ShadowPatch.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

namespace ambrel {
namespace {

constexpr ShadowLayer floatingLayers[] = {{8, 24, 0.34, 0.18}};
constexpr ShadowLayer raisedLayers[] = {{12, 32, 0.46, 0.20}, {2, 6, 0.30, 0.10}};
constexpr ShadowLayer pinLayers[] = {{2, 6, 0.35, 0.35}};
constexpr ShadowKind kinds[] = {
    {"floating", 38, 30, floatingLayers},
    {"raised", 48, 40, raisedLayers},
    {"pin", 10, 8, pinLayers},
};
constexpr int largestRadius = 64;
constexpr int largestSide = 512;

struct Mask {
  QSize size;
  std::vector<float> values;

  float& at(int x, int y) {
    return values[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width()) + static_cast<std::size_t>(x)];
  }
};

Mask boxMask(QSize size, const QRectF& box, int radius) {
  QImage image(size, QImage::Format_Alpha8);
  image.fill(0);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawRoundedRect(box, radius, radius);
  painter.end();
  Mask mask{size, {}};
  for (int y = 0; y < size.height(); ++y) {
    const uchar* line = image.constScanLine(y);
    for (int x = 0; x < size.width(); ++x) mask.values.push_back(line[x] / 255.0F);
  }
  return mask;
}

std::vector<float> gaussian(double sigma) {
  const int reach = static_cast<int>(std::ceil(sigma * 2.5));
  std::vector<float> kernel;
  float sum = 0;
  for (int i = -reach; i <= reach; ++i) {
    kernel.push_back(static_cast<float>(std::exp(-i * i / (2 * sigma * sigma))));
    sum += kernel.back();
  }
  for (float& weight : kernel) weight /= sum;
  return kernel;
}

// Across, then down. Beyond the edges there is nothing.
void blur(Mask& mask, const std::vector<float>& kernel) {
  const int reach = static_cast<int>(kernel.size() / 2);
  const auto pass = [&](int lines, int length, const auto& cell) {
    std::vector<float> row(static_cast<std::size_t>(length));
    for (int line = 0; line < lines; ++line) {
      for (int at = 0; at < length; ++at) {
        float total = 0;
        const int last = std::min(reach, length - 1 - at);
        for (int i = std::max(-reach, -at); i <= last; ++i)
          total += kernel[static_cast<std::size_t>(i + reach)] * cell(line, at + i);
        row[static_cast<std::size_t>(at)] = total;
      }
      for (int at = 0; at < length; ++at) cell(line, at) = row[static_cast<std::size_t>(at)];
    }
  };
  pass(mask.size.height(), mask.size.width(), [&](int line, int at) -> float& { return mask.at(at, line); });
  pass(mask.size.width(), mask.size.height(), [&](int line, int at) -> float& { return mask.at(line, at); });
}

}  // namespace

std::optional<ShadowKind> shadowKind(const QString& name) {
  for (const ShadowKind& kind : kinds)
    if (name == QLatin1String(kind.name)) return kind;
  return std::nullopt;
}

QImage shadowPatch(const ShadowKind& kind, QSize boxSize, int radius, bool dark) {
  const int shortest = 2 * std::max(kind.inset, radius) + 1;
  const QSize size((boxSize.width() > 0 ? boxSize.width() : shortest) + 2 * kind.margin,
                   (boxSize.height() > 0 ? boxSize.height() : shortest) + 2 * kind.margin);
  const QRectF box = QRectF({}, size).adjusted(kind.margin, kind.margin, -kind.margin, -kind.margin);
  Mask shadow{size,
              std::vector<float>(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()))};
  for (const ShadowLayer& layer : kind.layers) {
    Mask blurred = boxMask(size, box.translated(0, layer.offset), radius);
    blur(blurred, gaussian(layer.blur / 2.0));
    const auto share = static_cast<float>(dark ? layer.darkAlpha : layer.lightAlpha);
    // Layers overlap.
    for (std::size_t i = 0; i < shadow.values.size(); ++i)
      shadow.values[i] += (1 - shadow.values[i]) * blurred.values[i] * share;
  }

  // One pixel of shadow stays under the box's edge, so that no scale of the screen shows a seam.
  Mask hole = boxMask(size, box.adjusted(1, 1, -1, -1), std::max(0, radius - 1));
  QImage patch(size, QImage::Format_ARGB32_Premultiplied);
  const QRgb color = dark ? 0x000000 : 0x101828;
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(patch.scanLine(y));
    for (int x = 0; x < size.width(); ++x) {
      const float alpha = shadow.at(x, y) * (1 - hole.at(x, y)) * 255;
      line[x] = qPremultiply(color | (static_cast<QRgb>(std::lround(alpha)) << 24));
    }
  }
  return patch;
}

QImage ShadowProvider::requestImage(const QString& path, QSize* size, const QSize&) {
  const QStringList parts = path.split(u'/');
  const auto kind = shadowKind(parts[0]);
  if (!kind || parts.size() != 5) return {};
  const auto number = [&](int part, int most) {
    bool isNumber = false;
    const int value = parts[part].toInt(&isNumber);
    return isNumber && value >= 0 && value <= most ? value : -1;
  };
  const int radius = number(1, largestRadius);
  const QSize box(number(2, largestSide), number(3, largestSide));
  if (radius < 0 || box.width() < 0 || box.height() < 0) return {};
  QImage patch = shadowPatch(*kind, box, radius, parts[4] == QLatin1String("dark"));
  if (size) *size = patch.size();
  return patch;
}

}  // namespace ambrel
