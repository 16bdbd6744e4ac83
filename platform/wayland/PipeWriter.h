#pragma once
// Writes what others paste into their pipes. It never waits: it says what for and until when.

#include <list>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <vector>

#include "platform/linux/pasteboard/PasteboardThread.h"

namespace ambrel {

class PipeWriter {
 public:
  void add(std::shared_ptr<const std::string> bytes, FileDescriptor to, SteadyTime now);

  void addTo(std::vector<pollfd>& files) const;
  // Of a file that can be written to.
  void handle(int descriptor, SteadyTime now);
  // Transfers whose reader has stopped taking end.
  std::optional<SteadyTime> deadline() const;
  void checkDeadline(SteadyTime now);

 private:
  struct Transfer {
    FileDescriptor to;
    std::shared_ptr<const std::string> bytes;
    SteadyTime deadline;
    std::size_t sent = 0;
  };
  std::list<Transfer> transfers_;
};

}  // namespace ambrel
