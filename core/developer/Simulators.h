#pragma once
// Simulated phones: Apple's by their tool, Android's by the files of their emulator.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

struct Simulator {
  enum class Maker { apple, android };

  Maker maker = Maker::android;
  std::string id = {};       // what its tool knows it by
  std::string name = {};     // "Pixel 8 API 34"
  std::string version = {};  // "iOS 17.2", "android-34"; may be empty
  bool isRunning = false;
  bool operator==(const Simulator&) const = default;
};

// The answer of `xcrun simctl list devices --json`; those that cannot be used are left out.
std::vector<Simulator> parseSimulatorDevices(std::string_view json);

// ~/.android/avd/NAME.ini describes a virtual device; `id` is NAME.
Simulator parseVirtualDevice(const std::string& id, std::string_view ini);
// What a running emulator writes of itself: the id of its device; empty when it does not say.
std::string runningDevice(std::string_view ini);

// Those that run first, and by name.
void sortSimulators(std::vector<Simulator>& simulators);

}  // namespace ambrel
