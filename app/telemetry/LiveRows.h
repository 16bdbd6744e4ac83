#pragma once
// The rows of a reading that is a list: programs, drives, devices, or the details of one thing.

#include <QtQml/qqmlregistration.h>

#include "app/base/RecordListModel.h"

namespace ambrel {

struct LiveRow {
  QString id;
  QString title{}, detail{}, figure{}, symbol{};
  std::optional<double> percent{};
  // What is being done with it is under way.
  bool isBusy = false;
  // The detail says what went wrong.
  bool hasFailed = false;
  // Something can be done with it.
  bool hasAction = false;
  friend bool operator==(const LiveRow&, const LiveRow&) = default;
};

class LiveRows : public RecordListModel<LiveRow, QString> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to LiveModels")
  Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

 public:
  enum Role {
    IDRole = Qt::UserRole,
    TitleRole,
    DetailRole,
    FigureRole,
    SymbolRole,
    PercentRole,
    BusyRole,
    FailedRole,
    ActionRole
  };

  explicit LiveRows(QObject* parent = nullptr) : RecordListModel(parent) {}

  int count() const { return rowCount(); }
  void set(const std::vector<LiveRow>& rows) {
    const int before = count();
    setRows(rows);
    if (count() != before) Q_EMIT countChanged();
  }

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void countChanged();

 protected:
  QString keyOf(const LiveRow& row) const override { return row.id; }
};

}  // namespace ambrel
