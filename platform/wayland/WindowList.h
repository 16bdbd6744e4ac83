#pragma once
// The windows of all programs, as a compositor lists them.

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/workspace/Applications.h"
#include "platform/wayland/WaylandConnection.h"

namespace ambrel {

class WindowList {
 public:
  // Null when the compositor lists none by a protocol that we know, or does not answer in time. The connection has to
  // live longer.
  static std::unique_ptr<WindowList> open(WaylandConnection& connection, SteadyTime until);
  virtual ~WindowList() = default;
  WindowList(const WindowList&) = delete;

  // Called when another window has the keyboard, or none.
  std::function<void()> activeChanged;

  // In the order in which they were last active, the most recent one at the end. The class is the application's id.
  std::vector<WindowRecord> windows() const;
  std::optional<std::uint32_t> active() const { return active_; }
  void activate(std::uint32_t id);

 protected:
  struct Window {
    WindowList* list;
    void* handle;  // the protocol's own object
    std::uint32_t id;
    std::string appID = {};
    std::optional<int> pid = {};
    bool isActive = false;
  };

  WindowList() = default;
  static Window& of(void* window) { return *static_cast<Window*>(window); }
  Window& add(void* handle);
  // All that was told of the window is in it.
  void settled(Window& window);
  void remove(Window& window);
  virtual void bringForward(void* handle) = 0;

  std::list<Window> windows_;

 private:
  void lookForActive();

  std::uint32_t lastID_ = 0;
  std::optional<std::uint32_t> active_;
};

}  // namespace ambrel
