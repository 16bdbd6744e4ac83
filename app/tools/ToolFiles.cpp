#include "app/tools/ToolFiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryFile>
#include <cstdio>
#include <cstring>
#include <fcntl.h>

#include "core/base/Files.h"

namespace ambrel {
namespace {

QString text(const char* source) { return QCoreApplication::translate("ToolFiles", source); }

}  // namespace

DroppedText readDropped(const QString& path) {
  constexpr std::uint64_t largest = 64u << 20;
  const std::string file = QFile::encodeName(path).toStdString();
  const auto status = fileStatus(file);
  if (!status || !status->isRegular) return {{}, text("It is no file that can be read")};
  if (status->size > largest) return {{}, text("The file is larger than 64 MiB")};
  auto bytes = readFile(file, largest);
  if (!bytes) return {{}, text("The file cannot be read")};
  return {std::move(*bytes), {}};
}

QByteArray enlargedPNG(const QImage& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.scaled(picture.size() * 8).save(&buffer, "PNG");
  return bytes;
}

SavedFile savePNG(const QByteArray& bytes, const QString& folder, const QString& name) {
  if (!QDir().mkpath(folder)) return {{}, text("The folder %1 cannot be made").arg(folder)};
  QTemporaryFile whole(QDir(folder).filePath(QStringLiteral(".%1.XXXXXX").arg(name)));
  if (!whole.open() || whole.write(bytes) != bytes.size() || !whole.flush()) return {{}, whole.errorString()};
  whole.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
  for (int turn = 1; turn < 10000; ++turn) {
    const QString file = turn == 1 ? name : QStringLiteral("%1 (%2)").arg(name).arg(turn);
    const QString path = QDir(folder).filePath(file + QStringLiteral(".png"));
    // Fails where something is, whoever has put it there in the meantime.
    if (renameat2(AT_FDCWD, QFile::encodeName(whole.fileName()), AT_FDCWD, QFile::encodeName(path), RENAME_NOREPLACE) ==
        0) {
      whole.setAutoRemove(false);
      return {path, {}};
    }
    if (errno != EEXIST) break;
  }
  return {{}, QString::fromLocal8Bit(std::strerror(errno))};
}

}  // namespace ambrel
