#pragma once
// A window that shows a piece of QML, for tests of items.

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <memory>

#include "app/kit/Theme.h"
#include "tests/app/kit/QMLWarnings.h"

namespace ambrel {

class Scene {
 public:
  Scene() { engine_.addImportPath(QStringLiteral("qrc:/qt/qml")); }
  ~Scene() { close(); }
  void close() { root_.reset(); }

  // QML text, without its imports.
  bool load(const QString& qml) {
    QQmlComponent component(&engine_);
    component.setData(("import QtQuick\nimport Ambrel.Kit\n" + qml).toUtf8(), QUrl("test.qml"));
    return show(component);
  }
  bool loadFile(const QString& url, const QVariantMap& properties = {}) {
    QQmlComponent component(&engine_, QUrl(url));
    return show(component, properties);
  }

  // An item that is made already.
  bool show(std::unique_ptr<QQuickItem> item) {
    root_ = std::move(item);
    window_.setColor(themeOf(engine_).palette().bar);
    return showRoot();
  }

  QQuickItem* root() { return root_.get(); }
  QQuickWindow& window() { return window_; }
  QQmlEngine& engine() { return engine_; }
  Theme& theme() { return themeOf(engine_); }
  QMLWarnings& warnings() { return warnings_; }
  // The item of that name anywhere below the root, including items that a view made.
  QQuickItem* find(const QString& name) { return find(root(), name); }
  QImage grab() { return window_.grabWindow(); }
  QPoint centerOf(QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
  }

 private:
  static QQuickItem* find(QQuickItem* item, const QString& name) {
    if (item->objectName() == name) return item;
    for (QQuickItem* child : item->childItems())
      if (QQuickItem* found = find(child, name)) return found;
    return nullptr;
  }

  bool show(QQmlComponent& component, const QVariantMap& properties = {}) {
    // Making what is in error ends the program.
    if (component.isReady()) root_.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
    if (!root_) {
      qWarning() << component.errorString();
      return false;
    }
    return showRoot();
  }

  bool showRoot() {
    root_->setParentItem(window_.contentItem());
    window_.resize(root_->size().toSize().expandedTo({200, 100}));
    window_.show();
    if (!QTest::qWaitForWindowExposed(&window_)) return false;
    window_.requestActivate();
    return QTest::qWaitForWindowActive(&window_);
  }

  QMLWarnings warnings_;
  QQmlEngine engine_;
  QQuickWindow window_;
  std::unique_ptr<QQuickItem> root_;
};

}  // namespace ambrel
