#include "platform/wayland/WaylandPasteboard.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <variant>

#include "platform/linux/pasteboard/ServedForms.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/OfferReader.h"
#include "platform/wayland/PipeWriter.h"

namespace ambrel {
namespace {

// How long the start may wait for a compositor that does not answer.
constexpr std::chrono::seconds openPatience{2};

// Some applications copy again whenever they are asked for their copy, and each change brings another reading. Nothing
// tells who has copied: a copy of the same types that comes so soon after a reading may be such an echo. After some in
// a row they are announced more and more slowly, but the last one always is.
constexpr std::chrono::milliseconds echoDelay{1000};
constexpr int mostEchoes = 5, mostDoublings = 6;

SteadyTime now() { return std::chrono::steady_clock::now(); }

// Whoever has stopped reading ends the transfer, not us.
void blockBrokenPipes() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

bool hasSecret(const std::vector<Representation>& representations) {
  return std::ranges::any_of(representations, [](const Representation& one) {
    return one.type.starts_with("text/plain") && SensitiveText::isSensitive(one.bytes);
  });
}

class WaylandWorker : public ThreadedPasteboard::Worker {
 public:
  WaylandWorker(std::unique_ptr<WaylandConnection> connection, std::unique_ptr<DataControl> control,
                std::shared_ptr<PasteboardMailbox> mailbox, SelectionPatience patience)
      : mailbox_(std::move(mailbox)),
        connection_(std::move(connection)),
        control_(std::move(control)),
        reader_([this](const std::string& type) { return control_->receive(type); }, patience) {
    control_->selectionChanged = [this] { hasSelectionChanged_ = true; };
  }

  void run() override {
    blockBrokenPipes();
    for (step(); !isStopping_ && !connection_->isBroken(); step()) wait();
    if (connection_->isBroken()) std::fputs("Ambrel: the clipboard's connection to the compositor is lost\n", stderr);
  }

 private:
  void step() {
    settle();
    reader_.checkDeadline(now());
    writer_.checkDeadline(now());
    if (announceAt_ && now() >= *announceAt_) announceChange();
    for (PasteboardCommand& command : mailbox_->takeCommands())
      std::visit([this](auto& one) { carryOut(one); }, command);
  }

  void wait() {
    std::vector<pollfd> files{{mailbox_->wakeDescriptor(), POLLIN, 0}};
    reader_.addTo(files);
    writer_.addTo(files);
    connection_->turn(files, earlier(announceAt_, earlier(reader_.deadline(), writer_.deadline())));
    for (const pollfd& file : files) {
      if (file.revents == 0) continue;
      reader_.handle(file.fd, now());
      writer_.handle(file.fd, now());
    }
  }

  void carryOut(const ReadCommand& command) {
    const auto* const types = control_->types();
    // What we have written ourselves is not reported to anyone.
    if (!types || control_->isOwner() || mailbox_->pendingWrites > 0) return mailbox_->deliver(command.number, {});
    readTypes_ = *types;
    reader_.start(*types, command.wish, now(), [this, number = command.number](PasteboardOutcome outcome) {
      readAt_ = now();
      mailbox_->deliver(number, std::move(outcome));
    });
  }

  void carryOut(WriteCommand& command) {
    reader_.cancel();
    announceAt_.reset();
    if (!command.isRestoring) return put(std::move(command.representations));
    if (hasSecret(command.representations)) return written(false);
    // A copy that is under way is seen first. One that comes in the moment between the answer and the offer is lost:
    // the protocols have no way to take what nobody owns.
    connection_->roundTrip([this, representations = std::move(command.representations)]() mutable {
      if (control_->types()) return written(false);
      put(std::move(representations));
    });
  }

  void carryOut(const StopCommand&) { isStopping_ = true; }

  void put(std::vector<Representation> representations) {
    const bool isClearing = representations.empty();
    if (isClearing)
      control_->clear();
    else
      offer(servedForms(std::move(representations)));
    connection_->roundTrip([this, isClearing] { written(isClearing ? !control_->types() : control_->isOwner()); });
  }

  void offer(std::vector<ServedForm> forms) {
    std::vector<std::string> types;
    for (const ServedForm& form : forms) types.push_back(form.target);
    control_->offer(types, [this, forms = std::move(forms)](const std::string& type, FileDescriptor to) {
      const auto form = std::ranges::find(forms, type, &ServedForm::target);
      if (form != forms.end()) writer_.add(form->bytes, std::move(to), now());
    });
  }

  // A write is visible, or another's copy is there in its place, which came while changes were taken for our own.
  void written(bool isOurs) {
    wasOwner_ = control_->isOwner();
    hasSelectionChanged_ = false;
    if (--mailbox_->pendingWrites == 0 && !isOurs) announceChange();
  }

  // Looks at what has become of the clipboard when all that has come is known: that our own offer is over may be told
  // after the copy that ended it.
  void settle() {
    if (!std::exchange(hasSelectionChanged_, false)) return;
    // Whoever had it before our own write, it will be ours in a moment.
    if (mailbox_->pendingWrites > 0 || control_->isOwner()) return;
    const bool wasOwner = std::exchange(wasOwner_, false);
    const auto* const types = control_->types();
    // While we were the owner it can only have been cleared.
    if (!types && !wasOwner) return mailbox_->announceOwnerGone();
    const bool isEcho = types && *types == readTypes_ && (reader_.isReading() || now() < readAt_ + echoDelay);
    echoes_ = isEcho ? echoes_ + 1 : 0;
    if (echoes_ > mostEchoes) {
      // What it is just handing over is still worth having.
      announceAt_ = now() + echoDelay * (1 << std::min(echoes_ - mostEchoes, mostDoublings));
      return;
    }
    reader_.cancel();
    announceChange();
  }

  void announceChange() {
    announceAt_.reset();
    mailbox_->announceChange();
  }

  std::shared_ptr<PasteboardMailbox> mailbox_;
  std::unique_ptr<WaylandConnection> connection_;
  std::unique_ptr<DataControl> control_;
  OfferReader reader_;
  PipeWriter writer_;
  std::vector<std::string> readTypes_;  // of the last reading
  SteadyTime readAt_;                   // when it ended
  int echoes_ = 0;
  std::optional<SteadyTime> announceAt_;
  bool hasSelectionChanged_ = false, wasOwner_ = false;
  bool isStopping_ = false;
};

}  // namespace

std::unique_ptr<Pasteboard> openWaylandPasteboard(const std::string& display, PostToMain post,
                                                  SelectionPatience patience) {
  const SteadyTime until = now() + openPatience;
  auto connection = WaylandConnection::open(display, until);
  if (!connection) return nullptr;
  auto control = DataControl::open(*connection, until);
  if (!control) return nullptr;
  auto mailbox = std::make_shared<PasteboardMailbox>(std::move(post));
  auto worker = std::make_unique<WaylandWorker>(std::move(connection), std::move(control), mailbox, patience);
  return std::make_unique<ThreadedPasteboard>(std::move(mailbox), std::move(worker));
}

}  // namespace ambrel
