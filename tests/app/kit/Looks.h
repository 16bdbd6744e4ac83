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
// The first of them that fits; null when none does.
QQuickItem* firstShown(QQuickItem* root, const std::function<bool(QQuickItem*)>& fits);
// That of this label.
QQuickItem* labelled(QQuickItem* root, const QString& label);
// In the middle of an item; false when there is none, or it is switched off.
bool click(QQuickItem* item, Qt::MouseButton button = Qt::LeftButton);
// The part of a scene's picture that shows `item`.
QImage pictureOf(const QImage& scene, const QQuickItem* item);
// In words, empty when all is well. Items with an object name must not be blank; texts must fit or end in an
// ellipsis; the texts of what is not switched off must reach a contrast of 4.5.
QStringList faultsOf(Scene& scene);
QStringList faultsOf(QQuickWindow& window, QQuickItem* root);
// The same for the dark and the light scheme, with the warnings that came. With AMBREL_SHOTS=FOLDER the pictures are
// kept there under `name`.
QStringList faultsInBothSchemes(Scene& scene, const char* name);
// Texts of a tile that overlap each other or leave it, and pictures that do so without surrounding them.
QStringList collisionsOf(QQuickItem* tile);

// The texts of what is shown below an item, or at it.
QStringList textsOf(QQuickItem* item);
// What assistive programs read out for an item.
QString spokenName(QQuickItem* item);
// Of every control that Tab reaches, each once; "nameless" and its class for one without a name.
QStringList namesByTab(Scene& scene);

}  // namespace ambrel
