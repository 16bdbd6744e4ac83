#pragma once
// Connected drives and addresses of the network.

#include <filesystem>
#include <optional>
#include <vector>

#include "core/telemetry/Volumes.h"

namespace ambrel {

// Drives by name, then the folders of other computers.
std::optional<std::vector<VolumeInfo>> readVolumes(const std::filesystem::path& root);
// The addresses are those of this computer; which interface leads out is read below `root`.
std::vector<NetworkAddress> readAddresses(const std::filesystem::path& root);

}  // namespace ambrel
