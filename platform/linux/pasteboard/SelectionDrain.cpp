#include "platform/linux/pasteboard/SelectionDrain.h"

#include <algorithm>

namespace ambrel {
namespace {

// An owner whose copy never ends is left alone at some point.
constexpr std::uint64_t mostTaken = 4ull << 30;

}  // namespace

void SelectionDrain::followRequest(xcb_atom_t property, xcb_atom_t target, xcb_timestamp_t time) {
  flows_.push_back({.property = property, .target = target, .time = time});
}

void SelectionDrain::followPieces(xcb_atom_t property) { flows_.push_back({.property = property, .isInPieces = true}); }

bool SelectionDrain::uses(xcb_atom_t property) const {
  return std::ranges::find(flows_, property, &Flow::property) != flows_.end();
}

xcb_atom_t SelectionDrain::releaseOldest() {
  const xcb_atom_t property = flows_.front().property;
  flows_.erase(flows_.begin());
  return property;
}

bool SelectionDrain::isTaking() const { return std::ranges::any_of(flows_, &Flow::isInPieces); }

bool SelectionDrain::handle(const xcb_selection_notify_event_t& event) {
  const auto flow = std::ranges::find_if(flows_, [&](const Flow& one) {
    // A refusal names no property; owners answer in the order of the requests, so it is for the oldest.
    return !one.isInPieces &&
           (event.property == one.property ||
            (event.property == XCB_ATOM_NONE && event.target == one.target && event.time == one.time));
  });
  if (flow == flows_.end()) return false;
  const bool hasBegun =
      event.property != XCB_ATOM_NONE && connection_.dropProperty(flow->property).type == connection_.atoms().incr;
  if (hasBegun)
    flow->isInPieces = true;
  else
    flows_.erase(flow);
  return true;
}

bool SelectionDrain::handle(const xcb_property_notify_event_t& event) {
  const auto flow = std::ranges::find(flows_, event.atom, &Flow::property);
  if (flow == flows_.end()) return false;
  if (!flow->isInPieces || event.state != XCB_PROPERTY_NEW_VALUE) return true;
  const auto dropped = connection_.dropProperty(flow->property);
  // Two pieces may have been taken at once; the second message then finds nothing.
  if (dropped.type == XCB_ATOM_NONE) return true;
  flow->taken += dropped.size;
  if (dropped.size == 0 || flow->taken > mostTaken) flows_.erase(flow);
  return true;
}

}  // namespace ambrel
