#pragma once
// How the character stands and looks in each mood and reaction.
//
// All figures are in his own box of 64 x 64 units, y downwards, his feet at y 60.

#include <QPointF>
#include <optional>
#include <variant>

#include "core/base/EnumText.h"
#include "core/buddy.h"

class QPainter;

namespace ambrel {

struct BuddyColors;

enum class BuddyMood { idle, asleep, thinking, happy, error };

// A mood, or the reaction that a trigger plays.
using BuddyPose = std::variant<BuddyMood, BuddyTrigger>;
// "asleep", "highFive"
std::string_view nameOf(BuddyPose pose);
// Absent for an unknown name.
std::optional<BuddyPose> poseNamed(std::string_view name);

// Rotation and scale about the point between his feet, (32, 57).
struct BuddyStance {
  double angle = 0;  // degrees, clockwise
  double width = 1, height = 1;
  double right = 0, up = 0;
  QPointF leftHand{9, 48}, rightHand{55, 48};
};

// The amplitude of a reaction, which swings a few times around the stance and dies away.
struct BuddySwing {
  double angle = 0, width = 0, height = 0, up = 0;
  QPointF leftHand = {}, rightHand = {};
  double times = 0;
};

enum class BuddyEye { open, small, shut, happy, squeezed, startled, heart };
enum class BuddyMouth { none, smile, smirk, frown, flat, open, round };

struct BuddyLook {
  BuddyStance stance = {};
  BuddyEye leftEye = BuddyEye::open, rightEye = BuddyEye::open;
  QPointF glance = {};
  BuddyMouth mouth = BuddyMouth::smile;
  bool hasCheeks = true;
  // He holds something in front of him: the arms are drawn over the body, from these shoulders.
  struct Hold {
    QPointF leftShoulder, rightShoulder;
    bool isLeftFree = false;  // this arm stays behind the body
  };
  std::optional<Hold> hold = {};
  double shadow = 1;                                        // its width
  std::optional<double> cutBelow = {};                      // the upper edge of what hides him
  void (*held)(QPainter&, const BuddyColors&) = nullptr;    // turns with him; below the arms that hold it
  void (*around)(QPainter&, const BuddyColors&) = nullptr;  // does not move with him
  double seconds = 0.5;                                     // length of the animation
  BuddySwing swing = {};
};

const BuddyLook& lookOf(BuddyPose pose);

}  // namespace ambrel
