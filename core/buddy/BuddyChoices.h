#pragma once
// What the user chooses for Buddy, as the settings store it.

#include "core/base/EnumText.h"

namespace ambrel {

// How much Buddy may say.
enum class BuddyLevel { all, important, off };

template <>
struct EnumText<BuddyLevel> {
  static constexpr std::array table{
      std::pair{BuddyLevel::all, std::string_view("all")},
      std::pair{BuddyLevel::important, std::string_view("important")},
      std::pair{BuddyLevel::off, std::string_view("off")},
  };
};

// What a notice is about; each can be switched off.
enum class BuddyCategory { agents, meetings, limits, system, health };

template <>
struct EnumText<BuddyCategory> {
  static constexpr std::array table{
      std::pair{BuddyCategory::agents, std::string_view("agents")},
      std::pair{BuddyCategory::meetings, std::string_view("meetings")},
      std::pair{BuddyCategory::limits, std::string_view("limits")},
      std::pair{BuddyCategory::system, std::string_view("system")},
      std::pair{BuddyCategory::health, std::string_view("health")},
  };
};

}  // namespace ambrel
