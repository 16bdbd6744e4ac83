#pragma once
// Fetches what the owner of the clipboard offers, step by step as its answers come. It never waits: it says until
// when it is willing to, and is told what happened.

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/pasteboard/PasteboardThread.h"
#include "platform/linux/pasteboard/SelectionConnection.h"
#include "platform/linux/pasteboard/SelectionDrain.h"

namespace ambrel {

class SelectionReader {
 public:
  SelectionReader(SelectionConnection& connection, SelectionPatience patience);

  // Starts again; an unfinished reading is abandoned. `time` is when the owner took the selection.
  void start(xcb_timestamp_t time, ReadingWish wish, SteadyTime now, std::function<void(PasteboardOutcome)> done);
  // Nobody wants the outcome any more. A transfer that has begun is still taken to its end.
  void cancel();
  bool isReading() const { return step_ != Step::idle; }
  // Whether pieces of abandoned transfers still come.
  bool isDraining() const { return drain_.isTaking(); }
  // The owner has taken the selection again; it is asked as of then.
  void ownerTookAnew(xcb_timestamp_t time) { time_ = time; }
  // The owner is gone: what has not arrived will not arrive.
  void ownerIsGone();

  void handle(const xcb_selection_notify_event_t& event, SteadyTime now);
  void handle(const xcb_property_notify_event_t& event, SteadyTime now);
  std::optional<SteadyTime> deadline() const;
  void checkDeadline(SteadyTime now);

 private:
  enum class Step {
    idle,
    targets,  // the list of types was asked for
    data,     // a type was asked for
    pieces,   // it comes in pieces
    excess,   // it comes in pieces beyond the limit, which are counted
  };

  void convert(xcb_atom_t target, std::chrono::milliseconds patience, SteadyTime now);
  void takeTargets(const xcb_selection_notify_event_t& event, SteadyTime now);
  void takeData(const xcb_selection_notify_event_t& event, SteadyTime now);
  void takePiece(SteadyTime now);
  void countPiece(SteadyTime now);
  void askAgain(SteadyTime now);
  void leave();
  void fetched(Fetched attempt, SteadyTime now);
  void fetchNext(SteadyTime now);
  void finish();

  SelectionConnection& connection_;
  SelectionPatience patience_;
  std::vector<xcb_atom_t> properties_;  // taken in turn, so that a late answer is not mistaken for a new one

  Step step_ = Step::idle;
  xcb_timestamp_t time_ = XCB_CURRENT_TIME;  // when the owner took the selection
  xcb_timestamp_t requestTime_ = XCB_CURRENT_TIME;
  ReadingWish wish_;
  bool hasAskedTwice_ = false;
  std::optional<LostCopy> lost_;
  SelectionDrain drain_;
  SteadyTime stepDeadline_, wholeDeadline_;
  xcb_atom_t target_ = XCB_ATOM_NONE, property_ = XCB_ATOM_NONE;
  std::string type_;
  std::string pieces_;
  std::uint64_t excess_ = 0;
  std::vector<std::string> types_;
  std::vector<Fetched> fetched_;
  std::function<void(PasteboardOutcome)> done_;
};

}  // namespace ambrel
