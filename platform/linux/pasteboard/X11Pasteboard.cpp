#include "platform/linux/pasteboard/X11Pasteboard.h"

#include <array>
#include <cstdio>
#include <poll.h>
#include <variant>
#include <xcb/xfixes.h>

#include "platform/linux/pasteboard/SelectionConnection.h"
#include "platform/linux/pasteboard/SelectionReader.h"
#include "platform/linux/pasteboard/SelectionServer.h"

namespace ambrel {
namespace {

// How long the end of the program may wait for a clipboard manager.
constexpr std::chrono::milliseconds savePatience{300};

// Some applications take the clipboard again whenever they are asked for it, and each change brings another reading.
// After this many such changes in a row they count no longer.
constexpr int mostEchoes = 5;

template <typename T>
const T& as(const xcb_generic_event_t& event) {
  return reinterpret_cast<const T&>(event);
}

class X11Worker : public ThreadedPasteboard::Worker {
 public:
  X11Worker(std::unique_ptr<SelectionConnection> connection, std::shared_ptr<PasteboardMailbox> mailbox,
            SelectionPatience patience)
      : mailbox_(std::move(mailbox)),
        connection_(std::move(connection)),
        reader_(*connection_, patience),
        server_(*connection_) {}

  void run() override {
    for (step(); !isStopping_ && !connection_->isBroken(); step()) wait(nextDeadline());
    if (connection_->isBroken()) std::fputs("Ambrel: the clipboard's connection to the X server is lost\n", stderr);
    saveAtEnd();
  }

 private:
  static SteadyTime now() { return std::chrono::steady_clock::now(); }

  void step() {
    for (PasteboardCommand& command : mailbox_->takeCommands())
      std::visit([this](auto& one) { carryOut(one); }, command);
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

  std::optional<SteadyTime> nextDeadline() const { return earlier(reader_.deadline(), server_.deadline()); }

  void wait(std::optional<SteadyTime> until) const {
    std::array<pollfd, 2> files{
        {{xcb_get_file_descriptor(connection_->xcb()), POLLIN, 0}, {mailbox_->wakeDescriptor(), POLLIN, 0}}};
    poll(files.data(), files.size(), millisecondsUntil(until));
  }

  void carryOut(const ReadCommand& command) {
    // What we have written ourselves is not reported to anyone.
    if (server_.isOwner() || mailbox_->pendingWrites > 0) return mailbox_->deliver(command.number, {});
    hasEcho_ = false;
    reader_.start(ownerTime_, command.wish, now(), [this, number = command.number](PasteboardOutcome outcome) {
      mailbox_->deliver(number, std::move(outcome));
      if (std::exchange(hasEcho_, false)) mailbox_->announceChange();
    });
  }

  void carryOut(WriteCommand& command) {
    reader_.cancel();
    server_.offer(std::move(command.representations), command.isRestoring);
    ++offersUnderWay_;
  }

  void carryOut(const StopCommand&) { isStopping_ = true; }

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
      mailbox_->pendingWrites -= offersUnderWay_;
      offersUnderWay_ = 0;
      // Its copy came while changes were taken for our own.
      if (server_.hasYielded()) mailbox_->announceChange();
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
    if (mailbox_->pendingWrites > 0) return;
    if (event.owner == former && reader_.isReading()) {
      // It has been asked and copies again: what it is just handing over is still worth having.
      hasEcho_ = ++echoes_ <= mostEchoes;
      reader_.ownerTookAnew(event.selection_timestamp);
      return;
    }
    echoes_ = 0;
    hasEcho_ = false;
    reader_.cancel();
    mailbox_->announceChange();
  }

  bool isOwnClear(const xcb_xfixes_selection_notify_event_t& event) const {
    return server_.clearTime() == event.selection_timestamp;
  }

  void ownerGone() {
    ownerWindow_ = XCB_WINDOW_NONE;
    reader_.ownerIsGone();
    if (mailbox_->pendingWrites > 0) return;
    mailbox_->announceOwnerGone();
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

  std::shared_ptr<PasteboardMailbox> mailbox_;
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

}  // namespace

std::unique_ptr<Pasteboard> openX11Pasteboard(const std::string& display, PostToMain post, SelectionPatience patience) {
  auto connection = SelectionConnection::open(display);
  if (!connection) return nullptr;
  auto mailbox = std::make_shared<PasteboardMailbox>(std::move(post));
  auto worker = std::make_unique<X11Worker>(std::move(connection), mailbox, patience);
  return std::make_unique<ThreadedPasteboard>(std::move(mailbox), std::move(worker));
}

}  // namespace ambrel
