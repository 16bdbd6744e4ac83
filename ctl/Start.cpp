// tilebayctl: keeps what a tool's hook tells, and hands everything else to the program of the commands. That one needs
// libraries which take longer to load than a hook may take: three quarters of its time.

#include <cstdio>
#include <unistd.h>

#include "ctl/Folders.h"
#include "ctl/HookCall.h"

int main(int count, char** words) {
  using namespace ambrel;
  if (const auto call = hookCall({words + 1, words + count})) {
    keepHookEvent(*call, [&] { return call->data.empty() ? dataFolder() : std::filesystem::path(call->data); });
    return 0;
  }
  std::error_code error;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  // Beside it where it was built.
  for (const char* place : {".", AMBREL_COMMANDS_FOLDER})
    execv((folder / place / "tilebayctl-commands").c_str(), words);
  std::fputs("tilebayctl: its part tilebayctl-commands is not installed\n", stderr);
  return 1;
}
