#include "platform/linux/X11ScreenCapture.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <unistd.h>
#include <utility>
#include <xcb/shape.h>
#include <xcb/shm.h>

namespace ambrel {
namespace {

using namespace std::chrono_literals;
// A window below that redraws at once, and a compositor that shows it, take two frames.
constexpr auto redrawTime = 40ms;

const QScreen* screenUnderPointer() {
  const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  return screen ? screen : QGuiApplication::primaryScreen();
}

// The toolkit keeps a screen's origin in pixels and scales its size alone.
QRect capturedArea(const QScreen& screen) {
  const QRect frame = screen.geometry();
  return {frame.topLeft(), (QSizeF(frame.size()) * screen.devicePixelRatio()).toSize()};
}

// A segment that the server and we see.
class SharedMemory {
 public:
  explicit SharedMemory(std::size_t size) : id_(shmget(IPC_PRIVATE, size, IPC_CREAT | 0600)) {
    if (id_ < 0) return;
    void* at = shmat(id_, nullptr, 0);
    if (at != reinterpret_cast<void*>(-1)) bytes_ = static_cast<uchar*>(at);
  }
  ~SharedMemory() {
    if (bytes_) shmdt(bytes_);
    release();
  }
  SharedMemory(const SharedMemory&) = delete;
  SharedMemory& operator=(const SharedMemory&) = delete;

  int id() const { return id_; }
  const uchar* bytes() const { return bytes_; }
  // From now on it ends with those who have it, however they end.
  void release() {
    if (id_ >= 0) shmctl(std::exchange(id_, -1), IPC_RMID, nullptr);
  }

