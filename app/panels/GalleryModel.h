#pragma once
// The gallery of the customise panel: the whole catalogue in its groups, or what a query leaves of it.

#include <QObject>
#include <QQmlListProperty>
#include <QtQml/qqmlregistration.h>
#include <memory>
#include <vector>

#include "app/model/AppModel.h"
#include "app/panels/GalleryGroupModel.h"

namespace ambrel {

class GalleryModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
  // All groups in the catalogue's order, also those that a query empties.
  Q_PROPERTY(QQmlListProperty<ambrel::GalleryGroupModel> groups READ groupList CONSTANT)
  Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)

 public:
  // The model outlives the gallery.
  explicit GalleryModel(AppModel& model, QObject* parent = nullptr);

  QString query() const { return query_; }
  void setQuery(const QString& query);
  const QList<GalleryGroupModel*>& groups() const { return groups_; }
  QQmlListProperty<GalleryGroupModel> groupList() { return {this, &groups_}; }
  bool isEmpty() const;

  // Puts the widget on the bar, at its end, or takes it off. One that the licence denies shows what it would give.
  Q_INVOKABLE void toggle(const QString& widget);

 Q_SIGNALS:
  void queryChanged();
  void changed();

 private:
  void update();

  AppModel& model_;
  QString query_;
  QList<GalleryGroupModel*> groups_;
};

}  // namespace ambrel
