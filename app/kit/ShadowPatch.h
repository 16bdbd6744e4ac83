#pragma once
// The soft shadows under panels: small patches that are computed once and stretched, never blurred again.

#include <QImage>
#include <QQuickImageProvider>
#include <QSize>
#include <optional>
#include <span>

namespace ambrel {

// One layer: black, or nearly so, moved down by `offset` and blurred over `blur` logical pixels.
struct ShadowLayer {
  int offset;
  int blur;
  double darkAlpha;
  double lightAlpha;
};

// What casts a shadow, and with which layers. It reaches `margin` beyond the box, and changes along the box's sides
// up to `inset` from the box's corners.
struct ShadowKind {
  const char* name;
  int margin;
  int inset;
  std::span<const ShadowLayer> layers;
};

// "floating" (bar, toast, menu, tip), "raised" (panel, bubble, shelf, window), "pin"; absent for another name.
std::optional<ShadowKind> shadowKind(const QString& name);

// The shadow around a box with corners of `radius`, `margin` pixels larger than the box on each side and empty where
// the box itself is. A side of `box` that is 0 may be of any length from 2 * `inset` + 1 on: the picture then has
// one pixel in its middle that is to be stretched.
QImage shadowPatch(const ShadowKind& kind, QSize box, int radius, bool dark);

// Serves patches as "image://ambrel.shadow/KIND/RADIUS/WIDTH/HEIGHT/dark" (or "light").
class ShadowProvider : public QQuickImageProvider {
 public:
  static constexpr const char* id = "ambrel.shadow";

  ShadowProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}
  QImage requestImage(const QString& path, QSize* size, const QSize& requestedSize) override;
};

}  // namespace ambrel
