#include "tests/e2e/pasteboard/SelectionClients.h"

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <poll.h>
#include <set>
#include <stdexcept>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <xcb/xcb.h>

#include "platform/linux/pasteboard/X11Pasteboard.h"

namespace ambrel {
namespace {

template <typename T>
struct Freed {
  explicit Freed(T* memory) : memory_(memory) {}
  ~Freed() { std::free(memory_); }
  Freed(const Freed&) = delete;
  T* operator->() const { return memory_; }
  T* get() const { return memory_; }
  explicit operator bool() const { return memory_ != nullptr; }

 private:
  T* memory_;
};

// A connection with a window, and names for atoms.
class Client {
 public:
  Client() : connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection) != 0) throw std::runtime_error("no X server");
    window = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window,
                      xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  }
  ~Client() { xcb_disconnect(connection); }
  Client(const Client&) = delete;

  xcb_atom_t atom(const std::string& name) {
    const Freed reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }
  std::string name(xcb_atom_t atom) {
    const Freed reply(xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    if (!reply) return {};
    return {xcb_get_atom_name_name(reply.get()), static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
  }
  xcb_window_t owner() {
    const Freed reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom("CLIPBOARD")), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
  }

  xcb_connection_t* connection;
  xcb_window_t window;
};

}  // namespace

std::unique_ptr<Pasteboard> openTestedPasteboard(PostToMain post, SelectionPatience patience) {
  return openX11Pasteboard("", std::move(post), patience);
}

struct OwnerClient::Impl {
  struct Transfer {
    xcb_window_t requestor;
    xcb_atom_t property, type;
    Offer offer;
    std::size_t sent = 0;
    int pieces = 0;
    bool hasEnded = false;
  };

  explicit Impl(OwnerClient& owner, std::map<std::string, Offer> list)
      : settings(owner), offers(std::move(list)), client(std::make_unique<Client>()), wake(eventfd(0, EFD_CLOEXEC)) {
    thread = std::thread([this] { run(); });
  }
  ~Impl() {
    give([this] { isStopping = true; });
    thread.join();
    close(wake);
  }

  // Carries the order out on the client's thread and waits until that is done.
  void give(std::function<void()> order) {
    std::unique_lock lock(mutex);
    orders.push_back(std::move(order));
    const std::uint64_t one = 1;
    if (write(wake, &one, sizeof one) < 0) throw std::runtime_error("cannot wake a client");
    done.wait(lock, [&] { return orders.empty(); });
  }

  void run() {
    while (!isStopping) {
      while (client) {
        if (const Freed event(xcb_poll_for_event(client->connection)); event) {
          handle(*event.get());
          continue;
        }
        // Writing much may bring events along that poll() then does not report.
        xcb_flush(client->connection);
        const Freed event(xcb_poll_for_queued_event(client->connection));
        if (!event) break;
        handle(*event.get());
      }
      std::array<pollfd, 2> files{
          {{wake, POLLIN, 0}, {client ? xcb_get_file_descriptor(client->connection) : -1, POLLIN, 0}}};
      poll(files.data(), files.size(), -1);
      if ((files[0].revents & POLLIN) == 0) continue;
      std::uint64_t count;
      if (read(wake, &count, sizeof count) < 0) continue;
      const std::scoped_lock lock(mutex);
      for (const auto& order : orders) order();
      orders.clear();
      done.notify_all();
    }
  }

  void take() {
    xcb_set_selection_owner(client->connection, client->window, client->atom("CLIPBOARD"), XCB_CURRENT_TIME);
    client->owner();  // a round trip
  }

  void handle(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7F;
    if (type == XCB_SELECTION_REQUEST) request(reinterpret_cast<const xcb_selection_request_event_t&>(event));
    if (type == XCB_PROPERTY_NOTIFY) propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
  }

  void request(const xcb_selection_request_event_t& event) {
    const std::string target = client->name(event.target);
    const bool isTargets = target == "TARGETS";
    if (isTargets) {
      ++timesAskedForTargets;
    } else {
      const std::scoped_lock lock(askedMutex);
      asked.push_back(target);
    }
    if (settings.takesAnewWhenAsked) take();
    const auto found = offers.find(target);
    Manner manner = isTargets ? settings.targetsManner : found == offers.end() ? Manner::refuses : found->second.manner;
    if (manner == Manner::emptyFirst) manner = refusedOnce.insert(target).second ? Manner::refuses : Manner::whole;
    if (manner == Manner::silentFirst) manner = refusedOnce.insert(target).second ? Manner::silent : Manner::whole;
    if (manner == Manner::silent) return;
    xcb_selection_notify_event_t reply{};
    reply.response_type = XCB_SELECTION_NOTIFY;
    reply.time = event.time;
    reply.requestor = event.requestor;
    reply.selection = event.selection;
    reply.target = event.target;
    if (manner != Manner::refuses) {
      reply.property = event.property;
      if (isTargets)
        answerTargets(event);
      else
        answerData(event, manner, found->second);
    }
    std::array<char, 32> wire{};
    std::memcpy(wire.data(), &reply, sizeof reply);
    xcb_send_event(client->connection, 0, event.requestor, 0, wire.data());
  }

