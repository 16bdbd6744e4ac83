#pragma once

#include <string>

namespace ambrel::DisplayText {

// "60 Hz"; 0 or less: "—".
std::string refreshRate(double hertz);
// "@2x", "@1.5x"
std::string scale(double scale);

}  // namespace ambrel::DisplayText
