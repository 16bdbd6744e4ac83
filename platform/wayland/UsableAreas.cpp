#include "platform/wayland/UsableAreas.h"

#include <QGuiApplication>
#include <QList>
#include <QScreen>
#include <string_view>
#include <utility>

// The name of an argument is a word of C++.
#define namespace scope
#include "wlr-layer-shell-unstable-v1-client-protocol.h"
#undef namespace

namespace ambrel {

class UsableAreas::Surface {
 public:
  Surface(UsableAreas& areas, wl_output* output)
      : areas_(areas),
        surface_(wl_compositor_create_surface(areas.compositor_)),
        layer_(zwlr_layer_shell_v1_get_layer_surface(areas.shell_, surface_, output,
                                                     ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND, "tilebay-room")) {
    static constexpr zwlr_layer_surface_v1_listener listener{
        .configure =
            [](void* self, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
               std::uint32_t height) {
              zwlr_layer_surface_v1_ack_configure(layer, serial);
              static_cast<Surface*>(self)->take(QSize(static_cast<int>(width), static_cast<int>(height)));
            },
        .closed = [](void*, zwlr_layer_surface_v1*) {},
    };
    zwlr_layer_surface_v1_add_listener(layer_, &listener, this);
    zwlr_layer_surface_v1_set_anchor(layer_, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                                                 ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT |
                                                 ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT);
    wl_surface_commit(surface_);
  }
  ~Surface() {
    zwlr_layer_surface_v1_destroy(layer_);
    wl_surface_destroy(surface_);
  }
  Surface(const Surface&) = delete;

  std::optional<QSize> size() const { return size_; }

 private:
  void take(QSize size) {
    if (size.isEmpty() || std::exchange(size_, size) == size) return;
    areas_.onChange_();
  }

  UsableAreas& areas_;
  wl_surface* surface_;
  zwlr_layer_surface_v1* layer_;
  std::optional<QSize> size_;
};

UsableAreas::UsableAreas(std::function<void()> onChange) : onChange_(std::move(onChange)) {
  const auto* const toolkit = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
  if (!toolkit) return;
  compositor_ = toolkit->compositor();
  // On a queue of its own, or the toolkit's events would be carried out in here.
  wl_display* const display = toolkit->display();
  wl_event_queue* const queue = wl_display_create_queue(display);
  auto* const wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display));
  wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue);
  wl_registry* const registry = wl_display_get_registry(wrapper);
  wl_proxy_wrapper_destroy(wrapper);
  static constexpr wl_registry_listener listener{
      .global =
          [](void* found, wl_registry* list, std::uint32_t name, const char* interface, std::uint32_t) {
            if (std::string_view(interface) == zwlr_layer_shell_v1_interface.name)
              *static_cast<zwlr_layer_shell_v1**>(found) =
                  static_cast<zwlr_layer_shell_v1*>(wl_registry_bind(list, name, &zwlr_layer_shell_v1_interface, 1));
          },
      .global_remove = [](void*, wl_registry*, std::uint32_t) {},
  };
  wl_registry_add_listener(registry, &listener, &shell_);
  wl_display_roundtrip_queue(display, queue);
  wl_registry_destroy(registry);
  // What comes for its surfaces is the toolkit's to read.
  if (shell_) wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(shell_), nullptr);
  wl_event_queue_destroy(queue);
}

UsableAreas::~UsableAreas() {
  surfaces_.clear();
  // The toolkit may have closed the connection, with all that is left of it.
  if (shell_ && qGuiApp) wl_proxy_destroy(reinterpret_cast<wl_proxy*>(shell_));
}

void UsableAreas::follow(const QList<QScreen*>& screens) {
  if (!shell_ || !compositor_) return;
  std::erase_if(surfaces_, [&](const auto& one) { return !screens.contains(one.first); });
  for (QScreen* screen : screens) {
    const auto* const native = screen->nativeInterface<QNativeInterface::QWaylandScreen>();
    if (native && native->output() && !surfaces_.contains(screen))
      surfaces_.emplace(screen, std::make_unique<Surface>(*this, native->output()));
  }
}

std::optional<QSize> UsableAreas::sizeOf(const QScreen& screen) const {
  const auto found = surfaces_.find(&screen);
  return found == surfaces_.end() ? std::nullopt : found->second->size();
}

}  // namespace ambrel