 private:
  int id_;
  uchar* bytes_ = nullptr;
};

}  // namespace

// Cuts windows to nothing while it lives.
class X11ScreenCapture::Hidden {
 public:
  explicit Hidden(X11Connection& connection) : connection_(connection) {
    for (QWindow* window : QGuiApplication::topLevelWindows())
      if (window->isVisible() && window->handle()) hide(static_cast<xcb_window_t>(window->winId()));
    connection_.repliesWereRead();
    connection_.flush();
  }
  ~Hidden() {
    for (const Shape& shape : shapes_)
      if (shape.isWhole)
        xcb_shape_mask(connection_.xcb(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, shape.window, 0, 0, XCB_NONE);
      else
        cut(shape.window, shape.rectangles);
    connection_.flush();
  }
  Hidden(const Hidden&) = delete;
  Hidden& operator=(const Hidden&) = delete;

  bool isAny() const { return !shapes_.empty(); }

 private:
  struct Shape {
    xcb_window_t window;
    bool isWhole;
    std::vector<xcb_rectangle_t> rectangles;
  };

  void cut(xcb_window_t window, const std::vector<xcb_rectangle_t>& rectangles) {
    xcb_shape_rectangles(connection_.xcb(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED, window,
                         0, 0, static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
  }
  void hide(xcb_window_t window) {
    xcb_connection_t* xcb = connection_.xcb();
    const auto extents = xcb_shape_query_extents(xcb, window);
    const auto rectangles = xcb_shape_get_rectangles(xcb, window, XCB_SHAPE_SK_BOUNDING);
    const XcbPtr<xcb_shape_query_extents_reply_t> shaped(xcb_shape_query_extents_reply(xcb, extents, nullptr));
    const XcbPtr<xcb_shape_get_rectangles_reply_t> list(xcb_shape_get_rectangles_reply(xcb, rectangles, nullptr));
    if (!shaped || !list) return;
    const xcb_rectangle_t* first = xcb_shape_get_rectangles_rectangles(list.get());
    shapes_.push_back({window,
                       shaped->bounding_shaped == 0,
                       {first, first + xcb_shape_get_rectangles_rectangles_length(list.get())}});
    cut(window, {});
  }

  X11Connection& connection_;
  std::vector<Shape> shapes_;
};

void X11ScreenCapture::capture(std::function<void(ScreenPicture)> done) {
  if (!connection_ || connection_->isBroken()) return done({.problem = "There is no screen to capture."});
  auto hidden = hidden_.lock();
  if (!hidden) hidden_ = hidden = std::make_shared<Hidden>(*connection_);
  const auto wait = hidden->isAny() ? redrawTime : 0ms;
  QTimer::singleShot(wait, this, [this, hidden, turn = ++turn_, done = std::move(done)]() mutable {
    if (turn != turn_) return;
    const QScreen* screen = screenUnderPointer();
    ScreenPicture result = screen ? picture(*screen) : ScreenPicture{.problem = "There is no screen to capture."};
    hidden.reset();
    done(std::move(result));
  });
}

ScreenPicture X11ScreenCapture::picture(const QScreen& screen) {
  const XcbPtr<xcb_get_geometry_reply_t> root(
      xcb_get_geometry_reply(connection_->xcb(), xcb_get_geometry(connection_->xcb(), connection_->root()), nullptr));
  connection_->repliesWereRead();
  if (!root) return {.problem = "The screen cannot be read."};
  const QRect area = capturedArea(screen) & QRect(0, 0, root->width, root->height);
  ScreenPicture result{.image = pixels(area), .windows = windows(area), .problem = {}};
  // Deep colour, or a server on another computer: slower.
  if (result.image.isNull()) result.image = const_cast<QScreen&>(screen).grabWindow(0).toImage();
  result.image.setDevicePixelRatio(1);
  if (result.image.isNull()) result.problem = "The screen cannot be read.";
  return result;
}

QImage X11ScreenCapture::pixels(const QRect& area) {
  xcb_connection_t* xcb = connection_->xcb();
  const auto* extension = xcb_get_extension_data(xcb, &xcb_shm_id);
  const int depth = connection_->screen().root_depth;
  if (!extension || !extension->present || (depth != 24 && depth != 32) || area.isEmpty()) return {};
  auto memory = std::make_unique<SharedMemory>(std::size_t{4} * static_cast<std::size_t>(area.width()) *
                                               static_cast<std::size_t>(area.height()));
  if (!memory->bytes()) return {};
  const xcb_shm_seg_t segment = xcb_generate_id(xcb);
  xcb_shm_attach(xcb, segment, static_cast<std::uint32_t>(memory->id()), 0);
  const auto cookie =
      xcb_shm_get_image(xcb, connection_->root(), static_cast<std::int16_t>(area.x()),
                        static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
                        static_cast<std::uint16_t>(area.height()), ~0u, XCB_IMAGE_FORMAT_Z_PIXMAP, segment, 0);
  xcb_generic_error_t* error = nullptr;
  const XcbPtr<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(xcb, cookie, &error));
  std::free(error);
  xcb_shm_detach(xcb, segment);
  memory->release();
  connection_->repliesWereRead();
  if (!reply) return {};
  const uchar* bytes = memory->bytes();
  return QImage(
      bytes, area.width(), area.height(), 4 * area.width(), QImage::Format_RGB32,
      [](void* owner) { delete static_cast<SharedMemory*>(owner); }, memory.release());
}

std::vector<QRectF> X11ScreenCapture::windows(const QRect& area) {
  std::vector<QRectF> found;
  xcb_connection_t* xcb = connection_->xcb();
  const auto numbers = [this](xcb_window_t window, const char* property) {
    return connection_->numbers(window, connection_->atom(property));
  };
  for (const xcb_window_t window : numbers(connection_->root(), "_NET_CLIENT_LIST_STACKING")) {
    const auto attributes = xcb_get_window_attributes(xcb, window);
    const auto geometry = xcb_get_geometry(xcb, window);
    const auto position = xcb_translate_coordinates(xcb, window, connection_->root(), 0, 0);
    const XcbPtr<xcb_get_window_attributes_reply_t> state(xcb_get_window_attributes_reply(xcb, attributes, nullptr));
    const XcbPtr<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(xcb, geometry, nullptr));
    const XcbPtr<xcb_translate_coordinates_reply_t> at(xcb_translate_coordinates_reply(xcb, position, nullptr));
    if (!state || !size || !at || state->map_state != XCB_MAP_STATE_VIEWABLE) continue;
    const auto process = numbers(window, "_NET_WM_PID");
    if (!process.empty() && process.front() == static_cast<std::uint32_t>(getpid())) continue;
    QRect frame(at->dst_x, at->dst_y, size->width, size->height);
    if (const auto extents = numbers(window, "_NET_FRAME_EXTENTS"); extents.size() == 4)
      frame.adjust(-int(extents[0]), -int(extents[2]), int(extents[1]), int(extents[3]));
    frame &= area;
    if (frame.isEmpty()) continue;
    const QRectF inside = frame.translated(-area.topLeft());
    found.emplace_back(inside.x() / area.width(), inside.y() / area.height(), inside.width() / area.width(),
                       inside.height() / area.height());
  }
  connection_->repliesWereRead();
  return found;
}

}  // namespace ambrel
