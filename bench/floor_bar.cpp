// The floor of an idle bar: one dock window, a text drawn by cairo and pango, and one reading of /proc/stat a second.
#include <cairo/cairo-xcb.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <pango/pangocairo.h>
#include <poll.h>
#include <string>
#include <sys/timerfd.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

constexpr int width = 640, height = 80;

xcb_atom_t atom(xcb_connection_t* connection, const char* name) {
  auto* reply = xcb_intern_atom_reply(
      connection, xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr);
  const xcb_atom_t value = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return value;
}

xcb_visualtype_t* visualOf(xcb_screen_t* screen) {
  for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem; xcb_depth_next(&depth))
    for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual))
      if (visual.data->visual_id == screen->root_visual) return visual.data;
  return nullptr;
}

// The busy share since the last reading, so that the text changes as a bar's does.
std::string reading() {
  static unsigned long lastBusy = 0, lastTotal = 0;
  char line[256] = "";
  if (std::FILE* file = std::fopen("/proc/stat", "r")) {
    if (!std::fgets(line, sizeof line, file)) line[0] = 0;
    std::fclose(file);
  }
  unsigned long user = 0, nice = 0, system = 0, idle = 0;
  std::sscanf(line, "cpu %lu %lu %lu %lu", &user, &nice, &system, &idle);
  const unsigned long busy = user + nice + system, total = busy + idle;
  const unsigned long share = 100 * (busy - lastBusy) / (total - lastTotal + 1);
  lastBusy = busy;
  lastTotal = total;
  return "CPU " + std::to_string(share) + " %";
}

void draw(cairo_surface_t* surface, const std::string& text) {
  cairo_t* cairo = cairo_create(surface);
  cairo_set_source_rgb(cairo, 0.1, 0.1, 0.12);
  cairo_paint(cairo);
  PangoLayout* layout = pango_cairo_create_layout(cairo);
  PangoFontDescription* font = pango_font_description_from_string("Inter Semi-Bold 14");
  pango_layout_set_font_description(layout, font);
  pango_layout_set_text(layout, text.c_str(), -1);
  cairo_set_source_rgb(cairo, 1, 1, 1);
  cairo_move_to(cairo, 16, 28);
  pango_cairo_show_layout(cairo, layout);
  pango_font_description_free(font);
  g_object_unref(layout);
  cairo_destroy(cairo);
  cairo_surface_flush(surface);
}

}  // namespace

int main() {
  int number = 0;
  xcb_connection_t* connection = xcb_connect(nullptr, &number);
  if (xcb_connection_has_error(connection)) return std::fputs("floor_bar: no display\n", stderr), 1;
  xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  const xcb_window_t window = xcb_generate_id(connection);
  const uint32_t values[] = {screen->black_pixel, XCB_EVENT_MASK_EXPOSURE};
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0,
                    static_cast<int16_t>(screen->height_in_pixels - height), width, height, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
  const xcb_atom_t dock = atom(connection, "_NET_WM_WINDOW_TYPE_DOCK");
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, atom(connection, "_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
                      32, 1, &dock);
  xcb_map_window(connection, window);
  cairo_surface_t* surface = cairo_xcb_surface_create(connection, window, visualOf(screen), width, height);
  xcb_flush(connection);

  const int timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC);
  const itimerspec second{{1, 0}, {1, 0}};
  timerfd_settime(timer, 0, &second, nullptr);
  std::string shown = reading();
  for (;;) {
    pollfd waits[] = {{xcb_get_file_descriptor(connection), POLLIN, 0}, {timer, POLLIN, 0}};
    if (poll(waits, 2, -1) < 0) continue;
    bool isDirty = false;
    if (waits[1].revents) {
      uint64_t ticks = 0;
      if (read(timer, &ticks, sizeof ticks) > 0) {
        const std::string now = reading();
        isDirty = now != shown;
        shown = now;
      }
    }
    while (xcb_generic_event_t* event = xcb_poll_for_event(connection)) {
      isDirty = isDirty || (event->response_type & 0x7F) == XCB_EXPOSE;
      std::free(event);
    }
    if (xcb_connection_has_error(connection)) return 0;
    if (isDirty) {
      draw(surface, shown);
      xcb_flush(connection);
    }
  }
}
