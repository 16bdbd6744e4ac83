#pragma once
// Dragging something out of a window of ours, with the picture of an item under the pointer.

#include <QColor>
#include <QImage>
#include <QQuickItem>
#include <functional>
#include <memory>

class QMimeData;

namespace ambrel {

// `data` is asked for once the picture is there; null ends it. `ground` shows below the picture where it is
// transparent. `done` is told whether something took it.
void dragItem(QQuickItem* item, const QColor& ground, std::function<std::unique_ptr<QMimeData>()> data,
              std::function<void(bool isTaken)> done);

}  // namespace ambrel
