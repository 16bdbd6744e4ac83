#include "app/base/TileSources.h"

#include <QDirIterator>

#include "core/widgets.h"

namespace ambrel {
namespace {

std::map<QString, TileSource> findTileSources() {
  std::map<QString, TileSource> sources;
  QDirIterator files(QStringLiteral(":/qt/qml/Ambrel"), {QStringLiteral("*Tile.qml")}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    files.next();
    QString widget = files.fileInfo().completeBaseName().chopped(4);
    if (widget.isEmpty()) continue;
    widget[0] = widget[0].toLower();
    // What tiles share has such a name, too.
    if (!fromName<DockWidget>(widget.toStdString())) continue;
    sources[widget] = {QUrl(QStringLiteral("qrc") + files.filePath()), files.fileInfo().dir().dirName()};
  }
  return sources;
}

}  // namespace

const std::map<QString, TileSource>& tileSources() {
  static const std::map<QString, TileSource> sources = findTileSources();
  return sources;
}

}  // namespace ambrel
