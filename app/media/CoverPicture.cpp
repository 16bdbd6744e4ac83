#include "app/media/CoverPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace ambrel {

void CoverPicture::paint(QPainter* painter) {
  if (picture_.isNull()) return;
  const int side = std::min(picture_.width(), picture_.height());
  const QRect middle((picture_.width() - side) / 2, (picture_.height() - side) / 2, side, side);
  QPainterPath shape;
  shape.addRoundedRect(boundingRect(), radius_, radius_);
  painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter->setClipPath(shape);
  painter->drawImage(boundingRect(), picture_, middle);
}

}  // namespace ambrel
