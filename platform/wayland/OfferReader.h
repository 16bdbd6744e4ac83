#pragma once
// Fetches what the owner of the clipboard offers, one type after another, through pipes that it writes to. It never
// waits: it says what for and until when, and is told what happened.

#include <cstdint>
#include <functional>
#include <optional>
#include <poll.h>
#include <string>
#include <vector>

#include "platform/linux/pasteboard/PasteboardThread.h"

namespace ambrel {

class OfferReader {
 public:
  // Asks the owner for a type; what it writes can be read from the descriptor, without waiting.
  using Receive = std::function<FileDescriptor(const std::string& type)>;

  OfferReader(Receive receive, SelectionPatience patience);

  // Starts again; an unfinished reading is abandoned.
  void start(std::vector<std::string> types, ReadingWish wish, SteadyTime now,
             std::function<void(PasteboardOutcome)> done);
  // Nobody wants the outcome any more.
  void cancel();
  bool isReading() const { return done_ != nullptr; }

  void addTo(std::vector<pollfd>& files) const;
  // Of a file that can be read.
  void handle(int descriptor, SteadyTime now);
  std::optional<SteadyTime> deadline() const;
  void checkDeadline(SteadyTime now);

 private:
  // What nobody waits for any more. It is read to its end all the same: an owner whose pipe is closed may end of that.
  struct Rest {
    FileDescriptor pipe;
    std::uint64_t taken = 0;
  };

  void ask(std::chrono::milliseconds patience, SteadyTime now);
  void take(std::size_t count, SteadyTime now);
  void ended(SteadyTime now);
  void leave();
  void fetched(Fetched attempt, SteadyTime now);
  void fetchNext(SteadyTime now);
  void finish();

  Receive receive_;
  SelectionPatience patience_;
  std::string buffer_;

  std::vector<std::string> types_;
  ReadingWish wish_;
  std::function<void(PasteboardOutcome)> done_;
  std::vector<Fetched> fetched_;
  SteadyTime stepDeadline_, wholeDeadline_;

  std::string type_;
  FileDescriptor pipe_;
  std::string bytes_;
  std::uint64_t excess_ = 0;  // bytes of what is too large, which are counted and dropped
  bool hasAskedTwice_ = false;

  std::vector<Rest> rests_;  // oldest first
};

}  // namespace ambrel
