#include "platform/linux/pasteboard/X11Pasteboard.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <variant>
#include <xcb/xfixes.h>

#include "core/base/Files.h"
#include "platform/linux/pasteboard/SelectionConnection.h"
#include "platform/linux/pasteboard/SelectionServer.h"

namespace ambrel {
namespace {

// How long the end of the program may wait for a clipboard manager.
constexpr std::chrono::milliseconds savePatience{300};

// Some applications take the clipboard again whenever they are asked for it, and each change brings another reading.
// After this many such changes in a row they count no longer.
constexpr int mostEchoes = 5;

struct ReadCommand {
  ReadingWish wish;
  std::uint64_t number = 0;
};
struct WriteCommand {
  std::vector<Representation> representations;
  bool isRestoring = false;
};
struct StopCommand {};
using Command = std::variant<ReadCommand, WriteCommand, StopCommand>;

template <typename T>
const T& as(const xcb_generic_event_t& event) {
  return reinterpret_cast<const T&>(event);
}

}  // namespace

// What both threads use. Handlers are set and called on the main thread alone.
struct X11Pasteboard::Shared {
  std::atomic<std::int64_t> changeCount{1};
  std::atomic<int> pendingWrites{0};  // writes that have not become visible yet
  std::atomic<bool> isChangePosted{false};

  std::mutex mutex;
  std::vector<Command> commands;
  FileDescriptor wake{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};

  Post post;
  std::function<void()> changeHandler, ownerGoneHandler;
  std::uint64_t readNumber = 0;
  std::function<void(PasteboardReading)> readDone;

  void give(Command command) {
    {
      const std::scoped_lock lock(mutex);
      commands.push_back(std::move(command));
    }
    const std::uint64_t one = 1;
    // It can fail only when the thread is being woken already.
    [[maybe_unused]] const auto written = ::write(wake.get(), &one, sizeof one);
  }

  std::vector<Command> takeCommands() {
    std::uint64_t count = 0;
    [[maybe_unused]] const auto got = ::read(wake.get(), &count, sizeof count);
    const std::scoped_lock lock(mutex);
    return std::exchange(commands, {});
  }
};

class X11Pasteboard::Worker {
 public:
  Worker(std::unique_ptr<SelectionConnection> connection, std::shared_ptr<Shared> shared, SelectionPatience patience)
      : shared_(std::move(shared)),
        connection_(std::move(connection)),
        reader_(*connection_, patience),
        server_(*connection_) {}

  void run() {
    for (step(); !isStopping_ && !connection_->isBroken(); step()) wait(nextDeadline());
    if (connection_->isBroken()) std::fputs("Ambrel: the clipboard's connection to the X server is lost\n", stderr);
    saveAtEnd();
  }

 private:
  static SteadyTime now() { return std::chrono::steady_clock::now(); }

  void step() {
    for (Command& command : shared_->takeCommands()) std::visit([this](auto& one) { carryOut(one); }, command);
    // Reading a reply, and writing much, may bring events along that poll() then does not report; so there must be
    // none left at the end.
    for (;;) {
      XReply<xcb_generic_event_t> event(xcb_poll_for_event(connection_->xcb()));
      if (!event) {
        reader_.checkDeadline(now());
        server_.checkDeadline(now());
        xcb_flush(connection_->xcb());
        event.reset(xcb_poll_for_queued_event(connection_->xcb()));
        if (!event) return;
      }
      handle(*event);
    }
  }

  std::optional<SteadyTime> nextDeadline() const {
    const auto one = reader_.deadline(), other = server_.deadline();
    if (!one || !other) return one ? one : other;
    return std::min(*one, *other);
  }

  void wait(std::optional<SteadyTime> until) const {
    std::array<pollfd, 2> files{
        {{xcb_get_file_descriptor(connection_->xcb()), POLLIN, 0}, {shared_->wake.get(), POLLIN, 0}}};
    int milliseconds = -1;
    if (until) {
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(*until - now()).count();
      milliseconds = static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
    }
    poll(files.data(), files.size(), milliseconds);
  }

  void carryOut(const ReadCommand& command) {
    // What we have written ourselves is not reported to anyone.
    if (server_.isOwner() || shared_->pendingWrites > 0) return deliver(command.number, {});
    hasEcho_ = false;
    reader_.start(ownerTime_, command.wish, now(), [this, number = command.number](SelectionReader::Outcome outcome) {
      deliver(number, std::move(outcome));
      if (std::exchange(hasEcho_, false)) announceChange();
    });
  }

  void carryOut(WriteCommand& command) {
    reader_.cancel();
    server_.offer(std::move(command.representations), command.isRestoring);
    ++offersUnderWay_;
  }

  void carryOut(const StopCommand&) { isStopping_ = true; }

  void deliver(std::uint64_t number, SelectionReader::Outcome outcome) {
    auto reading = std::make_shared<PasteboardReading>(
        PasteboardReading{shared_->changeCount, std::move(outcome.types), std::move(outcome.contents)});
    shared_->post([shared = shared_, number, reading] {
      if (number != shared->readNumber) return;
      if (const auto done = std::exchange(shared->readDone, nullptr)) done(std::move(*reading));
    });
  }

  void handle(const xcb_generic_event_t& event) {
    const auto type = static_cast<std::uint8_t>(event.response_type & 0x7F);
    if (type == connection_->xfixesEvent())
      ownerChanged(as<xcb_xfixes_selection_notify_event_t>(event));
    else if (type == XCB_SELECTION_NOTIFY)
      answered(as<xcb_selection_notify_event_t>(event));
    else if (type == XCB_SELECTION_REQUEST)
      server_.handle(as<xcb_selection_request_event_t>(event), now());
    else if (type == XCB_SELECTION_CLEAR)
      server_.handle(as<xcb_selection_clear_event_t>(event));
    else if (type == XCB_DESTROY_NOTIFY)
      server_.handle(as<xcb_destroy_notify_event_t>(event));
    else if (type == XCB_PROPERTY_NOTIFY)
      propertyChanged(as<xcb_property_notify_event_t>(event));
  }

