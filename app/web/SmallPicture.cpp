#include "app/web/SmallPicture.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <array>

namespace ambrel {

QImage smallPicture(const QByteArray& bytes, int side, int mostPixels) {
  QBuffer source;
  source.setData(bytes);
  QImageReader reader(&source);
  reader.setDecideFormatFromContent(true);
  constexpr std::array formats{"png", "ico", "jpeg", "gif"};
  if (std::ranges::none_of(formats, [&](const char* format) { return reader.format() == format; })) return {};
  QImage best;
  // An icon has the picture in several sizes.
  for (int i = 0; i < std::max(1, reader.imageCount()) && i < 16; ++i) {
    if (i > 0 && !reader.jumpToImage(i)) break;
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > mostPixels || size.height() > mostPixels) continue;
    if (QImage image = reader.read(); image.width() > best.width()) best = std::move(image);
  }
  if (best.width() > side || best.height() > side)
    best = best.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  return best;
}

}  // namespace ambrel
