#pragma once
// What can be told from a picture of a scene: blank components, cut-off text, too little contrast.

#include <QImage>
#include <QStringList>
#include <functional>

class QQuickItem;
class QQuickWindow;

namespace ambrel {

class Scene;

// Every visible and fully opaque item below `item`, parents first.
void visitShown(QQuickItem* item, const std::function<void(QQuickItem*)>& look);
// The part of a scene's picture that shows `item`.
QImage pictureOf(const QImage& scene, const QQuickItem* item);
// In words, empty when all is well. Items with an object name must not be blank; texts must fit or end in an
// ellipsis; the texts of what is not switched off must reach a contrast of 4.5.
QStringList faultsOf(Scene& scene);
QStringList faultsOf(QQuickWindow& window, QQuickItem* root);

}  // namespace ambrel
