#pragma once
// The clips that the shelf shows, a card each. A card's face is made when it is asked for: of ten thousand clips a few
// are in view.

#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "app/base/GadgetListModel.h"
#include "app/clipboard/ClipFace.h"

namespace ambrel {

class ClipListModel : public RecordListModel<ClipRow, UUID, RowList> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the clipboard's model")

 public:
  // `files`: what is known of a clip's files. That a card asks is the time to look at them.
  ClipListModel(const ClipIndex& index, Calendar calendar, std::function<const ClipFiles*(const UUID&)> files,
                QObject* parent = nullptr);

  void show(const std::vector<ClipRow>& rows);
  // A single step of the same: the row comes first, and leaves its former place; these rows go.
  void put(ClipRow row);
  void drop(std::span<const UUID> ids);
  // Which clip is on the pasteboard now.
  void setCurrent(const std::optional<UUID>& id);
  void setNow(Instant now);
  void setSensitiveAge(std::optional<Seconds> age);
  // What is known of its files has changed.
  void refresh(const UUID& id);

  // -1 without such a row.
  Q_INVOKABLE int rowOf(const QString& id) const;
  // Empty beyond the rows.
  Q_INVOKABLE QString idAt(int row) const;
  // An empty face without such a row.
  Q_INVOKABLE ambrel::ClipFace faceOf(const QString& id) const;

  // The properties of ClipFace.
  static int role(const char* property);
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 protected:
  UUID keyOf(const ClipRow& row) const override { return row.id; }

 private:
  ClipFace faceAt(int row) const;

  const ClipIndex& index_;
  ClipMoment moment_;
  std::function<const ClipFiles*(const UUID&)> files_;
  // A delegate asks for the properties one after the other.
  mutable std::optional<std::pair<int, ClipFace>> latest_;
};

}  // namespace ambrel
