#pragma once
// What there is to say of a Git repository at a glance.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace ambrel {

struct GitState {
  // What is under way, until it is concluded or given up.
  enum class Operation { none, merge, revert, cherryPick, bisect, rebase, applyMail };

  struct Upstream {
    std::string name;  // "origin/main"
    bool isGone = false;
    std::size_t ahead = 0, behind = 0;  // commits
    bool operator==(const Upstream&) const = default;
  };
  // Files; a new folder counts as one. A file may be both staged and changed.
  struct Changes {
    std::size_t staged = 0, changed = 0, untracked = 0, conflicts = 0;
    bool operator==(const Changes&) const = default;
  };

  std::filesystem::path top;  // of the working tree; of a bare repository the folder itself
  bool isBare = false;
  std::string branch = {};  // during a rebase the one that is rebased; empty while HEAD is detached
  std::string commit = {};  // seven digits; empty before the first commit
  std::optional<Upstream> upstream = {};
  std::optional<Changes> changes = {};  // absent where there is no working tree, or it took too long to look at it
  std::size_t stashes = 0;
  Operation operation = Operation::none;
  int step = 0, steps = 0;  // of a rebase; 0: not known

  bool operator==(const GitState&) const = default;
};

}  // namespace ambrel
