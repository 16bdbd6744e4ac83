#pragma once
// The files of /proc and /sys of a computer, from one text: "=== path = line" is a file of one line, and
// after "=== path" the lines of another follow.

#include <fstream>
#include <sstream>

#include "tests/TemporaryFolder.h"

namespace ambrel {

class MachineTree : public TemporaryFolder {
 public:
  // cases: the folder of the test data. Without a name the machine has nothing.
  explicit MachineTree(const std::string& cases, const std::string& name = {}) {
    if (name.empty()) return;
    std::ifstream file(cases + "/telemetry/" + name + ".tree");
    if (!file) throw std::runtime_error("no machine " + name);
    constexpr std::string_view mark = "=== ";
    std::string line, path, text;
    const auto finish = [&] {
      if (!path.empty()) write(path, text);
      text.clear();
    };
    while (std::getline(file, line)) {
      if (!line.starts_with(mark)) {
        text += line + "\n";
        continue;
      }
      finish();
      const std::size_t sign = line.find(" = ");
      path = line.substr(mark.size(), sign - mark.size());
      if (sign != std::string::npos) text = line.substr(sign + 3) + "\n";
    }
    finish();
  }

  void remove(std::string_view relative) const { std::filesystem::remove_all(path() / relative); }
};

}  // namespace ambrel
