#pragma once
// Makes what a QML file describes, and hands it the models that it asks for.

#include <QQmlComponent>
#include <QVariantMap>
#include <span>

class QQmlEngine;
class QQuickItem;

namespace ambrel {

// What the models offer to the properties of an object of this type: the value of each property that both have a name
// for. Of two models the first counts.
QVariantMap offeredProperties(const QMetaObject& wanted, std::span<const QObject* const> models);

// Null when the file has a fault or a required property is not there; the reason goes to the log. The caller owns it.
QQuickItem* makeItem(QQmlEngine& engine, const QUrl& source, std::span<const QObject* const> models,
                     const QVariantMap& others);

// Gives back what QML types and objects that nobody uses any more still hold. Takes some milliseconds: for when a panel
// was closed, not for when one opens.
void forgetUnused(QQmlEngine& engine);

}  // namespace ambrel
