#pragma once
// What the session says of itself, for `tilebayctl doctor`. Absent is what does not answer.

#include "core/doctor.h"

namespace ambrel {

// display: as in DISPLAY; empty for none.
std::optional<DoctorFacts::X11> askWindowSystem(const std::string& display);

enum class BusKind { session, system };
std::optional<DoctorFacts::Bus> askBus(BusKind kind);

}  // namespace ambrel
