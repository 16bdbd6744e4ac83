// A process chooses its own name and arguments.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/workspace/Applications.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ambrel::ProcessRecord process = ambrel::parseProcessStat(text).value_or(ambrel::ProcessRecord{});
  process.arguments = ambrel::parseProcessArguments(text);
  process.windowID = ambrel::parseWindowID(text);
  ambrel::agentOf(process);
  ambrel::processTree({process}, process.parent);
  return 0;
}
