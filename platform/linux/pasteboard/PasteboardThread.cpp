#include "platform/linux/pasteboard/PasteboardThread.h"

#include <algorithm>
#include <sys/eventfd.h>
#include <unistd.h>

namespace ambrel {

std::optional<SteadyTime> earlier(std::optional<SteadyTime> one, std::optional<SteadyTime> other) {
  if (!one || !other) return one ? one : other;
  return std::min(*one, *other);
}

int millisecondsUntil(std::optional<SteadyTime> deadline) {
  if (!deadline) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - std::chrono::steady_clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
}

FileDescriptor PasteboardMailbox::makeWake() { return FileDescriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)); }

void PasteboardMailbox::give(PasteboardCommand command) {
  {
    const std::scoped_lock lock(mutex_);
    commands_.push_back(std::move(command));
  }
  const std::uint64_t one = 1;
  // It can fail only when the thread is being woken already.
  [[maybe_unused]] const auto written = ::write(wake_.get(), &one, sizeof one);
}

std::vector<PasteboardCommand> PasteboardMailbox::takeCommands() {
  std::uint64_t count = 0;
  [[maybe_unused]] const auto got = ::read(wake_.get(), &count, sizeof count);
  const std::scoped_lock lock(mutex_);
  return std::exchange(commands_, {});
}

void PasteboardMailbox::deliver(std::uint64_t number, PasteboardOutcome outcome) {
  auto reading = std::make_shared<PasteboardReading>(
      PasteboardReading{changeCount, std::move(outcome.types), std::move(outcome.contents)});
  post_([self = shared_from_this(), number, reading] {
    if (number != self->readNumber) return;
    if (const auto done = std::exchange(self->readDone, nullptr)) done(std::move(*reading));
  });
}

void PasteboardMailbox::announceChange() {
  ++changeCount;
  if (isChangePosted_.exchange(true)) return;
  post_([self = shared_from_this()] {
    self->isChangePosted_ = false;
    if (self->changeHandler) self->changeHandler();
  });
}

void PasteboardMailbox::announceOwnerGone() {
  post_([self = shared_from_this()] {
    if (self->ownerGoneHandler) self->ownerGoneHandler();
  });
}

ThreadedPasteboard::ThreadedPasteboard(std::shared_ptr<PasteboardMailbox> mailbox, std::unique_ptr<Worker> worker)
    : mailbox_(std::move(mailbox)), worker_(std::move(worker)), thread_([this] { worker_->run(); }) {}

ThreadedPasteboard::~ThreadedPasteboard() {
  mailbox_->changeHandler = nullptr;
  mailbox_->ownerGoneHandler = nullptr;
  mailbox_->readDone = nullptr;
  mailbox_->give(StopCommand{});
  thread_.join();
}

void ThreadedPasteboard::read(ReadingWish wish, std::function<void(PasteboardReading)> done) {
  mailbox_->readDone = std::move(done);
  mailbox_->give(ReadCommand{wish, ++mailbox_->readNumber});
}

std::int64_t ThreadedPasteboard::write(std::vector<Representation> representations) {
  return give(std::move(representations), false);
}

std::int64_t ThreadedPasteboard::restore(std::vector<Representation> representations) {
  return give(std::move(representations), true);
}

std::int64_t ThreadedPasteboard::give(std::vector<Representation> representations, bool isRestoring) {
  ++mailbox_->pendingWrites;
  // A reading under way is of contents that are no longer there.
  mailbox_->readDone = nullptr;
  ++mailbox_->readNumber;
  const std::int64_t count = ++mailbox_->changeCount;
  mailbox_->give(WriteCommand{std::move(representations), isRestoring});
  return count;
}

}  // namespace ambrel
