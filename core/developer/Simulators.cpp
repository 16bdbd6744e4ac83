#include "core/developer/Simulators.h"

#include <algorithm>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

// The value of "key=value" or "key = value".
std::string valueOf(std::string_view ini, std::string_view key) {
  for (const std::string_view line : split(ini, '\n')) {
    const std::size_t equals = line.find('=');
    if (equals != std::string_view::npos && trimmed(line.substr(0, equals)) == key)
      return std::string(trimmed(line.substr(equals + 1)));
  }
  return {};
}

// "com.apple.CoreSimulator.SimRuntime.iOS-17-2" is "iOS 17.2".
std::string runtimeName(const std::string& runtime) {
  std::string name = runtime.substr(runtime.rfind('.') + 1);
  std::ranges::replace(name, '-', '.');
  if (const std::size_t first = name.find('.'); first != std::string::npos) name[first] = ' ';
  return name;
}

}  // namespace

std::vector<Simulator> parseSimulatorDevices(std::string_view json) {
  std::vector<Simulator> simulators;
  const auto document = parseJSON(json);
  const JSON* runtimes = document ? objectField(*document, "devices") : nullptr;
  if (!runtimes) return simulators;
  for (const auto& [runtime, devices] : runtimes->items()) {
    if (!devices.is_array()) continue;
    for (const JSON& device : devices) {
      const auto id = stringField(device, "udid"), name = stringField(device, "name");
      if (!id || !name || !boolField(device, "isAvailable").value_or(true)) continue;
      simulators.push_back({Simulator::Maker::apple, *id, *name, runtimeName(runtime),
                            stringField(device, "state").value_or("") == "Booted"});
    }
  }
  return simulators;
}

Simulator parseVirtualDevice(const std::string& id, std::string_view ini) {
  std::string name = valueOf(ini, "avd.ini.displayname");
  if (name.empty()) {
    name = id;
    std::ranges::replace(name, '_', ' ');
  }
  return {Simulator::Maker::android, id, std::move(name), valueOf(ini, "target"), false};
}

std::string runningDevice(std::string_view ini) {
  const std::string id = valueOf(ini, "avd.id");
  return id.empty() ? valueOf(ini, "avd.name") : id;
}

void sortSimulators(std::vector<Simulator>& simulators) {
  std::ranges::sort(simulators, {},
                    [](const Simulator& one) { return std::tuple(!one.isRunning, one.name, one.version, one.id); });
}

}  // namespace ambrel
