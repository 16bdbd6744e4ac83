#pragma once
// A fixed list of things: those that are about to go to the Trash, or what became of them.

#include <QtQml/qqmlregistration.h>
#include <string>
#include <vector>

#include "app/base/RecordListModel.h"
#include "core/disk.h"

namespace ambrel {

struct CleanupRow {
  enum class Outcome { pending, moved, stayed };

  std::string path;
  QString title, detail, size;
  // Why it stayed, or why it is worth a look before it goes.
  QString note;
  Outcome outcome = Outcome::pending;
  friend bool operator==(const CleanupRow&, const CleanupRow&) = default;
};

class CleanupListModel : public RecordListModel<CleanupRow, std::string> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // `outcomeSymbol` is empty while a thing has not been moved.
  enum Role { TitleRole = Qt::UserRole, DetailRole, SizeRole, OutcomeSymbolRole, HasStayedRole, NoteRole };
  Q_ENUM(Role)

  using RecordListModel::RecordListModel;
  using RecordListModel::setRows;

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 protected:
  std::string keyOf(const CleanupRow& row) const override { return row.path; }
};

}  // namespace ambrel
