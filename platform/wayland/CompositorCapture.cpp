#include "platform/wayland/CompositorCapture.h"

#include "wlr-screencopy-unstable-v1-client-protocol.h"

#include <QTransform>
#include <algorithm>
#include <list>
#include <sys/mman.h>

#include "core/base/Files.h"
#include "platform/wayland/WaylandConnection.h"

namespace ambrel {
namespace {

constexpr std::chrono::seconds patience{2};

struct Output {
  wl_output* output = nullptr;
  std::string name;
  int transform = WL_OUTPUT_TRANSFORM_NORMAL;
};

struct Frame {
  zwlr_screencopy_frame_v1* frame = nullptr;
  QImage::Format format = QImage::Format_Invalid;
  std::uint32_t shmFormat = 0, width = 0, height = 0, stride = 0;
  bool isDescribed = false, isReady = false, hasFailed = false, isUpsideDown = false;
};

// Of what the compositors draw in, as bytes in memory.
QImage::Format formatOf(std::uint32_t shm) {
  switch (shm) {
    case WL_SHM_FORMAT_XRGB8888:
    case WL_SHM_FORMAT_ARGB8888:
      return QImage::Format_RGB32;
    case WL_SHM_FORMAT_XBGR8888:
    case WL_SHM_FORMAT_ABGR8888:
      return QImage::Format_RGBX8888;
    case WL_SHM_FORMAT_BGR888:
      return QImage::Format_RGB888;
    default:
      return QImage::Format_Invalid;
  }
}

// As somebody sees it who looks at a screen that is turned or mirrored.
QImage upright(QImage image, int transform, bool isUpsideDown) {
  if (isUpsideDown) image = image.mirrored();
  if (const int quarters = transform % 4; quarters != 0)
    image = image.transformed(QTransform().rotate(90.0 * quarters));
  return transform >= WL_OUTPUT_TRANSFORM_FLIPPED ? image.mirrored(true, false) : image;
}

// Ends with the connection.
std::list<Output> outputsOf(WaylandConnection& connection) {
  std::list<Output> outputs;
  static constexpr wl_output_listener listener{
      .geometry = [](void* self, wl_output*, int, int, int, int, int, const char*, const char*,
                     int transform) { static_cast<Output*>(self)->transform = transform; },
      .mode = [](void*, wl_output*, std::uint32_t, int, int, int) {},
      .done = [](void*, wl_output*) {},
      .scale = [](void*, wl_output*, int) {},
      .name = [](void* self, wl_output*, const char* name) { static_cast<Output*>(self)->name = name; },
      .description = [](void*, wl_output*, const char*) {},
  };
  for (void* each : connection.bindAll(wl_output_interface, 4)) {
    Output& made = outputs.emplace_back(Output{static_cast<wl_output*>(each), {}});
    wl_output_add_listener(made.output, &listener, &made);
  }
  return outputs;
}

void listen(Frame& frame) {
  static constexpr zwlr_screencopy_frame_v1_listener listener{
      .buffer =
          [](void* self, auto*, std::uint32_t format, std::uint32_t width, std::uint32_t height, std::uint32_t stride) {
            auto& told = *static_cast<Frame*>(self);
            told.shmFormat = format, told.format = formatOf(format);
            told.width = width, told.height = height, told.stride = stride;
            told.isDescribed = true;
          },
      .flags =
          [](void* self, auto*, std::uint32_t flags) {
            static_cast<Frame*>(self)->isUpsideDown = (flags & ZWLR_SCREENCOPY_FRAME_V1_FLAGS_Y_INVERT) != 0;
          },
      .ready = [](void* self, auto*, std::uint32_t, std::uint32_t,
                  std::uint32_t) { static_cast<Frame*>(self)->isReady = true; },
      .failed = [](void* self, auto*) { static_cast<Frame*>(self)->hasFailed = true; },
      .damage = [](void*, auto*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
      .linux_dmabuf = [](void*, auto*, std::uint32_t, std::uint32_t, std::uint32_t) {},
      .buffer_done = [](void*, auto*) {},
  };
  zwlr_screencopy_frame_v1_add_listener(frame.frame, &listener, &frame);
}

// The pixels, copied out of the memory that they are handed over in.
QImage copied(WaylandConnection& connection, Frame& frame, SteadyTime until) {
  const std::size_t size = std::size_t{frame.stride} * frame.height;
  const FileDescriptor file(memfd_create("tilebay-capture", MFD_CLOEXEC));
  auto* const shm = static_cast<wl_shm*>(connection.bind(wl_shm_interface, 1));
  if (!shm || file.get() < 0 || ftruncate(file.get(), static_cast<off_t>(size)) != 0) return {};
  wl_shm_pool* const pool = wl_shm_create_pool(shm, file.get(), static_cast<int>(size));
  wl_buffer* const buffer =
      wl_shm_pool_create_buffer(pool, 0, static_cast<int>(frame.width), static_cast<int>(frame.height),
                                static_cast<int>(frame.stride), frame.shmFormat);
  zwlr_screencopy_frame_v1_copy(frame.frame, buffer);
  connection.turnUntil([&] { return frame.isReady || frame.hasFailed; }, until);
  QImage image;
  void* const bytes = frame.isReady ? mmap(nullptr, size, PROT_READ, MAP_SHARED, file.get(), 0) : MAP_FAILED;
  if (bytes != MAP_FAILED) {
    image = QImage(static_cast<const uchar*>(bytes), static_cast<int>(frame.width), static_cast<int>(frame.height),
                   frame.stride, frame.format)
                .copy();
    munmap(bytes, size);
  }
  wl_buffer_destroy(buffer);
  wl_shm_pool_destroy(pool);
  wl_shm_destroy(shm);
  return image;
}

}  // namespace

ScreenPicture captureByCompositor(const std::string& display, const std::string& screen) {
  const SteadyTime until = std::chrono::steady_clock::now() + patience;
  const auto connection = WaylandConnection::open(display, until);
  auto* const manager =
      connection ? static_cast<zwlr_screencopy_manager_v1*>(connection->bind(zwlr_screencopy_manager_v1_interface, 1))
                 : nullptr;
  if (!manager) return {.problem = "The desktop has no service that takes pictures of the screen."};
  auto outputs = outputsOf(*connection);
  bool areNamed = false;
  connection->roundTrip([&areNamed] { areNamed = true; });
  connection->turnUntil([&areNamed] { return areNamed; }, until);
  auto chosen = std::ranges::find(outputs, screen, &Output::name);
  if (chosen == outputs.end()) chosen = outputs.begin();
  ScreenPicture picture;
  if (chosen != outputs.end()) {
    Frame frame{.frame = zwlr_screencopy_manager_v1_capture_output(manager, 0, chosen->output)};
    listen(frame);
    connection->turnUntil([&frame] { return frame.isDescribed || frame.hasFailed; }, until);
    if (frame.isDescribed && frame.format != QImage::Format_Invalid)
      picture.image = upright(copied(*connection, frame, until), chosen->transform, frame.isUpsideDown);
    zwlr_screencopy_frame_v1_destroy(frame.frame);
  }
  for (const Output& each : outputs) wl_output_destroy(each.output);
  zwlr_screencopy_manager_v1_destroy(manager);
  if (picture.image.isNull()) picture.problem = "The desktop gave no picture of the screen.";
  return picture;
}

}  // namespace ambrel