  void answerTargets(const xcb_selection_request_event_t& event) {
    std::vector<xcb_atom_t> atoms{client->atom("TARGETS")};
    for (const std::string& name : settings.furtherTargets) atoms.push_back(client->atom(name));
    for (const auto& [name, offer] : offers) atoms.push_back(client->atom(name));
    xcb_change_property(client->connection, XCB_PROP_MODE_REPLACE, event.requestor, event.property, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(atoms.size()), atoms.data());
  }

  void answerData(const xcb_selection_request_event_t& event, Manner manner, const Offer& offer) {
    xcb_connection_t* const c = client->connection;
    if (manner == Manner::whole) {
      xcb_change_property(c, XCB_PROP_MODE_REPLACE, event.requestor, event.property, event.target, 8,
                          static_cast<std::uint32_t>(offer.bytes.size()), offer.bytes.data());
    } else if (manner == Manner::wrongFormat) {
      xcb_change_property(c, XCB_PROP_MODE_REPLACE, event.requestor, event.property, event.target, 32,
                          static_cast<std::uint32_t>(offer.bytes.size() / 4), offer.bytes.data());
    } else {
      const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
      xcb_change_window_attributes(c, event.requestor, XCB_CW_EVENT_MASK, &events);
      xcb_change_property(c, XCB_PROP_MODE_REPLACE, event.requestor, event.property, client->atom("INCR"), 32, 1,
                          &offer.announced);
      transfers.push_back({event.requestor, event.property, event.target, offer});
      transfers.back().offer.manner = manner;
      ++openTransfers;
    }
  }

  void propertyChanged(const xcb_property_notify_event_t& event) {
    if (event.state != XCB_PROPERTY_DELETE) return;
    for (Transfer& one : transfers) {
      if (one.hasEnded || one.requestor != event.window || one.property != event.atom) continue;
      if (one.pieces++ == 1 && one.offer.manner == Manner::stopsHalfWay) return;
      if (one.pieces == 2 && one.offer.manner == Manner::diesHalfWay) return client.reset();
      if (one.offer.manner == Manner::neverEnds && one.sent >= one.offer.bytes.size()) one.sent = 0;
      const std::string_view piece = std::string_view(one.offer.bytes).substr(one.sent, one.offer.pieceSize);
      xcb_change_property(client->connection, XCB_PROP_MODE_REPLACE, one.requestor, one.property, one.type, 8,
                          static_cast<std::uint32_t>(piece.size()), piece.data());
      one.sent += piece.size();
      one.hasEnded = piece.empty();  // the taking of this last piece asks for no other
      if (one.hasEnded) --openTransfers;
      return;
    }
  }

  OwnerClient& settings;
  std::map<std::string, Offer> offers;
  std::set<std::string> refusedOnce;
  std::unique_ptr<Client> client;
  std::deque<Transfer> transfers;
  int wake;
  std::mutex mutex;
  std::condition_variable done;
  std::vector<std::function<void()>> orders;
  mutable std::mutex askedMutex;
  std::vector<std::string> asked;
  std::atomic<int> openTransfers{0}, timesAskedForTargets{0};
  bool isStopping = false;
  std::thread thread;
};

OwnerClient::OwnerClient(std::map<std::string, Offer> offers)
    : impl_(std::make_unique<Impl>(*this, std::move(offers))) {}
OwnerClient::~OwnerClient() = default;

void OwnerClient::copy() {
  impl_->give([this] { impl_->take(); });
}

void OwnerClient::clear() {
  impl_->give([this] {
    xcb_set_selection_owner(impl_->client->connection, XCB_WINDOW_NONE, impl_->client->atom("CLIPBOARD"),
                            XCB_CURRENT_TIME);
    impl_->client->owner();
  });
}

void OwnerClient::quit() {
  impl_->give([this] { impl_->client.reset(); });
}

std::vector<std::string> OwnerClient::asked() const {
  const std::scoped_lock lock(impl_->askedMutex);
  return impl_->asked;
}

int OwnerClient::timesAskedForTargets() const { return impl_->timesAskedForTargets; }

int OwnerClient::openTransfers() const { return impl_->openTransfers; }

