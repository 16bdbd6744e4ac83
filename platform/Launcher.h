#pragma once
// What the user can start by a shortcut: installed programs, what they offer besides, and scripts of the user's own.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

struct Shortcut {
  // Of a program "org.example.Editor", of what it offers "org.example.Editor/new-window", of a script its path.
  std::string id;
  std::string name;     // "New Window"
  std::string program;  // whose it is, as people know it; of a script its folder
  std::string icon;     // a name in the icon theme or an absolute path; empty without one
  bool operator==(const Shortcut&) const = default;
};

class Launcher {
 public:
  virtual ~Launcher() = default;

  // What the installed programs offer, by name. Reads their entries, which takes some milliseconds.
  virtual std::vector<Shortcut> offered() = 0;
  // Absent when it is not installed, or no file that can be run.
  virtual std::optional<Shortcut> find(std::string_view id) = 0;
  // Starts it, without a shell; false when that cannot be done.
  virtual bool run(std::string_view id) = 0;
};

}  // namespace ambrel
