#pragma once
// A connection to the X server for one selection alone, used by one thread.

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>
#include <xcb/xcb.h>

namespace ambrel {

// What xcb hands out has to be freed with free().
struct XFree {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using XReply = std::unique_ptr<T, XFree>;

struct SelectionAtoms {
  xcb_atom_t clipboard, clipboardManager, targets, multiple, timestamp, saveTargets, incr, atomPair, null;
  xcb_atom_t utf8String, text;
  xcb_atom_t clock;  // a property of our window; its changes tell the server's time
};

class SelectionConnection {
 public:
  // `display` as in DISPLAY; empty for the default. Null when there is no such server or it lacks XFixes.
  static std::unique_ptr<SelectionConnection> open(const std::string& display);
  ~SelectionConnection();
  SelectionConnection(const SelectionConnection&) = delete;

  xcb_connection_t* xcb() const { return connection_; }
  xcb_window_t window() const { return window_; }
  const SelectionAtoms& atoms() const { return atoms_; }
  std::uint8_t xfixesEvent() const { return xfixesEvent_; }
  bool isBroken() const { return xcb_connection_has_error(connection_) != 0; }

  xcb_atom_t atom(std::string_view name);
  // The names in the order given; "" for an atom that does not exist or whose name is too long.
  std::vector<std::string> names(std::span<const xcb_atom_t> atoms);

  xcb_window_t owner(xcb_atom_t selection);

  struct Property {
    xcb_atom_t type = XCB_ATOM_NONE;  // none: there is no such property
    std::uint8_t format = 0;
    std::string bytes;
    bool isTooLarge = false;  // more than the limit; the bytes are dropped
    std::uint64_t size = 0;   // in bytes, of what is dropped too
  };
  // The property of our window, which is deleted. Fetched in pieces, so that neither a reply nor what is kept grows
  // beyond `limit` by more than a mebibyte.
  Property takeProperty(xcb_atom_t property, std::size_t limit);
  // Deletes the property of our window without fetching it; tells its type and size.
  Property dropProperty(xcb_atom_t property);

 private:
  explicit SelectionConnection(xcb_connection_t* connection) : connection_(connection) {}
  bool prepare(int screenNumber);

  xcb_connection_t* connection_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  SelectionAtoms atoms_{};
  std::uint8_t xfixesEvent_ = 0;
  std::unordered_map<std::string, xcb_atom_t> atomsByName_;
  std::unordered_map<xcb_atom_t, std::string> namesByAtom_;
};

}  // namespace ambrel
