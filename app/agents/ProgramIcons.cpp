#include "app/agents/ProgramIcons.h"

#include <QFileInfo>
#include <QIcon>
#include <QUrl>

namespace ambrel {
namespace {

constexpr int usualSide = 64;

QIcon iconOf(const QString& name) {
  if (name.startsWith(u'/')) return QFileInfo(name).isFile() ? QIcon(name) : QIcon();
  // Some entries name a file.
  QString bare = name;
  for (const char* suffix : {".png", ".svg", ".xpm"})
    if (bare.endsWith(QLatin1String(suffix))) bare.chop(4);
  // Asked for "a-b", a theme without it gives "a", which may be another program's.
  return QIcon::hasThemeIcon(bare) ? QIcon::fromTheme(bare) : QIcon();
}

}  // namespace

QString ProgramIcons::source(const QString& icon) {
  if (icon.isEmpty() || iconOf(icon).isNull()) return {};
  return QStringLiteral("image://%1/%2").arg(QLatin1String(id), QString::fromLatin1(QUrl::toPercentEncoding(icon)));
}

QImage ProgramIcons::requestImage(const QString& path, QSize* size, const QSize& requestedSize) {
  const QSize wanted = requestedSize.isValid() ? requestedSize : QSize(usualSide, usualSide);
  const QImage image = iconOf(QUrl::fromPercentEncoding(path.toUtf8())).pixmap(wanted, 1.0).toImage();
  if (size) *size = image.size();
  return image;
}

}  // namespace ambrel
