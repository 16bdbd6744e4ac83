#pragma once
// What the session says of itself, for `tilebayctl doctor`. Absent is what does not answer.

#include "core/doctor.h"

namespace ambrel {

// display: as in DISPLAY; empty for none.
std::optional<DoctorFacts::X11> askWindowSystem(const std::string& display);

// display: as in WAYLAND_DISPLAY; empty for none. The names of the interfaces that the compositor offers.
std::optional<std::set<std::string>> askCompositor(const std::string& display);

enum class BusKind { session, system };
std::optional<DoctorFacts::Bus> askBus(BusKind kind);

}  // namespace ambrel
