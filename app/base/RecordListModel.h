#pragma once
// A list of value records for QML. A new list is matched with the old one by key, row by row, and only what
// differs is announced: delegates live on, and views keep their place.

#include <QAbstractListModel>
#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace ambrel {

// `Record` has ==. `Key` is ordered; `keyOf` gives it. Keys may repeat; equal keys are matched in their order.
template <typename Record, typename Key>
class RecordListModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  const std::vector<Record>& rows() const { return rows_; }
  const Record* row(const QModelIndex& index) const {
    return checkIndex(index, CheckIndexOption::IndexIsValid) ? &rows_[static_cast<std::size_t>(index.row())] : nullptr;
  }

 protected:
  virtual Key keyOf(const Record& record) const = 0;

  // Says whether anything changed.
  bool setRows(const std::vector<Record>& next) {
    if (next == rows_) return false;
    removeMissing(next);
    for (std::size_t i = 0; i < next.size(); ++i) place(next[i], i);
    return true;
  }

 private:
  void removeMissing(const std::vector<Record>& next) {
    std::map<Key, int> wanted;
    for (const Record& record : next) ++wanted[keyOf(record)];
    std::vector<bool> stays;
    for (const Record& record : rows_) stays.push_back(wanted[keyOf(record)]-- > 0);
    for (std::size_t end = rows_.size(); end > 0;) {
      if (stays[end - 1]) {
        --end;
        continue;
      }
      std::size_t begin = end;
      while (begin > 0 && !stays[begin - 1]) --begin;
      beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
      rows_.erase(at(begin), at(end));
      endRemoveRows();
      end = begin;
    }
  }

  // Brings the record to row `i`; the rows before it are in place already.
  void place(const Record& record, std::size_t i) {
    const Key key = keyOf(record);
    std::size_t from = i;
    while (from < rows_.size() && keyOf(rows_[from]) != key) ++from;
    if (from == rows_.size()) {
      beginInsertRows({}, static_cast<int>(i), static_cast<int>(i));
      rows_.insert(at(i), record);
      endInsertRows();
      return;
    }
    if (from != i) {
      beginMoveRows({}, static_cast<int>(from), static_cast<int>(from), {}, static_cast<int>(i));
      std::rotate(at(i), at(from), at(from + 1));
      endMoveRows();
    }
    if (rows_[i] == record) return;
    rows_[i] = record;
    Q_EMIT dataChanged(index(static_cast<int>(i)), index(static_cast<int>(i)));
  }

  auto at(std::size_t position) { return rows_.begin() + static_cast<std::ptrdiff_t>(position); }

  std::vector<Record> rows_;
};

}  // namespace ambrel