struct RequestorClient::Impl {
  // The next event that `isWanted` accepts; null when none comes in time.
  template <typename Event>
  std::unique_ptr<Event> waitFor(int type, const std::function<bool(const Event&)>& isWanted) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    xcb_flush(client.connection);
    for (;;) {
      while (true) {
        const Freed event(xcb_poll_for_event(client.connection));
        if (!event) break;
        const auto& as = reinterpret_cast<const Event&>(*event.get());
        if ((event->response_type & 0x7F) == type && isWanted(as)) return std::make_unique<Event>(as);
      }
      const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
      if (left.count() <= 0) return nullptr;
      pollfd file{xcb_get_file_descriptor(client.connection), POLLIN, 0};
      poll(&file, 1, static_cast<int>(left.count()));
    }
  }

  Answer take(xcb_atom_t property) {
    const Freed reply(xcb_get_property_reply(
        client.connection,
        xcb_get_property(client.connection, 1, client.window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1u << 28),
        nullptr));
    if (!reply || reply->type == XCB_ATOM_NONE) return {};
    return {client.name(reply->type), reply->format,
            std::string(static_cast<const char*>(xcb_get_property_value(reply.get())),
                        static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))),
            false};
  }

  bool convert(const std::string& target, xcb_atom_t property) {
    const xcb_atom_t atom = client.atom(target);
    xcb_convert_selection(client.connection, client.window, client.atom("CLIPBOARD"), atom, property, XCB_CURRENT_TIME);
    const auto notify = waitFor<xcb_selection_notify_event_t>(XCB_SELECTION_NOTIFY,
                                                              [&](const auto& event) { return event.target == atom; });
    return notify && notify->property != XCB_ATOM_NONE;
  }

  Client client;
};

RequestorClient::RequestorClient() : impl_(std::make_unique<Impl>()) {}
RequestorClient::~RequestorClient() = default;

std::optional<RequestorClient::Answer> RequestorClient::paste(const std::string& target,
                                                              const std::function<bool()>& onPiece) {
  const xcb_atom_t property = impl_->client.atom("PASTE");
  if (!impl_->convert(target, property)) return std::nullopt;
  Answer answer = impl_->take(property);
  if (answer.type != "INCR") return answer;
  Answer whole;
  whole.wasInPieces = true;
  for (;;) {
    if (onPiece && !onPiece()) return whole;
    const auto changed = impl_->waitFor<xcb_property_notify_event_t>(XCB_PROPERTY_NOTIFY, [&](const auto& event) {
      return event.atom == property && event.state == XCB_PROPERTY_NEW_VALUE;
    });
    if (!changed) return std::nullopt;
    const Answer piece = impl_->take(property);
    if (piece.type.empty()) continue;
    whole.type = piece.type;
    whole.format = piece.format;
    if (piece.bytes.empty()) return whole;
    whole.bytes += piece.bytes;
  }
}

std::vector<std::string> RequestorClient::targets() {
  const auto answer = paste("TARGETS");
  std::vector<std::string> names;
  if (!answer) return names;
  for (std::size_t i = 0; i + 4 <= answer->bytes.size(); i += 4) {
    xcb_atom_t atom;
    std::memcpy(&atom, answer->bytes.data() + i, sizeof atom);
    names.push_back(impl_->client.name(atom));
  }
  return names;
}

std::vector<std::optional<std::string>> RequestorClient::pasteMultiple(const std::vector<std::string>& targets) {
  Client& client = impl_->client;
  const xcb_atom_t property = client.atom("PASTE_MANY");
  std::vector<xcb_atom_t> pairs;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    pairs.push_back(client.atom(targets[i]));
    pairs.push_back(client.atom("PASTE_" + std::to_string(i)));
  }
  xcb_change_property(client.connection, XCB_PROP_MODE_REPLACE, client.window, property, client.atom("ATOM_PAIR"), 32,
                      static_cast<std::uint32_t>(pairs.size()), pairs.data());
  std::vector<std::optional<std::string>> results(targets.size());
  if (!impl_->convert("MULTIPLE", property)) return results;
  const Answer list = impl_->take(property);
  if (list.bytes.size() != pairs.size() * sizeof(xcb_atom_t)) return results;
  std::memcpy(pairs.data(), list.bytes.data(), list.bytes.size());
  for (std::size_t i = 0; i < targets.size(); ++i)
    if (pairs[2 * i + 1] != XCB_ATOM_NONE) results[i] = impl_->take(pairs[2 * i + 1]).bytes;
  return results;
}

std::string RequestorClient::stamp() {
  const auto answer = paste("TIMESTAMP");
  return answer ? answer->bytes : "";
}

bool RequestorClient::hasOwner() { return impl_->client.owner() != XCB_WINDOW_NONE; }

}  // namespace ambrel
