#include "app/telemetry/LiveRows.h"

namespace ambrel {

QVariant LiveRows::data(const QModelIndex& index, int role) const {
  const LiveRow* live = row(index);
  if (!live) return {};
  switch (role) {
    case IDRole:
      return live->id;
    case Qt::DisplayRole:
    case TitleRole:
      return live->title;
    case DetailRole:
      return live->detail;
    case FigureRole:
      return live->figure;
    case SymbolRole:
      return live->symbol;
    case PercentRole:
      return live->percent.value_or(qQNaN());
    case BusyRole:
      return live->isBusy;
    case FailedRole:
      return live->hasFailed;
    case ActionRole:
      return live->hasAction;
    default:
      return {};
  }
}

QHash<int, QByteArray> LiveRows::roleNames() const {
  return {{IDRole, "rowId"},      {TitleRole, "title"},      {DetailRole, "detail"},
          {FigureRole, "figure"}, {SymbolRole, "symbol"},    {PercentRole, "percent"},
          {BusyRole, "isBusy"},   {FailedRole, "hasFailed"}, {ActionRole, "hasAction"}};
}

}  // namespace ambrel
