#pragma once
// The posture and the look of the character in each of his moods and reactions.
//
// All figures are in his own box of 64 x 64 units, y downwards, his feet at y 60.

#include <QPointF>
#include <optional>

#include "core/base/EnumText.h"

class QPainter;

namespace ambrel {

struct BuddyColors;

// His moods, then his reactions, which bear the names of the triggers that play them.
enum class BuddyPose {
  idle,
  asleep,
  thinking,
  happy,
  error,
  celebrate,
  wave,
  jump,
  spin,
  dance,
  nod,
  shake,
  stretch,
  wink,
  love,
  startle,
  peek,
  sip,
  typing,
  highFive,
  drink,
  sneeze,
  lookAround,
};

// Turns and stretches him about the point between his feet, (32, 57).
struct BuddyStance {
  double angle = 0;  // degrees, clockwise
  double width = 1, height = 1;
  double right = 0, up = 0;
  QPointF leftHand{9, 48}, rightHand{55, 48};
};

// What is added to the stance in full swing; a reaction swings to and fro a few times and comes to rest.
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
  // He holds something before him, so his arms are drawn over his body, from these shoulders.
  struct Hold {
    QPointF leftShoulder, rightShoulder;
    bool isLeftFree = false;  // hangs behind the body all the same
  };
  std::optional<Hold> hold = {};
  double shadow = 1;                                        // its width
  std::optional<double> cutBelow = {};                      // he is behind something whose upper edge is here
  void (*held)(QPainter&, const BuddyColors&) = nullptr;    // turns with him; below the arms that hold it
  void (*around)(QPainter&, const BuddyColors&) = nullptr;  // does not move with him
  double seconds = 0.5;                                     // until he has come to rest
  BuddySwing swing = {};
};

const BuddyLook& lookOf(BuddyPose pose);

}  // namespace ambrel
