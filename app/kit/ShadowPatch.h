#pragma once
// The soft shadows under panels: small patches that are computed once and stretched, never blurred again.

#include <QImage>
#include <QQuickImageProvider>
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

// What casts a shadow, and with which layers; `margin` is how far it reaches beyond the box.
struct ShadowKind {
  const char* name;
  int margin;
  std::span<const ShadowLayer> layers;
};

// "floating" (bar, toast, menu, tip), "raised" (panel, bubble, shelf, window), "pin"; absent for another name.
std::optional<ShadowKind> shadowKind(const QString& name);

// A square with the shadow of a box that has corners of `radius`: `margin` + `radius` pixels at each corner are to
// be kept as they are, the one pixel between them to be stretched. Empty where the box itself lies.
QImage shadowPatch(const ShadowKind& kind, int radius, bool dark);

// Serves patches as "image://ambrel.shadow/KIND/RADIUS/dark" (or "light").
class ShadowProvider : public QQuickImageProvider {
 public:
  static constexpr const char* id = "ambrel.shadow";

  ShadowProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}
  QImage requestImage(const QString& path, QSize* size, const QSize& requestedSize) override;
};

}  // namespace ambrel
