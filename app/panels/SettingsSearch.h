#pragma once
// The search of the settings: which rows of a page are shown.

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

// Rows and their cards have a property `isLeftOut`, which hides them. A row is found by its title, its detail and its
// `searchWords`; each word of the query must be in one of them. Case and accents do not count.
class SettingsSearch : public QObject {
  Q_OBJECT
  QML_ELEMENT

 public:
  using QObject::QObject;

  // Says whether anything of the page is left. An empty query leaves all.
  Q_INVOKABLE bool narrow(QQuickItem* page, const QString& query) const;
};

}  // namespace ambrel
