#include "app/buddy/BuddyMotion.h"

#include <cmath>
#include <numbers>

namespace ambrel {
namespace {

constexpr double response = 0.28, damping = 0.55;

}  // namespace

double buddySpring(double seconds) {
  if (seconds <= 0) return 0;
  const double undamped = 2 * std::numbers::pi / response;
  const double decay = damping * undamped;
  const double damped = undamped * std::sqrt(1 - damping * damping);
  return 1 - std::exp(-decay * seconds) * (std::cos(damped * seconds) + decay / damped * std::sin(damped * seconds));
}

BuddyStance stanceAt(const BuddyStance& from, const BuddyLook& look, double seconds) {
  const BuddyStance& to = look.stance;
  if (seconds >= look.seconds) return to;
  const double way = buddySpring(seconds);
  const double rest = 1 - seconds / look.seconds;
  const double swing = rest * std::sin(2 * std::numbers::pi * look.swing.times * seconds / look.seconds);
  const auto between = [&](auto start, auto end, auto reach) { return start + (end - start) * way + reach * swing; };
  return {.angle = between(from.angle, to.angle, look.swing.angle),
          .width = between(from.width, to.width, look.swing.width),
          .height = between(from.height, to.height, look.swing.height),
          .right = between(from.right, to.right, 0.0),
          .up = between(from.up, to.up, look.swing.up),
          .leftHand = between(from.leftHand, to.leftHand, look.swing.leftHand),
          .rightHand = between(from.rightHand, to.rightHand, look.swing.rightHand)};
}

}  // namespace ambrel
