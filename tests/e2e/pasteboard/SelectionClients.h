#pragma once
// Other applications, played by tests: owners of the clipboard that behave or do not, and one that pastes. They speak
// X11 or Wayland, as the test program has been linked; what is marked as one's own, the other lacks.

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/pasteboard/PasteboardThread.h"

namespace ambrel {

// Of the desktop that the test runs on.
std::unique_ptr<Pasteboard> openTestedPasteboard(PostToMain post, SelectionPatience patience);

// How an owner treats a request for one of its types.
enum class Manner {
  whole,         // at once
  pieces,        // in pieces, as the conventions have it
  refuses,       // says that it has none
  silent,        // never answers
  stopsHalfWay,  // in pieces, of which it sends one
  diesHalfWay,   // in pieces; ends after the first (X11)
  neverEnds,     // in pieces without end
  wrongFormat,   // as 32-bit numbers (X11)
  emptyFirst,    // refuses the first time
  silentFirst,   // does not answer the first time
};

struct Offer {
  Manner manner = Manner::whole;
  std::string bytes = {};
  std::uint32_t announced = 0;  // the size that it says beforehand, in pieces (X11)
  std::size_t pieceSize = 100'000;
};

// An application that owns the clipboard. It has a thread and a connection of its own.
class OwnerClient {
 public:
  explicit OwnerClient(std::map<std::string, Offer> offers);
  ~OwnerClient();

  // How it treats the question what it offers (X11), and what it lists besides its offers.
  Manner targetsManner = Manner::whole;
  std::vector<std::string> furtherTargets;
  bool takesAnewWhenAsked = false;

  // Takes the clipboard; it is taken when this returns.
  void copy();
  // Gives it up on purpose.
  void clear();
  // Ends the connection, as a process that quits does.
  void quit();
  // Those that have stopped half-way go on to the end (Wayland).
  void goOn();
  // The types it was asked for, in order.
  std::vector<std::string> asked() const;
  // How often it was asked what it offers (X11).
  int timesAskedForTargets() const;
  // The transfers in pieces that it has begun and not brought to their end.
  int openTransfers() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// An application that pastes. All calls wait for the answer, a few seconds at most.
class RequestorClient {
 public:
  RequestorClient();
  ~RequestorClient();

  struct Answer {
    std::string type;
    int format = 0;
    std::string bytes;
    bool wasInPieces = false;
  };
  // Absent when the owner refuses, or does not answer. `onPiece` returns false to stop taking.
  std::optional<Answer> paste(const std::string& target, const std::function<bool()>& onPiece = nullptr);
  // What the owner says that it offers.
  std::vector<std::string> targets();
  // Another one after each taking of the clipboard.
  std::string stamp();
  // Asks for two types in one request; a refused one is absent (X11).
  std::vector<std::optional<std::string>> pasteMultiple(const std::vector<std::string>& targets);
  bool hasOwner();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace ambrel
