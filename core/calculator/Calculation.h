#pragma once
// SPDX-License-Identifier: GPL-2.0-or-later
//
// Works out expressions as people write them, with units: "5 mi to km", "sqrt(2)", "10 % of 50".

#include <chrono>
#include <string>
#include <string_view>

namespace ambrel {

struct Calculation {
  std::string result;  // in the locale's own form: "1,609.344 m"
  std::string fault;   // why there is none, in a sentence without its full stop
  friend bool operator==(const Calculation&, const Calculation&) = default;
};

inline constexpr std::size_t longestExpression = 2000;  // bytes

// For a process of its own, which ends afterwards: the library behind it loads 20 MB of definitions in 40 ms, which
// stay. `limit` holds where the library looks at it. Functions that touch files or run programs are taken out, and no
// exchange rates are fetched.
Calculation calculation(std::string_view expression, const std::string& locale, std::chrono::milliseconds limit);

}  // namespace ambrel
