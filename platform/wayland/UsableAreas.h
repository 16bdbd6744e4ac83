#pragma once
// How much of each screen the panels of others leave. The compositor tells nobody; but it sizes a surface that wants
// the whole screen without covering them. One that has no picture is never seen, and is sized all the same, again
// each time that a panel comes or goes.

#include <QSize>
#include <functional>
#include <map>
#include <memory>
#include <optional>

class QScreen;
struct wl_compositor;
struct zwlr_layer_shell_v1;

namespace ambrel {

class UsableAreas {
 public:
  // `onChange` is called on the main thread after the size of one has changed.
  explicit UsableAreas(std::function<void()> onChange);
  ~UsableAreas();

  // Those screens alone are followed from then on.
  void follow(const QList<QScreen*>& screens);
  // In points; absent until the compositor has said it.
  std::optional<QSize> sizeOf(const QScreen& screen) const;

 private:
  class Surface;

  std::function<void()> onChange_;
  wl_compositor* compositor_ = nullptr;
  zwlr_layer_shell_v1* shell_ = nullptr;
  std::map<const QScreen*, std::unique_ptr<Surface>> surfaces_;
};

}  // namespace ambrel
