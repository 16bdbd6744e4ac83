#pragma once
// The clipboard of an X server, over a connection and a thread of its own: however another application behaves, only
// that thread waits, and never longer than its patience.

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "platform/Pasteboard.h"
#include "platform/linux/pasteboard/SelectionReader.h"

namespace ambrel {

class X11Pasteboard : public Pasteboard {
 public:
  // Runs a function on the main thread, soon.
  using Post = std::function<void(std::function<void()>)>;

  // `display` as in DISPLAY; empty for the default. Null when there is no such X server, or it lacks XFixes.
  static std::unique_ptr<X11Pasteboard> open(const std::string& display, Post post, SelectionPatience patience = {});
  // Hands what it still offers to the clipboard manager, if there is one that takes it at once. No handler is called
  // from here on.
  ~X11Pasteboard() override;

  std::int64_t changeCount() const override;
  void setChangeHandler(std::function<void()> handler) override;
  void setOwnerGoneHandler(std::function<void()> handler) override;
  void read(ReadingWish wish, std::function<void(PasteboardReading)> done) override;
  std::int64_t write(std::vector<Representation> representations) override;
  std::int64_t restore(std::vector<Representation> representations) override;

  class Worker;
  struct Shared;

 private:
  std::int64_t give(std::vector<Representation> representations, bool isRestoring);
  X11Pasteboard(std::shared_ptr<Shared> shared, std::unique_ptr<Worker> worker);

  std::shared_ptr<Shared> shared_;
  std::unique_ptr<Worker> worker_;
  std::thread thread_;
};

}  // namespace ambrel
