#pragma once
// Pictures that the user saves.

#include <QByteArray>
#include <QString>

namespace ambrel {

// Writes "NAME.png", or "NAME (2).png" and so on where that is taken, whole or not at all. Gives the file's path;
// empty with a `problem`.
struct SavedFile {
  QString path, problem;
};
SavedFile savePNG(const QByteArray& bytes, const QString& folder, const QString& name);

}  // namespace ambrel
