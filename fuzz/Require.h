#pragma once

#include <cstdlib>

// Ends the run where the bytes have found a fault.
inline void require(bool holds) {
  if (!holds) std::abort();
}
