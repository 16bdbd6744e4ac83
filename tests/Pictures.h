#pragma once
// Pictures of one color, and the bytes of their files.

#include <QBuffer>
#include <QImage>

namespace ambrel {

inline QImage plainPicture(int width, int height, QColor color = Qt::white) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(color);
  return image;
}

inline QByteArray encoded(const QImage& image, const char* format = "PNG") {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes;
}

}  // namespace ambrel
