#pragma once
// A list of value records for QML. A new list is matched with the old one by key, row by row, and only what
// differs is announced: delegates live on, and views keep their place.

#include <QAbstractListModel>
#include <algorithm>
#include <iterator>
#include <span>
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
    const auto hasSameKey = [this](const Record& a, const Record& b) { return keyOf(a) == keyOf(b); };
    const auto head = std::mismatch(rows_.begin(), rows_.end(), next.begin(), next.end(), hasSameKey);
    const auto tail = std::mismatch(rows_.rbegin(), std::make_reverse_iterator(head.first), next.rbegin(),
                                    std::make_reverse_iterator(head.second), hasSameKey);
    const auto first = static_cast<int>(head.first - rows_.begin());
    const auto [before, after] = numbered({head.first, tail.first.base()}, {head.second, tail.second.base()});
    for (RowChange step : rowChanges<int>(before, after, mostSteps)) {
      step.first += first;
      step.last += first;
      carryOut(step, next);
    }
    announceChanges(next);
    return true;
  }

  // Single steps of the same, for those who know what changes: they cost as little however many rows there are.
  void insertRecord(int position, Record record) {
    this->beginInsertRows({}, position, position);
    rows_.insert(at(position), std::move(record));
    this->endInsertRows();
  }
  void removeRecord(int position) {
    this->beginRemoveRows({}, position, position);
    rows_.erase(at(position));
    this->endRemoveRows();
  }
  template <typename Change>
  void changeRecord(int position, const Change& change) {
    change(rows_[static_cast<std::size_t>(position)]);
    Q_EMIT this->dataChanged(this->index(position), this->index(position));
  }

 private:
  // More steps than this cost more than they keep.
  static constexpr std::size_t mostSteps = 256;

  // A number for the first row of a key, another for its second, and so on; the same in both lists.
  std::pair<std::vector<int>, std::vector<int>> numbered(std::span<const Record> before,
                                                         std::span<const Record> after) const {
    struct Place {
      Key key;
      bool isAfter;
      std::size_t row;
    };
    std::vector<Place> places;
    places.reserve(before.size() + after.size());
    for (std::size_t i = 0; i < before.size(); ++i) places.push_back({keyOf(before[i]), false, i});
    for (std::size_t i = 0; i < after.size(); ++i) places.push_back({keyOf(after[i]), true, i});
    std::stable_sort(places.begin(), places.end(), [](const Place& a, const Place& b) { return a.key < b.key; });
    std::pair numbers{std::vector<int>(before.size()), std::vector<int>(after.size())};
    int ofBefore = 0, ofAfter = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
      if (i > 0 && places[i - 1].key < places[i].key) ofBefore = ofAfter = std::max(ofBefore, ofAfter);
      const Place& place = places[i];
      (place.isAfter ? numbers.second : numbers.first)[place.row] = place.isAfter ? ofAfter++ : ofBefore++;
    }
    return numbers;
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
