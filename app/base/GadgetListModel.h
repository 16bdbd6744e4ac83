#pragma once
// A list of gadgets for QML: each property of the gadget is a role of its name, and "row" is the whole of it.
//
//   struct DriveRow {
//     Q_GADGET
//     Q_PROPERTY(QString rowId MEMBER id FINAL)  // delegates cannot declare a property named "id"
//     Q_PROPERTY(QString title MEMBER title FINAL)
//    public:
//     QString id, title;
//     bool operator==(const DriveRow&) const = default;
//   };
//   GadgetListModel<DriveRow> drives_;
//   Q_PROPERTY(ambrel::RowList* drives READ drives CONSTANT FINAL)

#include <QMetaProperty>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/RecordListModel.h"

namespace ambrel {

// The same for all rows; QML declares its properties with this type.
class RowList : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("filled by a model")
  Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

 public:
  using QAbstractListModel::QAbstractListModel;

  int count() const { return rowCount(); }

 Q_SIGNALS:
  void countChanged();
};

// `key` says which row is which: a member or a function of Row. Keys are ordered and may repeat.
template <typename Row, auto key = &Row::id>
class GadgetListModel
    : public RecordListModel<Row, std::decay_t<std::invoke_result_t<decltype(key), const Row&>>, RowList> {
  using Key = std::decay_t<std::invoke_result_t<decltype(key), const Row&>>;
  using Base = RecordListModel<Row, Key, RowList>;

 public:
  using Base::Base;

  // Says whether anything changed.
  bool setRows(const std::vector<Row>& rows) {
    const int before = this->count();
    const bool differs = Base::setRows(rows);
    if (this->count() != before) Q_EMIT this->countChanged();
    return differs;
  }

  // The role that has this property; -1 without one.
  static int role(const char* property) {
    const int index = Row::staticMetaObject.indexOfProperty(property);
    return index < 0 ? -1 : Qt::UserRole + index;
  }

  QVariant data(const QModelIndex& index, int role) const override {
    const Row* row = this->row(index);
    if (!row || role < Qt::UserRole) return {};
    return role == rowRole() ? QVariant::fromValue(*row)
                             : Row::staticMetaObject.property(role - Qt::UserRole).readOnGadget(row);
  }
  QHash<int, QByteArray> roleNames() const override {
    QHash<int, QByteArray> names{{rowRole(), "row"}};
    for (int i = 0; i < Row::staticMetaObject.propertyCount(); ++i)
      names.insert(Qt::UserRole + i, Row::staticMetaObject.property(i).name());
    return names;
  }

 protected:
  Key keyOf(const Row& row) const override { return std::invoke(key, row); }

 private:
  static int rowRole() { return Qt::UserRole + Row::staticMetaObject.propertyCount(); }
};

}  // namespace ambrel
