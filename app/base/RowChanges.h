#pragma once
// How one list of rows becomes another: the few steps in which a list model announces it.

#include <cstddef>
#include <span>
#include <unordered_map>
#include <vector>

namespace ambrel {

// Positions are those at the time of the step.
struct RowChange {
  enum class Kind {
    remove,  // the rows `first` to `last`
    insert,  // new rows, which become `first` to `last`
    move,    // the row `first` becomes row `last`
  };
  Kind kind = Kind::remove;
  int first = 0, last = 0;

  friend bool operator==(const RowChange&, const RowChange&) = default;
};

// The steps from `before` to `after`, whose keys occur once each. Lists that have much in common change where they
// differ; what would take more than `mostSteps` is exchanged in two, between the rows that stay at both ends.
template <typename Key>
std::vector<RowChange> rowChanges(std::span<const Key> before, std::span<const Key> after, std::size_t mostSteps = 32) {
  using enum RowChange::Kind;
  std::size_t head = 0, tail = 0;
  while (head < before.size() && head < after.size() && before[head] == after[head]) ++head;
  while (tail < before.size() - head && tail < after.size() - head &&
         before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
    ++tail;
  const auto old = before.subspan(head, before.size() - head - tail);
  const auto next = after.subspan(head, after.size() - head - tail);
  const auto at = [head](std::size_t position) { return static_cast<int>(head + position); };

  std::vector<RowChange> steps;
  const auto exchange = [&] {
    steps.clear();
    if (!old.empty()) steps.push_back({remove, at(0), at(old.size() - 1)});
    if (!next.empty()) steps.push_back({insert, at(0), at(next.size() - 1)});
    return steps;
  };
  if (old.empty() || next.empty()) return exchange();

  std::unordered_map<Key, std::size_t> placeInNext, placeInOld;
  for (std::size_t i = 0; i < next.size(); ++i) placeInNext.emplace(next[i], i);
  for (std::size_t i = 0; i < old.size(); ++i) placeInOld.emplace(old[i], i);

  for (std::size_t end = old.size(); end > 0;) {
    if (placeInNext.contains(old[end - 1])) {
      --end;
      continue;
    }
    std::size_t begin = end;
    while (begin > 0 && !placeInNext.contains(old[begin - 1])) --begin;
    steps.push_back({remove, at(begin), at(end - 1)});
    if (steps.size() > mostSteps) return exchange();
    end = begin;
  }

  std::vector<Key> kept, wanted;
  for (const Key& key : old)
    if (placeInNext.contains(key)) kept.push_back(key);
  for (const Key& key : next)
    if (placeInOld.contains(key)) wanted.push_back(key);
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (kept[i] == wanted[i]) continue;
    if (steps.size() == mostSteps) return exchange();
    // Either this row goes to where it belongs further down, or the wanted one comes up.
    const bool goesDown = kept[i + 1] == wanted[i];
    const auto& list = goesDown ? wanted : kept;
    const Key& sought = goesDown ? kept[i] : wanted[i];
    std::size_t other = i + 1;
    while (!(list[other] == sought)) ++other;
    const std::size_t from = goesDown ? i : other, to = goesDown ? other : i;
    Key key = kept[from];
    kept.erase(kept.begin() + static_cast<std::ptrdiff_t>(from));
    kept.insert(kept.begin() + static_cast<std::ptrdiff_t>(to), std::move(key));
    steps.push_back({move, at(from), at(to)});
    if (goesDown) --i;
  }

  for (std::size_t begin = 0; begin < next.size();) {
    if (placeInOld.contains(next[begin])) {
      ++begin;
      continue;
    }
    std::size_t end = begin;
    while (end < next.size() && !placeInOld.contains(next[end])) ++end;
    steps.push_back({insert, at(begin), at(end - 1)});
    if (steps.size() > mostSteps) return exchange();
    begin = end;
  }
  return steps;
}

}  // namespace ambrel
