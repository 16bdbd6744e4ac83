#include "app/tools/ToolFiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>

#include "core/base/Files.h"

namespace ambrel {
namespace {

QString words(const char* source) { return QCoreApplication::translate("ToolFiles", source); }

}  // namespace

DroppedText readDropped(const QString& path) {
  constexpr std::uint64_t largest = 64u << 20;
  const std::string file = QFile::encodeName(path).toStdString();
  const auto status = fileStatus(file);
  if (!status || !status->isRegular) return {{}, words("This file cannot be read")};
  if (status->size > largest) return {{}, words("The file is larger than 64 MiB")};
  auto bytes = readFile(file, largest);
  if (!bytes) return {{}, words("The file cannot be read")};
  return {std::move(*bytes), {}};
}

QByteArray enlargedPNG(const QImage& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.scaled(picture.size() * 8).save(&buffer, "PNG");
  return bytes;
}

}  // namespace ambrel
