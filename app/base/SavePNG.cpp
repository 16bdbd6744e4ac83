#include "app/base/SavePNG.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryFile>
#include <cstring>
#include <fcntl.h>

#include "core/base/StoredFile.h"

namespace ambrel {

SavedFile savePNG(const QByteArray& bytes, const QString& folder, const QString& name) {
  if (!QDir().mkpath(folder))
    return {{}, QCoreApplication::translate("SavePNG", "The folder %1 cannot be made").arg(folder)};
  QTemporaryFile whole(QDir(folder).filePath(QStringLiteral(".%1.XXXXXX").arg(name)));
  if (!whole.open() || whole.write(bytes) != bytes.size() || !whole.flush()) return {{}, whole.errorString()};
  whole.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
  for (int turn = 1; turn < 10000; ++turn) {
    const QString file = turn == 1 ? name : QStringLiteral("%1 (%2)").arg(name).arg(turn);
    const QString path = QDir(folder).filePath(file + QStringLiteral(".png"));
    // Fails where something is, whoever has put it there in the meantime.
    if (renameToFreeName(AT_FDCWD, QFile::encodeName(whole.fileName()).toStdString(), AT_FDCWD,
                         QFile::encodeName(path).toStdString())) {
      whole.setAutoRemove(false);
      return {path, {}};
    }
    if (errno != EEXIST) break;
  }
  return {{}, QString::fromLocal8Bit(std::strerror(errno))};
}

}  // namespace ambrel
