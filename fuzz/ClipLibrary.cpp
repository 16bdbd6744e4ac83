// A library file of any bytes: it is refused, or it goes through a file and back unchanged.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/base/JSON.h"
#include "core/clipboard.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto json = parseJSON(std::string_view(reinterpret_cast<const char*>(data), size));
  if (!json) return 0;
  ClipboardLibrary library;
  try {
    library = json->get<ClipboardLibrary>();
  } catch (const DecodingError&) {
    return 0;
  } catch (const JSON::exception&) {
    return 0;
  }
  const auto again = parseJSON(prettyJSON(JSON(library)));
  if (!again || again->get<ClipboardLibrary>() != library) __builtin_trap();
  if (!library.items.empty()) {
    const std::size_t before = library.items.size();
    const auto evicted = library.add(ClipItem(library.items.back()), 3);
    if (library.items.size() + evicted.size() > before) __builtin_trap();
  }
  return 0;
}
