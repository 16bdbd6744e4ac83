#pragma once
// The gallery of the customise panel: the whole catalogue in its groups, or what a query leaves of it.

#include <QObject>
#include <QQmlListProperty>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/model/AppModel.h"

namespace ambrel {

struct GalleryRow {
  Q_GADGET
 public:
  FACE_FIELDS(QString, widget);  // its id
  FACE_FIELDS(QString, title, description, symbol);
  FACE_FIELDS(int, span);  // the default size as TileFrame counts it, 0 to 3
  FACE_FIELDS(bool, isOnBar);
  FACE_FIELD(bool, isAllowed, true);
  friend bool operator==(const GalleryRow&, const GalleryRow&) = default;
};

// Its widgets that match the query; rows are GalleryRow.
class GalleryGroup : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the gallery")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT)

 public:
  GalleryGroup(WidgetGroup group, QObject* parent);

  WidgetGroup group() const { return group_; }
  QString title() const;
  auto* rows() { return &rows_; }

 private:
  WidgetGroup group_;
  GadgetListModel<GalleryRow, &GalleryRow::widget> rows_;
};

class GalleryModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
  // All groups in the catalogue's order, also those that a query empties.
  Q_PROPERTY(QQmlListProperty<ambrel::GalleryGroup> groups READ groupList CONSTANT)
  Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)

 public:
  // The model outlives the gallery.
  explicit GalleryModel(AppModel& model, QObject* parent = nullptr);

  QString query() const { return query_; }
  void setQuery(const QString& query);
  const QList<GalleryGroup*>& groups() const { return groups_; }
  QQmlListProperty<GalleryGroup> groupList() { return {this, &groups_}; }
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
  QList<GalleryGroup*> groups_;
};

}  // namespace ambrel
