// A property list of any bytes is refused or read; nothing else may happen.

#include "core/settings/PropertyList.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ambrel::parsePropertyList(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
