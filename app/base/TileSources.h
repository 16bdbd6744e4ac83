#pragma once
// Which file draws which widget. A tile's file is named after its widget's id and is in the folder of its area:
// Ambrel/Focus/PomodoroTile.qml draws "pomodoro" with the models of the area "Focus".

#include <QString>
#include <QUrl>
#include <map>

namespace ambrel {

struct TileSource {
  QUrl url;
  QString area;
};

// Those of every module that is linked to the program, by the widget's id.
const std::map<QString, TileSource>& tileSources();

}  // namespace ambrel
