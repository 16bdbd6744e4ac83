#pragma once
// The animation from one stance to another: a spring, plus the decaying swing of a reaction.

#include "app/buddy/BuddyPose.h"

namespace ambrel {

// The position of a spring from 0 to 1 after so many seconds; it overshoots.
double buddySpring(double seconds);

// The stance between `from` and that of `look`; exactly the latter once look.seconds have passed.
BuddyStance stanceAt(const BuddyStance& from, const BuddyLook& look, double seconds);

}  // namespace ambrel
