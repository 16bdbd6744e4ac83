#pragma once
// The clips on the shelf. A card's face is made on request, because only a few of ten thousand clips are in view.

#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "app/base/GadgetListModel.h"
#include "app/clipboard/ClipFace.h"

namespace ambrel {

class ClipListModel : public RecordListModel<ClipRow, UUID, RowList> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the clipboard's model")

 public:
  // `files` gives the known facts about a clip's files, and looks them up when it is called.
  ClipListModel(const ClipIndex& index, Calendar calendar, std::function<const ClipFiles*(const UUID&)> files,
                QObject* parent = nullptr);

  void show(const std::vector<ClipRow>& rows) { setRows(rows); }
  // Single steps of the same: moves or inserts the row at the top; removes rows.
  void put(ClipRow row);
  void drop(std::span<const UUID> ids);
  // Which clip is on the pasteboard now.
  void setCurrent(const std::optional<UUID>& id);
  void setNow(Instant now);
  void setSensitiveAge(std::optional<Seconds> age);
  // The facts about its files have changed.
  void refresh(const UUID& id);

  // -1 without such a row.
  Q_INVOKABLE int rowOf(const QString& id) const;
  // Empty beyond the rows.
  Q_INVOKABLE QString idAt(int row) const;
  // An empty face without such a row.
  Q_INVOKABLE ambrel::ClipFace faceOf(const QString& id) const;

  // The one role is "face".
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override { return {{Qt::UserRole, "face"}}; }

 protected:
  UUID keyOf(const ClipRow& row) const override { return row.id; }

 private:
  ClipFace faceAt(int row) const;
  void refreshAll();

  const ClipIndex& index_;
  ClipMoment moment_;
  std::function<const ClipFiles*(const UUID&)> files_;
};

}  // namespace ambrel
