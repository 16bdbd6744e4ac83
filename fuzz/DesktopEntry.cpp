// Desktop entries are written by any package; their commands are cut into arguments without a shell.

#include "core/workspace/DesktopEntry.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto entry = ambrel::parseDesktopEntry("id", {reinterpret_cast<const char*>(data), size});
  if (!entry) return 0;
  const auto command = ambrel::commandOf(*entry, "/file.desktop");
  if (command && (command->empty() || command->front().empty())) std::abort();
  return 0;
}
