// The clients over Wayland's clipboard protocols.

#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <set>
#include <stdexcept>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

#include "platform/wayland/DataControl.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "tests/e2e/pasteboard/SelectionClients.h"

namespace ambrel {
namespace {

constexpr std::chrono::seconds patience{5};

std::string display() {
  const char* const name = std::getenv("WAYLAND_DISPLAY");
  return name ? name : "";
}

SteadyTime soon() { return std::chrono::steady_clock::now() + patience; }

struct Client {
  Client() : connection(WaylandConnection::open(display(), soon())) {
    if (!connection) throw std::runtime_error("no compositor");
    control = DataControl::open(*connection, soon());
    if (!control) throw std::runtime_error("the compositor lets nobody look after the clipboard");
  }

  void roundTrip() {
    bool isDone = false;
    connection->roundTrip([&isDone] { isDone = true; });
    if (!connection->turnUntil([&isDone] { return isDone; }, soon())) throw std::runtime_error("no answer");
  }

  std::unique_ptr<WaylandConnection> connection;
  std::unique_ptr<DataControl> control;
};

}  // namespace

std::unique_ptr<Pasteboard> openTestedPasteboard(PostToMain post, SelectionPatience wanted) {
  return openWaylandPasteboard(display(), std::move(post), wanted);
}

struct OwnerClient::Impl {
  Impl(OwnerClient& owner, std::map<std::string, Offer> list) : settings(owner), offers(std::move(list)) {
    thread = std::thread([this] { run(); });
  }
  ~Impl() {
    give([this] { isStopping = true; });
    thread.join();
    changed.notify_all();
    for (std::thread& writer : writers) writer.join();
  }

  // Carries the order out on the client's thread and waits until that is done.
  void give(std::function<void()> made) {
    std::unique_lock lock(mutex);
    order = std::move(made);
    const std::uint64_t one = 1;
    if (write(wake.get(), &one, sizeof one) < 0) throw std::runtime_error("cannot wake a client");
    changed.wait(lock, [&] { return !order; });
  }

  void run() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    while (!isStopping) {
      std::vector<pollfd> files{{wake.get(), POLLIN, 0}};
      if (client)
        client->connection->turn(files, std::nullopt);
      else
        poll(files.data(), files.size(), -1);
      std::uint64_t count;
      if ((files[0].revents & POLLIN) == 0 || read(wake.get(), &count, sizeof count) < 0) continue;
      const std::scoped_lock lock(mutex);
      order();
      order = nullptr;
      changed.notify_all();
    }
  }

  void connect() {
    if (!client) client = std::make_unique<Client>();
  }

  void take() {
    std::vector<std::string> types = settings.furtherTargets;
    for (const auto& [type, offer] : offers) types.push_back(type);
    client->control->offer(types, [this](const std::string& type, FileDescriptor to) { answer(type, std::move(to)); });
  }

  void answer(const std::string& type, FileDescriptor to) {
    {
      const std::scoped_lock lock(askedMutex);
      asked.push_back(type);
    }
    if (settings.takesAnewWhenAsked) take();
    const auto found = offers.find(type);
    if (found == offers.end() || found->second.manner == Manner::refuses) return;
    Offer offer = found->second;
    if (offer.manner == Manner::silentFirst)
      offer.manner = missedOnce.insert(type).second ? Manner::silent : Manner::whole;
    if (offer.manner == Manner::silent) return silent.push_back(std::move(to));
    ++openTransfers;
    writers.emplace_back(
        [this, offer = std::move(offer), to = std::move(to)]() mutable { send(offer, std::move(to)); });
  }

