#include "app/window/ItemDrag.h"

#include <QDrag>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QQuickItemGrabResult>
#include <QQuickWindow>

namespace ambrel {

void dragItem(QQuickItem* item, const QColor& ground, std::function<std::unique_ptr<QMimeData>()> data,
              std::function<void(bool isTaken)> done) {
  const auto grab = item ? item->grabToImage() : nullptr;
  if (!grab) return;
  const auto run = [grab, ground, item = QPointer(item), data = std::move(data), done = std::move(done)] {
    QQuickWindow* window = item ? item->window() : nullptr;
    auto content = window && window->isVisible() ? data() : nullptr;
    if (!content) return;
    auto* drag = new QDrag(window);
    drag->setMimeData(content.release());
    // Without a ground, transparent pixels would be white where nothing composites.
    QPixmap picture(grab->image().size());
    picture.fill(ground);
    QPainter(&picture).drawImage(0, 0, grab->image());
    picture.setDevicePixelRatio(window->devicePixelRatio());
    drag->setPixmap(picture);
    drag->setHotSpot(QPoint(qRound(item->width() / 2), qRound(item->height() / 3)));
    done(drag->exec(Qt::CopyAction) != Qt::IgnoreAction);
  };
  // The drag runs a nested event loop, which must not start inside the item's handler.
  QObject::connect(grab.get(), &QQuickItemGrabResult::ready, item, run,
                   static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

}  // namespace ambrel
