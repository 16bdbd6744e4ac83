#pragma once
// Sounds of the desktop's sound theme, by their freedesktop names: "complete", "alarm-clock-elapsed".

#include <string_view>

namespace ambrel {

// Never waits, and is silent where there is nothing to sound with.
class Sounds {
 public:
  virtual ~Sounds() = default;

  virtual void play(std::string_view name) = 0;
  // Again and again until `stop`.
  virtual void loop(std::string_view name) = 0;
  virtual void stop() = 0;
};

}  // namespace ambrel
