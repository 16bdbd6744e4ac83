#pragma once
// Files that the text tools read and write.

#include <QImage>
#include <QString>
#include <string>

namespace ambrel {

// What is in a file that was dropped; empty with a `problem` in words for what is no file, and for more than 64 MiB.
struct DroppedText {
  std::string text;
  QString problem;
};
DroppedText readDropped(const QString& path);

// As a PNG, eight pixels for each of the picture's.
QByteArray enlargedPNG(const QImage& picture);

// Writes "NAME.png", or "NAME (2).png" and so on where that is taken, whole or not at all. Gives the file's path;
// empty with a `problem`.
struct SavedFile {
  QString path, problem;
};
SavedFile savePNG(const QByteArray& bytes, const QString& folder, const QString& name);

}  // namespace ambrel
