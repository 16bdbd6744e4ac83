#pragma once
// The name of the theme that the desktop gives its programs.

#include <functional>
#include <string>

namespace ambrel {

class DesktopTheme {
 public:
  virtual ~DesktopTheme() = default;

  // As in "Adwaita-dark"; empty where the desktop announces none.
  virtual std::string name() const = 0;
  // `handler` is called on the main thread after the name has changed.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
};

}  // namespace ambrel
