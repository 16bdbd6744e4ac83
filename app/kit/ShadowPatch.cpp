#include "app/kit/ShadowPatch.h"

#include <QPainter>
#include <cmath>
#include <vector>

namespace ambrel {
namespace {

constexpr ShadowLayer floatingLayers[] = {{8, 24, 0.34, 0.18}};
constexpr ShadowLayer raisedLayers[] = {{12, 32, 0.46, 0.20}, {2, 6, 0.30, 0.10}};
constexpr ShadowLayer pinLayers[] = {{2, 6, 0.35, 0.35}};
constexpr ShadowKind kinds[] = {
    {"floating", 36, floatingLayers},
    {"raised", 48, raisedLayers},
    {"pin", 10, pinLayers},
};
constexpr int largestRadius = 64;

// A blurred mask of one dimension after the other; `values` is a square of `side`.
void blur(std::vector<float>& values, int side, double sigma) {
  const int reach = static_cast<int>(std::ceil(sigma * 2.5));
  std::vector<float> kernel;
  float sum = 0;
  for (int i = -reach; i <= reach; ++i) {
    kernel.push_back(static_cast<float>(std::exp(-i * i / (2 * sigma * sigma))));
    sum += kernel.back();
  }
  const auto pass = [&](int along, int across) {
    std::vector<float> row(static_cast<std::size_t>(side));
    for (int line = 0; line < side; ++line) {
      for (int at = 0; at < side; ++at) {
        float total = 0;
        for (int i = -reach; i <= reach; ++i) {
          const int from = at + i;
          if (from < 0 || from >= side) continue;
          total += kernel[static_cast<std::size_t>(i + reach)] *
                   values[static_cast<std::size_t>(from * along + line * across)];
        }
        row[static_cast<std::size_t>(at)] = total / sum;
      }
      for (int at = 0; at < side; ++at)
        values[static_cast<std::size_t>(at * along + line * across)] = row[static_cast<std::size_t>(at)];
    }
  };
  pass(1, side);
  pass(side, 1);
}

QImage boxMask(int side, const QRectF& box, int radius) {
  QImage mask(side, side, QImage::Format_Alpha8);
  mask.fill(0);
  QPainter painter(&mask);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawRoundedRect(box, radius, radius);
  return mask;
}

}  // namespace

std::optional<ShadowKind> shadowKind(const QString& name) {
  for (const ShadowKind& kind : kinds)
    if (name == QLatin1String(kind.name)) return kind;
  return std::nullopt;
}

QImage shadowPatch(const ShadowKind& kind, int radius, bool dark) {
  // The blur is computed around a box whose straight sides are longer than the blur is wide, so that the middle of
  // each side is free of its corners; then the long middle is cut down to one pixel.
  constexpr int straight = 97;
  const int corner = kind.margin + radius;
  const int side = 2 * corner + straight;
  const QRectF box(kind.margin, kind.margin, side - 2 * kind.margin, side - 2 * kind.margin);
  std::vector<float> alpha(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  for (const ShadowLayer& layer : kind.layers) {
    const QImage mask = boxMask(side, box.translated(0, layer.offset), radius);
    std::vector<float> values(alpha.size());
    for (int y = 0; y < side; ++y) {
      const uchar* line = mask.constScanLine(y);
      for (int x = 0; x < side; ++x) values[static_cast<std::size_t>(y * side + x)] = line[x] / 255.0F;
    }
    blur(values, side, layer.blur / 2.0);
    const auto share = static_cast<float>(dark ? layer.darkAlpha : layer.lightAlpha);
    // Layers lie over one another.
    for (std::size_t i = 0; i < alpha.size(); ++i) alpha[i] += (1 - alpha[i]) * values[i] * share;
  }

  // One pixel of shadow stays under the box's edge, whatever the scale of the screen makes of the seam.
  const QImage hole = boxMask(side, box.adjusted(1, 1, -1, -1), radius - 1);
  const int patchSide = 2 * corner + 1;
  QImage patch(patchSide, patchSide, QImage::Format_ARGB32_Premultiplied);
  const QRgb color = dark ? 0x000000 : 0x101828;
  for (int y = 0; y < patchSide; ++y) {
    const int fromY = y < corner ? y : y == corner ? side / 2 : side - (patchSide - y);
    const uchar* cut = hole.constScanLine(fromY);
    auto* line = reinterpret_cast<QRgb*>(patch.scanLine(y));
    for (int x = 0; x < patchSide; ++x) {
      const int fromX = x < corner ? x : x == corner ? side / 2 : side - (patchSide - x);
      const float value = alpha[static_cast<std::size_t>(fromY * side + fromX)] * static_cast<float>(255 - cut[fromX]);
      line[x] = qPremultiply((color & 0xFFFFFF) | (static_cast<QRgb>(std::lround(value)) << 24));
    }
  }
  return patch;
}

QImage ShadowProvider::requestImage(const QString& path, QSize* size, const QSize&) {
  const QStringList parts = path.split(u'/');
  bool isNumber = false;
  const int radius = parts.size() == 3 ? parts[1].toInt(&isNumber) : 0;
  const auto kind = shadowKind(parts[0]);
  if (!kind || !isNumber || radius < 0 || radius > largestRadius) return {};
  QImage patch = shadowPatch(*kind, radius, parts[2] == QLatin1String("dark"));
  if (size) *size = patch.size();
  return patch;
}

}  // namespace ambrel
