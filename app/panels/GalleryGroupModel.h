#pragma once
// One group of the customise gallery: its widgets that match the query.

#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/RecordListModel.h"
#include "core/widgets.h"

namespace ambrel {

struct GalleryRow {
  DockWidget widget = DockWidget::buddy;
  bool isOnBar = false;
  bool isAllowed = true;
  friend bool operator==(const GalleryRow&, const GalleryRow&) = default;
};

class GalleryGroupModel : public RecordListModel<GalleryRow, DockWidget> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the gallery")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  // `span` is the default size as TileFrame counts it, 0 to 3.
  enum Role { WidgetRole = Qt::UserRole, TitleRole, DescriptionRole, SymbolRole, SpanRole, IsOnBarRole, IsAllowedRole };
  Q_ENUM(Role)

  explicit GalleryGroupModel(WidgetGroup group, QObject* parent = nullptr);

  WidgetGroup group() const { return group_; }
  QString title() const;
  int count() const { return rowCount(); }
  void show(const std::vector<GalleryRow>& rows);

  QVariant data(const QModelIndex& index, int role) const override;
  // widget, title, description, symbol, span, isOnBar, isAllowed
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void countChanged();

 protected:
  DockWidget keyOf(const GalleryRow& row) const override { return row.widget; }

 private:
  WidgetGroup group_;
};

}  // namespace ambrel
