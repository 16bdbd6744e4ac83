#pragma once
// The pasteboard that all applications share.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/clipboard/Capture.h"

namespace ambrel {

// What is to be fetched of a copy.
struct ReadingWish {
  bool wantsPicture = true;
  CaptureLimits limits = {};
};

// What was found on the pasteboard; empty when it is private or empty.
struct PasteboardReading {
  std::int64_t changeCount = 0;  // the change that was read
  std::vector<std::string> types;
  PasteboardContents contents;
};

// No call waits for another application. Handlers run on the main thread.
class Pasteboard {
 public:
  virtual ~Pasteboard() = default;

  // Differs after every change that an application makes, and after every `write`.
  virtual std::int64_t changeCount() const = 0;
  // `handler` is called soon after a change by another application; once for several that follow each other quickly.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
  // `handler` is called when the application whose copy lay on the pasteboard has ended and left it empty. That is
  // no change. An application that clears the pasteboard on purpose does not come here.
  virtual void setOwnerGoneHandler(std::function<void()> handler) = 0;

  // Fetches what is worth keeping and hands it over later. A new call, or a change meanwhile, abandons the one
  // before; its `done` is never called then.
  virtual void read(ReadingWish wish, std::function<void(PasteboardReading)> done) = 0;

  // Puts the representations on the pasteboard and answers later requests for them; with none, clears it. Returns
  // the change count that belongs to this write.
  virtual std::int64_t write(std::vector<Representation> representations) = 0;
  // As `write`, but only while nobody owns the pasteboard: what another application copies in the meantime stays, and
  // is told as a change.
  virtual std::int64_t restore(std::vector<Representation> representations) = 0;
};

}  // namespace ambrel
