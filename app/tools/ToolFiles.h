#pragma once
// Files that the text tools read and write.

#include <QImage>
#include <QString>
#include <string>

#include "app/base/SavePNG.h"

namespace ambrel {

// What is in a file that was dropped; empty with a `problem` in words for what is no file, and for more than 64 MiB.
struct DroppedText {
  std::string text;
  QString problem;
};
DroppedText readDropped(const QString& path);

// As a PNG, eight pixels for each of the picture's.
QByteArray enlargedPNG(const QImage& picture);

}  // namespace ambrel
