#pragma once
// Owns the clipboard on our behalf and answers those who want to paste.

#include <chrono>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/clipboard/Capture.h"
#include "platform/linux/pasteboard/PasteboardThread.h"
#include "platform/linux/pasteboard/SelectionConnection.h"

namespace ambrel {

class SelectionServer {
 public:
  explicit SelectionServer(SelectionConnection& connection);

  // Takes the clipboard; with nothing to offer, clears it. It happens with the server's next answer.
  // When restoring, an owner that there is by then keeps it.
  void offer(std::vector<Representation> representations, bool isRestoring);
  // The last offer was not made, since another had taken the clipboard before it.
  bool hasYielded() const { return hasYielded_; }
  bool isOwner() const { return offer_ != nullptr; }
  // The server's time of the last clearing of our own.
  std::optional<xcb_timestamp_t> clearTime() const { return clearTime_; }

  void handle(const xcb_selection_request_event_t& event, SteadyTime now);
  void handle(const xcb_selection_clear_event_t& event);
  void handle(const xcb_property_notify_event_t& event, SteadyTime now);
  void handle(const xcb_destroy_notify_event_t& event);

  // Transfers whose requestor has stopped taking pieces end.
  std::optional<SteadyTime> deadline() const;
  void checkDeadline(SteadyTime now);

  // Asks the clipboard manager, if there is one, to take over what we offer; true when an answer is to be waited for.
  bool askManagerToSave();

 private:
  struct Data {
    xcb_atom_t type = XCB_ATOM_NONE;
    std::shared_ptr<const std::string> bytes;
  };
  struct Offer {
    xcb_timestamp_t since = XCB_CURRENT_TIME;
    std::vector<xcb_atom_t> targets;  // as TARGETS lists them
    std::map<xcb_atom_t, std::shared_ptr<const Data>> dataByTarget;
  };
  // A piecewise transfer under way.
  struct Transfer {
    xcb_window_t requestor = XCB_WINDOW_NONE;
    xcb_atom_t property = XCB_ATOM_NONE;
    std::shared_ptr<const Data> data;
    std::size_t sent = 0;
    SteadyTime deadline;
  };

  void acquire(xcb_timestamp_t time);
  std::shared_ptr<const Offer> makeOffer(xcb_timestamp_t time) const;
  bool answer(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property, SteadyTime now);
  bool answerMultiple(xcb_window_t requestor, xcb_atom_t property, SteadyTime now);
  void beginTransfer(xcb_window_t requestor, xcb_atom_t property, std::shared_ptr<const Data> data, SteadyTime now);
  std::list<Transfer>::iterator endTransfer(std::list<Transfer>::iterator transfer);

  SelectionConnection& connection_;
  std::size_t pieceSize_;
  std::optional<std::vector<Representation>> pending_;
  bool isRestoring_ = false;
  bool hasYielded_ = false;
  std::shared_ptr<const Offer> offer_;
  std::optional<xcb_timestamp_t> clearTime_;
  std::list<Transfer> transfers_;
};

}  // namespace ambrel
