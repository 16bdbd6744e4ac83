#include "core/usage/TokenBudget.h"

#include <algorithm>
#include <vector>

namespace ambrel {

std::int64_t steppedBudget(std::int64_t budget, int by) {
  constexpr std::int64_t most = 1'000'000'000;
  std::vector<std::int64_t> steps{0};
  for (std::int64_t ten = 1'000; ten < most / 10; ten *= 10)
    for (const std::int64_t step : {10, 15, 20, 30, 50, 70}) steps.push_back(step * ten);
  steps.push_back(most);
  if (by > 0) {
    const auto next = std::upper_bound(steps.begin(), steps.end(), budget);
    return next == steps.end() ? budget : *next;
  }
  const auto present = std::lower_bound(steps.begin(), steps.end(), budget);
  return present == steps.begin() ? 0 : *(present - 1);
}

}  // namespace ambrel
