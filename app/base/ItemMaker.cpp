#include "app/base/ItemMaker.h"

#include <QMetaProperty>
#include <QQmlEngine>
#include <QQuickItem>

#include "app/base/Heap.h"
#include "app/base/Log.h"

namespace ambrel {

QVariantMap offeredProperties(const QMetaObject& wanted, std::span<const QObject* const> models) {
  QVariantMap offered;
  for (const QObject* model : models) {
    if (!model) continue;
    const QMetaObject& has = *model->metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < has.propertyCount(); ++i) {
      const char* name = has.property(i).name();
      const int place = wanted.indexOfProperty(name);
      if (place < 0 || offered.contains(QLatin1String(name))) continue;
      // A name may mean something else there, such as "focus", which every item has.
      const QMetaType type = wanted.property(place).metaType();
      if (!type.flags().testFlag(QMetaType::PointerToQObject)) continue;
      const QVariant value = has.property(i).read(model);
      const auto* object = value.value<QObject*>();
      if (object && (!type.metaObject() || object->metaObject()->inherits(type.metaObject())))
        offered.insert(QLatin1String(name), value);
    }
  }
  return offered;
}

QQuickItem* makeItem(QQmlEngine& engine, const QUrl& source, std::span<const QObject* const> models,
                     const QVariantMap& others) {
  QQmlComponent component(&engine, source, QQmlComponent::PreferSynchronous);
  // Qt 6.4 crashes where it begins with a component that has errors.
  QObject* object = component.isReady() ? component.beginCreate(engine.rootContext()) : nullptr;
  auto* item = qobject_cast<QQuickItem*>(object);
  if (!item) {
    logLine("cannot show " + source.toString().toStdString() + ": " + component.errorString().toStdString());
    if (object) component.completeCreate();
    delete object;
    return nullptr;
  }
  QVariantMap properties = offeredProperties(*item->metaObject(), models);
  for (auto it = others.begin(); it != others.end(); ++it)
    if (item->metaObject()->indexOfProperty(it.key().toUtf8().constData()) >= 0)
      properties.insert(it.key(), it.value());
  component.setInitialProperties(item, properties);
  component.completeCreate();
  if (component.isError()) {
    logLine("cannot show " + source.toString().toStdString() + ": " + component.errorString().toStdString());
    delete item;
    return nullptr;
  }
  QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
  return item;
}

void forgetUnused(QQmlEngine& engine) {
  // Objects of the script engine keep the functions of a component alive, and those its type.
  engine.collectGarbage();
  engine.trimComponentCache();
  returnFreedMemory();
  returnUnusedCode();
}

}  // namespace ambrel
