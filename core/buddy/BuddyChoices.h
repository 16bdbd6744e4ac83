#pragma once
// What the user chooses for Buddy, as the settings store it.

#include "core/base/EnumText.h"

namespace ambrel {

// How much Buddy may say.
enum class BuddyLevel { all, important, off };

// What a notice is about; each can be switched off.
enum class BuddyCategory { agents, meetings, limits, system, health };

}  // namespace ambrel
