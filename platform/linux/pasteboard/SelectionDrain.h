#pragma once
// Takes what still comes of requests that nobody waits for any more. An owner that sends a large copy in pieces waits
// until each piece has been taken; some of them serve nobody else as long as one requestor takes nothing.

#include <cstdint>
#include <vector>

#include "platform/linux/pasteboard/SelectionConnection.h"

namespace ambrel {

class SelectionDrain {
 public:
  explicit SelectionDrain(SelectionConnection& connection) : connection_(connection) {}

  // The owner has not answered this request; it may still begin to send. `time` is that of the request.
  void followRequest(xcb_atom_t property, xcb_atom_t target, xcb_timestamp_t time);
  // The owner is sending pieces into the property.
  void followPieces(xcb_atom_t property);

  // Whether something may still come into the property.
  bool uses(xcb_atom_t property) const;
  // Forgets the oldest of what is followed and gives its property back.
  xcb_atom_t releaseOldest();
  // Whether pieces are under way.
  bool isTaking() const;

  // True when the event was about something that is followed here.
  bool handle(const xcb_selection_notify_event_t& event);
  bool handle(const xcb_property_notify_event_t& event);

 private:
  struct Flow {
    xcb_atom_t property = XCB_ATOM_NONE;
    xcb_atom_t target = XCB_ATOM_NONE;
    xcb_timestamp_t time = XCB_CURRENT_TIME;
    bool isInPieces = false;
    std::uint64_t taken = 0;
  };

  SelectionConnection& connection_;
  std::vector<Flow> flows_;  // oldest first
};

}  // namespace ambrel
