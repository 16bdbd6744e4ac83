// A defaults file of any bytes: what it holds is there again after a change, or it is set aside whole.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/settings.h"

using namespace ambrel;

namespace {

void check(bool holds) {
  if (!holds) __builtin_trap();
}

// In memory, one for each process.
const std::filesystem::path& file() {
  static const std::filesystem::path path = [] {
    const auto folder = std::filesystem::path("/dev/shm") / ("ambrel-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    return folder / "defaults.json";
  }();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::ofstream(file(), std::ios::binary | std::ios::trunc) << bytes;
  auto aside = file();
  aside += ".unreadable";
  std::filesystem::remove(aside);

  UserDefaults defaults(file());
  loadSettings(defaults);
  DefaultsDictionary expected = defaults.all();
  const bool wasEmpty = expected.empty();
  const auto value = expected.contains("added") ? DefaultsValue{std::string("other")} : DefaultsValue{true};
  expected.insert_or_assign("added", value);
  defaults.set("added", value);
  check(UserDefaults(file()).all() == expected);
  if (std::filesystem::exists(aside)) check(wasEmpty && readFile(aside) == bytes);
  return 0;
}
