#pragma once
// Files that the text tools read and write.

#include <QImage>
#include <QString>
#include <string>

#include "app/base/SavePNG.h"

namespace ambrel {

// The content of a file that was dropped. Empty, with the reason in `problem`, if it is not a plain file or larger than
// 64 MiB.
struct DroppedText {
  std::string text;
  QString problem;
};
DroppedText readDropped(const QString& path);

// As a PNG, eight pixels for each of the picture's.
QByteArray enlargedPNG(const QImage& picture);

}  // namespace ambrel
