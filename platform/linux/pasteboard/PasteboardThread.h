#pragma once
// A pasteboard whose connection belongs to a thread of its own: however another application behaves, only that thread
// waits. The two threads meet in a mailbox.

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <variant>
#include <vector>

#include "core/base/Files.h"
#include "platform/Pasteboard.h"

namespace ambrel {

using SteadyTime = std::chrono::steady_clock::time_point;

// How long an owner may take. One that exceeds them counts as not having what it was asked for.
struct SelectionPatience {
  std::chrono::milliseconds targets{1000};  // until it says what it offers; X11 alone asks for that
  std::chrono::milliseconds data{3000};     // until the data, or their first piece, are there
  std::chrono::milliseconds again{15000};   // for either, when it is asked a second time
  std::chrono::milliseconds piece{5000};    // between two pieces
  std::chrono::milliseconds excess{3000};   // to learn the size of what is too large
  std::chrono::milliseconds whole{60000};   // for everything together
};

std::optional<SteadyTime> earlier(std::optional<SteadyTime> one, std::optional<SteadyTime> other);
// For poll(): -1 without a deadline, at most a minute.
int millisecondsUntil(std::optional<SteadyTime> deadline);

// What was found on the pasteboard.
struct PasteboardOutcome {
  std::vector<std::string> types;
  PasteboardContents contents;
};

struct ReadCommand {
  ReadingWish wish;
  std::uint64_t number = 0;
};
struct WriteCommand {
  std::vector<Representation> representations;
  bool isRestoring = false;
};
struct StopCommand {};
using PasteboardCommand = std::variant<ReadCommand, WriteCommand, StopCommand>;

// Runs a function on the main thread, soon.
using PostToMain = std::function<void(std::function<void()>)>;

class PasteboardMailbox : public std::enable_shared_from_this<PasteboardMailbox> {
 public:
  explicit PasteboardMailbox(PostToMain post) : post_(std::move(post)) {}

  // Of the main thread.
  void give(PasteboardCommand command);

  // Of the pasteboard's thread. `wakeDescriptor` can be read when there are commands.
  int wakeDescriptor() const { return wake_.get(); }
  std::vector<PasteboardCommand> takeCommands();
  void deliver(std::uint64_t readNumber, PasteboardOutcome outcome);
  void announceChange();
  void announceOwnerGone();

  std::atomic<std::int64_t> changeCount{1};
  std::atomic<int> pendingWrites{0};  // writes that have not become visible yet

  // The main thread alone sets and calls them.
  std::function<void()> changeHandler, ownerGoneHandler;
  std::uint64_t readNumber = 0;
  std::function<void(PasteboardReading)> readDone;

 private:
  PostToMain post_;
  std::atomic<bool> isChangePosted_{false};
  std::mutex mutex_;
  std::vector<PasteboardCommand> commands_;
  FileDescriptor wake_ = makeWake();

  static FileDescriptor makeWake();
};

class ThreadedPasteboard : public Pasteboard {
 public:
  class Worker {
   public:
    virtual ~Worker() = default;
    // On the pasteboard's thread, until a StopCommand comes.
    virtual void run() = 0;
  };

  ThreadedPasteboard(std::shared_ptr<PasteboardMailbox> mailbox, std::unique_ptr<Worker> worker);
  // Waits for the worker's end. No handler is called from here on.
  ~ThreadedPasteboard() override;

  std::int64_t changeCount() const override { return mailbox_->changeCount; }
  void setChangeHandler(std::function<void()> handler) override { mailbox_->changeHandler = std::move(handler); }
  void setOwnerGoneHandler(std::function<void()> handler) override { mailbox_->ownerGoneHandler = std::move(handler); }
  void read(ReadingWish wish, std::function<void(PasteboardReading)> done) override;
  std::int64_t write(std::vector<Representation> representations) override;
  std::int64_t restore(std::vector<Representation> representations) override;

 private:
  std::int64_t give(std::vector<Representation> representations, bool isRestoring);

  std::shared_ptr<PasteboardMailbox> mailbox_;
  std::unique_ptr<Worker> worker_;
  std::thread thread_;
};

}  // namespace ambrel