  void answered(const xcb_selection_notify_event_t& event) {
    if (event.selection == connection_->atoms().clipboardManager)
      isSaved_ = true;
    else
      reader_.handle(event, now());
  }

  void propertyChanged(const xcb_property_notify_event_t& event) {
    reader_.handle(event, now());
    const bool wasTaking = offersUnderWay_ > 0;
    server_.handle(event, now());
    const bool isClock = event.window == connection_->window() && event.atom == connection_->atoms().clock;
    if (wasTaking && isClock) {
      shared_->pendingWrites -= offersUnderWay_;
      offersUnderWay_ = 0;
      // Its copy came while changes were taken for our own.
      if (server_.hasYielded()) announceChange();
    }
  }

  void ownerChanged(const xcb_xfixes_selection_notify_event_t& event) {
    if (event.selection != connection_->atoms().clipboard) return;
    if (event.subtype != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) return ownerGone();
    const xcb_window_t former = std::exchange(ownerWindow_, event.owner);
    ownerTime_ = event.selection_timestamp;
    if (event.owner == connection_->window()) return;
    if (event.owner == XCB_WINDOW_NONE && isOwnClear(event)) return;
    // Whoever had it before our own write, it will be ours in a moment.
    if (shared_->pendingWrites > 0) return;
    if (event.owner == former && reader_.isReading()) {
      // It has been asked and copies again: what it is just handing over is still worth having.
      hasEcho_ = ++echoes_ <= mostEchoes;
      reader_.ownerTookAnew(event.selection_timestamp);
      return;
    }
    echoes_ = 0;
    hasEcho_ = false;
    reader_.cancel();
    announceChange();
  }

  bool isOwnClear(const xcb_xfixes_selection_notify_event_t& event) const {
    return server_.clearTime() == event.selection_timestamp;
  }

  void ownerGone() {
    ownerWindow_ = XCB_WINDOW_NONE;
    reader_.ownerIsGone();
    if (shared_->pendingWrites > 0) return;
    shared_->post([shared = shared_] {
      if (shared->ownerGoneHandler) shared->ownerGoneHandler();
    });
  }

  void announceChange() {
    ++shared_->changeCount;
    if (shared_->isChangePosted.exchange(true)) return;
    shared_->post([shared = shared_] {
      shared->isChangePosted = false;
      if (shared->changeHandler) shared->changeHandler();
    });
  }

  void saveAtEnd() {
    if (connection_->isBroken()) return;
    reader_.cancel();
    isSaved_ = !server_.askManagerToSave();
    const SteadyTime end = now() + savePatience;
    while ((!isSaved_ || reader_.isDraining()) && now() < end && !connection_->isBroken()) {
      step();
      wait(end);
    }
  }

  std::shared_ptr<Shared> shared_;
  std::unique_ptr<SelectionConnection> connection_;
  SelectionReader reader_;
  SelectionServer server_;
  xcb_window_t ownerWindow_ = XCB_WINDOW_NONE;
  xcb_timestamp_t ownerTime_ = XCB_CURRENT_TIME;
  int offersUnderWay_ = 0;
  int echoes_ = 0;
  bool hasEcho_ = false;
  bool isStopping_ = false, isSaved_ = false;
};

std::unique_ptr<X11Pasteboard> X11Pasteboard::open(const std::string& display, Post post, SelectionPatience patience) {
  auto connection = SelectionConnection::open(display);
  if (!connection) return nullptr;
  auto shared = std::make_shared<Shared>();
  shared->post = std::move(post);
  auto worker = std::make_unique<Worker>(std::move(connection), shared, patience);
  return std::unique_ptr<X11Pasteboard>(new X11Pasteboard(std::move(shared), std::move(worker)));
}

X11Pasteboard::X11Pasteboard(std::shared_ptr<Shared> shared, std::unique_ptr<Worker> worker)
    : shared_(std::move(shared)), worker_(std::move(worker)), thread_([this] { worker_->run(); }) {}

X11Pasteboard::~X11Pasteboard() {
  shared_->changeHandler = nullptr;
  shared_->ownerGoneHandler = nullptr;
  shared_->readDone = nullptr;
  shared_->give(StopCommand{});
  thread_.join();
}

std::int64_t X11Pasteboard::changeCount() const { return shared_->changeCount; }

void X11Pasteboard::setChangeHandler(std::function<void()> handler) { shared_->changeHandler = std::move(handler); }

void X11Pasteboard::setOwnerGoneHandler(std::function<void()> handler) {
  shared_->ownerGoneHandler = std::move(handler);
}

void X11Pasteboard::read(ReadingWish wish, std::function<void(PasteboardReading)> done) {
  shared_->readDone = std::move(done);
  shared_->give(ReadCommand{wish, ++shared_->readNumber});
}

std::int64_t X11Pasteboard::write(std::vector<Representation> representations) {
  return give(std::move(representations), false);
}

std::int64_t X11Pasteboard::restore(std::vector<Representation> representations) {
  return give(std::move(representations), true);
}

std::int64_t X11Pasteboard::give(std::vector<Representation> representations, bool isRestoring) {
  ++shared_->pendingWrites;
  // A reading under way is of contents that are no longer there.
  shared_->readDone = nullptr;
  ++shared_->readNumber;
  const std::int64_t count = ++shared_->changeCount;
  shared_->give(WriteCommand{std::move(representations), isRestoring});
  return count;
}

}  // namespace ambrel
