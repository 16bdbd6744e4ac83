#pragma once
// Handing objects of ours to QML.

#include <QQmlEngine>
#include <QVariant>
#include <initializer_list>

namespace ambrel {

inline QVariant toVariant(auto& object) { return QVariant::fromValue(&object); }

// What belongs to us stays ours when QML has seen it.
inline void keep(std::initializer_list<QObject*> objects) {
  for (QObject* object : objects) QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
}

}  // namespace ambrel
