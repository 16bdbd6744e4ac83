#pragma once
// The user's own budget of tokens for a window of five hours, as its control steps through it.

#include <cstdint>

namespace ambrel {

// From any budget to the next one of the control: 0 (none), 10,000, 15,000, 20,000, 30,000, 50,000, 70,000, 100,000 and
// so on, up to a billion. `by` is 1 or -1; at either end it stays.
std::int64_t steppedBudget(std::int64_t budget, int by);

}  // namespace ambrel
