#pragma once
// The way from one stance to another: a spring, and the swing of a reaction, which dies away.

#include "app/buddy/BuddyPose.h"

namespace ambrel {

// How far a spring that starts at 0 has come to 1; it overshoots. Seconds since the start.
double buddySpring(double seconds);

// The stance on the way from `from` to the stance of `look`, and exactly there once look.seconds have passed.
BuddyStance stanceAt(const BuddyStance& from, const BuddyLook& look, double seconds);

}  // namespace ambrel
