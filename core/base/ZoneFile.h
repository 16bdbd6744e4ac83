#pragma once

#include <filesystem>
#include <string>

namespace ambrel {

// The IANA name of the zone that a link such as /etc/localtime leads to; "" when it leads to none.
std::string zoneOfFile(const std::filesystem::path& file);

}  // namespace ambrel
