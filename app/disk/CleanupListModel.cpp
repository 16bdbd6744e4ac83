#include "app/disk/CleanupListModel.h"

namespace ambrel {
namespace {

QString symbolOf(CleanupRow::Outcome outcome) {
  switch (outcome) {
    case CleanupRow::Outcome::pending:
      return {};
    case CleanupRow::Outcome::moved:
      return QStringLiteral("checkmark.circle.fill");
    case CleanupRow::Outcome::stayed:
      return QStringLiteral("exclamationmark.triangle.fill");
  }
  return {};
}

}  // namespace

QVariant CleanupListModel::data(const QModelIndex& index, int role) const {
  const CleanupRow* entry = row(index);
  if (!entry) return {};
  switch (role) {
    case TitleRole:
      return entry->title;
    case DetailRole:
      return entry->detail;
    case SizeRole:
      return entry->size;
    case OutcomeSymbolRole:
      return symbolOf(entry->outcome);
    case HasStayedRole:
      return entry->outcome == CleanupRow::Outcome::stayed;
    case NoteRole:
      return entry->note;
    default:
      return {};
  }
}

QHash<int, QByteArray> CleanupListModel::roleNames() const {
  return {{TitleRole, "title"},         {DetailRole, "detail"},
          {SizeRole, "size"},           {OutcomeSymbolRole, "outcomeSymbol"},
          {HasStayedRole, "hasStayed"}, {NoteRole, "note"}};
}

}  // namespace ambrel
