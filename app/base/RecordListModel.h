#pragma once
// A list of value records for QML. A new list is matched with the old one by key, row by row, and only what
// differs is announced: delegates live on, and views keep their place.

#include <QAbstractListModel>
#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "app/base/RowChanges.h"

namespace ambrel {

// `Record` has ==. `Key` is ordered; `keyOf` gives it. Keys may repeat; equal keys are matched in their order.
template <typename Record, typename Key, typename Base = QAbstractListModel>
class RecordListModel : public Base {
 public:
  using Base::Base;

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  const std::vector<Record>& rows() const { return rows_; }
  const Record* row(const QModelIndex& index) const {
    return this->checkIndex(index, QAbstractItemModel::CheckIndexOption::IndexIsValid)
               ? &rows_[static_cast<std::size_t>(index.row())]
               : nullptr;
  }

 protected:
  virtual Key keyOf(const Record& record) const = 0;

  // Says whether anything changed.
  bool setRows(const std::vector<Record>& next) {
    if (next == rows_) return false;
    Numbers numbers;
    const std::vector<int> before = numbered(rows_, numbers), after = numbered(next, numbers);
    for (const RowChange& step : rowChanges<int>(before, after, mostSteps)) carryOut(step, next);
    announceChanges(next);
    return true;
  }

 private:
  // More steps than this cost more than they keep.
  static constexpr std::size_t mostSteps = 256;

  // A number for the first row of a key, another for its second, and so on; the same in both lists.
  using Numbers = std::map<std::pair<Key, int>, int>;
  std::vector<int> numbered(const std::vector<Record>& rows, Numbers& numbers) const {
    std::map<Key, int> seen;
    std::vector<int> list;
    list.reserve(rows.size());
    for (const Record& record : rows) {
      const Key key = keyOf(record);
      const int place = seen[key]++;
      list.push_back(numbers.try_emplace({key, place}, static_cast<int>(numbers.size())).first->second);
    }
    return list;
  }

  void carryOut(const RowChange& step, const std::vector<Record>& next) {
    const int first = step.first, last = step.last;
    switch (step.kind) {
      case RowChange::Kind::remove:
        this->beginRemoveRows({}, first, last);
        rows_.erase(at(first), at(last + 1));
        this->endRemoveRows();
        break;
      case RowChange::Kind::insert: {
        // Insertions come last and in order, so that their rows are already those of the new list.
        const auto from = next.begin() + first;
        this->beginInsertRows({}, first, last);
        rows_.insert(at(first), from, from + (last - first + 1));
        this->endInsertRows();
        break;
      }
      case RowChange::Kind::move:
        this->beginMoveRows({}, first, first, {}, last > first ? last + 1 : last);
        if (last > first)
          std::rotate(at(first), at(first + 1), at(last + 1));
        else
          std::rotate(at(last), at(first), at(first + 1));
        this->endMoveRows();
        break;
    }
  }

  // The keys are in place; neighbours that differ are announced together.
  void announceChanges(const std::vector<Record>& next) {
    const std::size_t count = rows_.size();
    for (std::size_t first = 0; first < count; ++first) {
      std::size_t end = first;
      while (end < count && !(rows_[end] == next[end])) {
        rows_[end] = next[end];
        ++end;
      }
      if (end == first) continue;
      Q_EMIT this->dataChanged(this->index(static_cast<int>(first)), this->index(static_cast<int>(end) - 1));
      first = end;
    }
  }

  auto at(int position) { return rows_.begin() + position; }

  std::vector<Record> rows_;
};

}  // namespace ambrel
