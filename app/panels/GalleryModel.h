#pragma once
// The gallery of the customise panel: the whole catalogue in its groups, or what a query leaves of it. Its rows are
// what is in view, so that no more tiles exist than somebody can see.

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/model/AppModel.h"
#include "core/widgets.h"

namespace ambrel {

struct GalleryRow {
  Q_GADGET
 public:
  FACE_FIELDS(QString, widget);  // its id
  FACE_FIELDS(QString, title, description, symbol);
  FACE_FIELDS(QString, need);  // what it needs, as a sentence; empty when it needs nothing
  FACE_FIELDS(QRectF, frame);  // in the gallery
  FACE_FIELDS(int, span);      // the default size as TileFrame counts it, 0 to 3
  FACE_FIELDS(bool, isOnBar);
  FACE_FIELD(bool, isAllowed, true);
  friend bool operator==(const GalleryRow&, const GalleryRow&) = default;
};

struct GalleryHeading {
  Q_GADGET
 public:
  FACE_FIELDS(QString, title);
  FACE_FIELDS(qreal, headingY);
  friend bool operator==(const GalleryHeading&, const GalleryHeading&) = default;
};

class GalleryModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
  // Of what is in view: GalleryRow, in the order of the gallery, and GalleryHeading.
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT)
  Q_PROPERTY(ambrel::RowList* headings READ headings CONSTANT)
  Q_PROPERTY(qreal height READ height NOTIFY changed)
  Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)

 public:
  // The model outlives the gallery.
  explicit GalleryModel(AppModel& model, QObject* parent = nullptr);

  QString query() const { return query_; }
  void setQuery(const QString& query);
  auto* rows() { return &rows_; }
  RowList* headings() { return &headings_; }
  qreal height() const { return layout_.height * scale_; }
  bool isEmpty() const { return layout_.tiles.empty(); }

  // What of the gallery can be seen; nothing of it while `view` is empty. Its width is that of the lines.
  Q_INVOKABLE void look(const QRectF& view, qreal scale);
  // The widget that an arrow key (a Qt::Key) leads to, from the first one when `widget` is not there; "" in an empty
  // gallery. And where it is.
  Q_INVOKABLE QString stepped(const QString& widget, int key) const;
  Q_INVOKABLE QRectF frameOf(const QString& widget) const;
  // Puts the widget on the bar, at its end, or takes it off. One that the licence denies shows what it would give.
  Q_INVOKABLE void toggle(const QString& widget);

 Q_SIGNALS:
  void queryChanged();
  void changed();

 private:
  void layOut();
  void update();
  QRectF scaled(const Rect& frame) const;
  std::optional<std::size_t> indexOf(const QString& widget) const;

  AppModel& model_;
  QString query_;
  QRectF view_;
  qreal scale_ = 1;
  GalleryLayout layout_;
  GadgetListModel<GalleryRow, &GalleryRow::widget> rows_;
  GadgetListModel<GalleryHeading, &GalleryHeading::title> headings_;
};

}  // namespace ambrel
