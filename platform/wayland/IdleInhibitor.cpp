#include "platform/wayland/IdleInhibitor.h"

#include "idle-inhibit-unstable-v1-client-protocol.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <sys/mman.h>

#include "core/base/Files.h"
#include "platform/wayland/WaylandConnection.h"

// The name of an argument is a word of C++.
#define namespace scope
#include "wlr-layer-shell-unstable-v1-client-protocol.h"
#undef namespace

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds inhibitPatience{1000};
// Until there is a screen again.
constexpr std::chrono::seconds beforeAnotherTry{1};

template <typename Proxy, void (*destroy)(Proxy*)>
struct Destroyer {
  void operator()(Proxy* proxy) const { destroy(proxy); }
};
template <typename Proxy, void (*destroy)(Proxy*)>
using Owned = std::unique_ptr<Proxy, Destroyer<Proxy, destroy>>;

}  // namespace

class IdleInhibitor::Held {
 public:
  // Null where the compositor cannot do it.
  static std::unique_ptr<Held> open(const std::string& display) {
    auto connection = WaylandConnection::open(display, soon());
    if (!connection || !connection->offers("zwlr_layer_shell_v1") || !connection->offers("zwp_idle_inhibit_manager_v1"))
      return nullptr;
    return std::unique_ptr<Held>(new Held(std::move(connection)));
  }

 private:
  explicit Held(std::unique_ptr<WaylandConnection> connection)
      : connection_(std::move(connection)),
        compositor_(take<wl_compositor>(wl_compositor_interface)),
        shm_(take<wl_shm>(wl_shm_interface)),
        shell_(take<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface)),
        manager_(take<zwp_idle_inhibit_manager_v1>(zwp_idle_inhibit_manager_v1_interface)),
        arrival_(connection_->descriptor(), QSocketNotifier::Read) {
    QObject::connect(&arrival_, &QSocketNotifier::activated, &arrival_, [this] {
      std::vector<pollfd> none;
      connection_->turn(none, std::chrono::steady_clock::now());
      if (connection_->isBroken()) arrival_.setEnabled(false);
    });
    show();
  }

  template <typename Proxy>
  Proxy* take(const wl_interface& interface) {
    return static_cast<Proxy*>(connection_->bind(interface, 1));
  }
  static SteadyTime soon() { return std::chrono::steady_clock::now() + inhibitPatience; }

  void show() {
    isSized_ = isClosed_ = false;
    inhibitor_.reset();
    layer_.reset();
    surface_.reset(wl_compositor_create_surface(compositor_.get()));
    layer_.reset(zwlr_layer_shell_v1_get_layer_surface(shell_.get(), surface_.get(), nullptr,
                                                       ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND, "tilebay-awake"));
    static constexpr zwlr_layer_surface_v1_listener listener{
        .configure =
            [](void* self, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t, std::uint32_t) {
              zwlr_layer_surface_v1_ack_configure(layer, serial);
              static_cast<Held*>(self)->isSized_ = true;
            },
        // Its screen has gone.
        .closed =
            [](void* self, zwlr_layer_surface_v1*) {
              auto& held = *static_cast<Held*>(self);
              held.isClosed_ = true;
              QTimer::singleShot(beforeAnotherTry, &held.arrival_, [&held] { held.show(); });
            },
    };
    zwlr_layer_surface_v1_add_listener(layer_.get(), &listener, this);
    zwlr_layer_surface_v1_set_size(layer_.get(), 1, 1);
    zwlr_layer_surface_v1_set_anchor(layer_.get(),
                                     ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    zwlr_layer_surface_v1_set_exclusive_zone(layer_.get(), -1);
    wl_surface_commit(surface_.get());
    // Without a screen it is closed at once: the main thread must not wait for a size then.
    connection_->turnUntil([this] { return isSized_ || isClosed_; }, soon());
    if (!isSized_ || isClosed_) return;
    draw();
    inhibitor_.reset(zwp_idle_inhibit_manager_v1_create_inhibitor(manager_.get(), surface_.get()));
    bool isTold = false;
    connection_->roundTrip([&isTold] { isTold = true; });
    connection_->turnUntil([&isTold] { return isTold; }, soon());
  }
  void draw() {
    constexpr int bytes = 4;
    const FileDescriptor file(memfd_create("tilebay-awake", MFD_CLOEXEC));
    if (file.get() < 0 || ftruncate(file.get(), bytes) != 0) return;
    wl_shm_pool* const pool = wl_shm_create_pool(shm_.get(), file.get(), bytes);
    buffer_.reset(wl_shm_pool_create_buffer(pool, 0, 1, 1, bytes, WL_SHM_FORMAT_ARGB8888));
    wl_shm_pool_destroy(pool);
    wl_surface_attach(surface_.get(), buffer_.get(), 0, 0);
    wl_surface_commit(surface_.get());
  }

  std::unique_ptr<WaylandConnection> connection_;
  Owned<wl_compositor, wl_compositor_destroy> compositor_;
  Owned<wl_shm, wl_shm_destroy> shm_;
  Owned<zwlr_layer_shell_v1, zwlr_layer_shell_v1_destroy> shell_;
  Owned<zwp_idle_inhibit_manager_v1, zwp_idle_inhibit_manager_v1_destroy> manager_;
  Owned<wl_surface, wl_surface_destroy> surface_;
  Owned<zwlr_layer_surface_v1, zwlr_layer_surface_v1_destroy> layer_;
  Owned<wl_buffer, wl_buffer_destroy> buffer_;
  Owned<zwp_idle_inhibitor_v1, zwp_idle_inhibitor_v1_destroy> inhibitor_;
  QSocketNotifier arrival_;
  bool isSized_ = false, isClosed_ = false;
};

IdleInhibitor::IdleInhibitor(std::string display) : display_(std::move(display)) {}
IdleInhibitor::~IdleInhibitor() = default;

bool IdleInhibitor::hold(bool isHeld) {
  held_.reset();
  if (isHeld && !display_.empty()) held_ = Held::open(display_);
  return held_ != nullptr || !isHeld;
}

}  // namespace ambrel
