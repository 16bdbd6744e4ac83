#include "platform/linux/telemetry/NVIDIAManagement.h"

#include <algorithm>
#include <dlfcn.h>
#include <memory>

namespace ambrel {
namespace {

// As in the library's documentation; a result of 0 is success.
struct Utilization {
  unsigned int gpu, memory;  // percent of the last sample period
};
using Device = struct DeviceHandle*;
using InitWithFlags = int (*)(unsigned int flags);
using Shutdown = int (*)();
using DeviceByBusID = int (*)(const char* busID, Device* device);
using GetUtilization = int (*)(Device device, Utilization* utilization);
// Only the card that is asked about is opened.
constexpr unsigned int attachNone = 2;

template <typename Function>
Function functionOf(void* library, const char* name) {
  return reinterpret_cast<Function>(dlsym(library, name));
}

}  // namespace

std::optional<double> nvidiaUtilization(const std::string& libraryName, const std::string& busID) {
  const std::unique_ptr<void, int (*)(void*)> library(dlopen(libraryName.c_str(), RTLD_LAZY | RTLD_LOCAL), dlclose);
  if (!library) return std::nullopt;
  const auto init = functionOf<InitWithFlags>(library.get(), "nvmlInitWithFlags");
  const auto shutdown = functionOf<Shutdown>(library.get(), "nvmlShutdown");
  const auto deviceByBusID = functionOf<DeviceByBusID>(library.get(), "nvmlDeviceGetHandleByPciBusId_v2");
  const auto getUtilization = functionOf<GetUtilization>(library.get(), "nvmlDeviceGetUtilizationRates");
  if (!init || !shutdown || !deviceByBusID || !getUtilization || init(attachNone) != 0) return std::nullopt;
  Device device = nullptr;
  Utilization utilization{};
  const bool isKnown =
      deviceByBusID(busID.c_str(), &device) == 0 && getUtilization(device, &utilization) == 0 && utilization.gpu <= 100;
  shutdown();
  return isKnown ? std::optional(utilization.gpu / 100.0) : std::nullopt;
}

}  // namespace ambrel
