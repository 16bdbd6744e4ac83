#pragma once

#include <algorithm>

#include "platform/Launcher.h"

namespace ambrel {

class FakeLauncher : public Launcher {
 public:
  std::vector<Shortcut> offered() override { return programs; }
  std::optional<Shortcut> find(std::string_view id) override {
    for (const auto* list : {&programs, &scripts})
      if (const auto found = std::ranges::find(*list, id, &Shortcut::id); found != list->end()) return *found;
    return std::nullopt;
  }
  bool run(std::string_view id) override {
    if (!find(id)) return false;
    started.emplace_back(id);
    return true;
  }

  std::vector<Shortcut> programs, scripts;
  std::vector<std::string> started;
};

}  // namespace ambrel