  void send(const Offer& offer, FileDescriptor to) {
    fcntl(to.get(), F_SETFL, O_NONBLOCK);
    std::size_t sent = 0;
    while (sent < offer.bytes.size() && !isStopping) {
      if (offer.manner == Manner::stopsHalfWay && sent > 0) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return mayGoOn || isStopping; });
      }
      pollfd file{to.get(), POLLOUT, 0};
      poll(&file, 1, 50);
      const std::string_view piece = std::string_view(offer.bytes).substr(sent, offer.pieceSize);
      const ssize_t count = write(to.get(), piece.data(), piece.size());
      if (count < 0 && errno != EAGAIN) return;
      if (count > 0) sent += static_cast<std::size_t>(count);
      if (offer.manner == Manner::neverEnds && sent == offer.bytes.size()) sent = 0;
    }
    --openTransfers;
  }

  OwnerClient& settings;
  std::map<std::string, Offer> offers;
  std::set<std::string> missedOnce;
  std::unique_ptr<Client> client;
  std::vector<FileDescriptor> silent;
  std::vector<std::thread> writers;
  FileDescriptor wake{eventfd(0, EFD_CLOEXEC)};
  std::mutex mutex;
  std::condition_variable changed;
  std::function<void()> order;
  mutable std::mutex askedMutex;
  std::vector<std::string> asked;
  std::atomic<int> openTransfers{0};
  std::atomic<bool> isStopping{false};
  bool mayGoOn = false;
  std::thread thread;
};

OwnerClient::OwnerClient(std::map<std::string, Offer> offers)
    : impl_(std::make_unique<Impl>(*this, std::move(offers))) {}
OwnerClient::~OwnerClient() = default;

void OwnerClient::copy() {
  impl_->give([this] {
    impl_->connect();
    impl_->take();
    impl_->client->roundTrip();
  });
}

void OwnerClient::clear() {
  impl_->give([this] {
    impl_->connect();
    impl_->client->control->clear();
    impl_->client->roundTrip();
  });
}

void OwnerClient::quit() {
  impl_->give([this] { impl_->client.reset(); });
}

void OwnerClient::goOn() {
  impl_->give([this] { impl_->mayGoOn = true; });
}

std::vector<std::string> OwnerClient::asked() const {
  const std::scoped_lock lock(impl_->askedMutex);
  return impl_->asked;
}

int OwnerClient::openTransfers() const { return impl_->openTransfers; }

struct RequestorClient::Impl {
  Impl() {
    client.control->selectionChanged = [this] { ++changes; };
  }

  Client client;
  int changes = 0;
  std::vector<FileDescriptor> left;  // what it has stopped reading
};

RequestorClient::RequestorClient() : impl_(std::make_unique<Impl>()) {}
RequestorClient::~RequestorClient() = default;

std::optional<RequestorClient::Answer> RequestorClient::paste(const std::string& target,
                                                              const std::function<bool()>& onPiece) {
  const auto offered = targets();
  if (std::ranges::find(offered, target) == offered.end()) return std::nullopt;
  FileDescriptor pipe = impl_->client.control->receive(target);
  impl_->client.roundTrip();
  Answer answer{.type = target, .format = 8, .bytes = {}, .wasInPieces = false};
  std::string buffer(100'000, '\0');
  for (;;) {
    pollfd file{pipe.get(), POLLIN, 0};
    if (poll(&file, 1, 5000) <= 0) return std::nullopt;
    if (onPiece && !onPiece()) {
      impl_->left.push_back(std::move(pipe));
      return answer;
    }
    const ssize_t count = read(pipe.get(), buffer.data(), buffer.size());
    if (count <= 0) return answer;
    answer.wasInPieces = answer.wasInPieces || !answer.bytes.empty();
    answer.bytes.append(buffer, 0, static_cast<std::size_t>(count));
  }
}

std::vector<std::string> RequestorClient::targets() {
  impl_->client.roundTrip();
  const auto* const types = impl_->client.control->types();
  return types ? *types : std::vector<std::string>{};
}

std::string RequestorClient::stamp() {
  impl_->client.roundTrip();
  return std::to_string(impl_->changes);
}

bool RequestorClient::hasOwner() {
  impl_->client.roundTrip();
  return impl_->client.control->types() != nullptr;
}

}  // namespace ambrel
