#pragma once
// NVIDIA's management library, which comes with the driver.

#include <optional>
#include <string>

namespace ambrel {

// Busy share of the card at that place of the bus ("0000:01:00.0"), 0 to 1; absent without the library or its answer.
// The library is opened for this one question: while it is open, it keeps the card awake.
std::optional<double> nvidiaUtilization(const std::string& library, const std::string& busID);

}  // namespace ambrel
