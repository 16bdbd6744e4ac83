#include "ctl/Folders.h"

#include <cstdlib>
#include <pwd.h>
#include <stdexcept>
#include <unistd.h>

namespace ambrel {
namespace {

// Our own folder below the one that a variable names, else below `fallback` in the home folder.
std::filesystem::path folder(const char* name, const char* fallback) {
  // A relative path there counts as none.
  if (const std::filesystem::path given = environmentVariable(name); given.is_absolute()) return given / "Ambrel";
  return userHome() / fallback / "Ambrel";
}

}  // namespace

std::string environmentVariable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::filesystem::path userHome() {
  if (const std::string home = environmentVariable("HOME"); !home.empty()) return home;
  if (const passwd* user = getpwuid(getuid()); user && user->pw_dir) return user->pw_dir;
  throw std::runtime_error("there is no home folder: HOME is not set");
}

std::filesystem::path dataFolder() { return folder("XDG_DATA_HOME", ".local/share"); }
std::filesystem::path configFolder() { return folder("XDG_CONFIG_HOME", ".config"); }

std::filesystem::path calculatorProgram() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "tilebayctl-calculate";
}

}  // namespace ambrel
