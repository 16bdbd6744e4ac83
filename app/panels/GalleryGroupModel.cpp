#include "app/panels/GalleryGroupModel.h"

namespace ambrel {
namespace {

QString text(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

}  // namespace

GalleryGroupModel::GalleryGroupModel(WidgetGroup group, QObject* parent) : RecordListModel(parent), group_(group) {}

QString GalleryGroupModel::title() const { return text(ambrel::title(group_)); }

void GalleryGroupModel::show(const std::vector<GalleryRow>& rows) {
  const int before = count();
  setRows(rows);
  if (count() != before) Q_EMIT countChanged();
}

QVariant GalleryGroupModel::data(const QModelIndex& index, int role) const {
  const GalleryRow* found = row(index);
  if (!found) return {};
  switch (role) {
    case WidgetRole:
      return text(nameOf(found->widget));
    case TitleRole:
      return text(ambrel::title(found->widget));
    case DescriptionRole:
      return text(description(found->widget));
    case SymbolRole:
      return text(symbol(found->widget));
    case SpanRole:
      return static_cast<int>(defaultSize(found->widget));
    case IsOnBarRole:
      return found->isOnBar;
    case IsAllowedRole:
      return found->isAllowed;
  }
  return {};
}

QHash<int, QByteArray> GalleryGroupModel::roleNames() const {
  return {{WidgetRole, "widget"}, {TitleRole, "title"},     {DescriptionRole, "description"}, {SymbolRole, "symbol"},
          {SpanRole, "span"},     {IsOnBarRole, "isOnBar"}, {IsAllowedRole, "isAllowed"}};
}

}  // namespace ambrel
