// How long programs take from their start to the first frame of their window: an X client watches the screen, starts
// them in turns, and takes the median of each. The first is the floor; the rest are printed as ratios to it.
//
//   first_frame [--rounds N] [--budget RATIO] NAME=COMMAND...    COMMAND is split at blanks and started without a shell
//
// The first frame is when a window that is mapped and at least 100 by 40 pixels large is damaged for the first time.
// Best without a window manager, whose frames would be drawn first.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <optional>
#include <poll.h>
#include <set>
#include <signal.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace {

using Clock = std::chrono::steady_clock;

struct Times {
  double wall = 0, processor = 0;  // seconds; processor: of all threads, at the first frame
};

struct Program {
  std::string name;
  std::vector<std::string> words;
  std::vector<Times> taken;
};

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

class Screen {
 public:
  Screen() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_)) throw std::runtime_error("no display");
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    const auto* extension = xcb_get_extension_data(connection_, &xcb_damage_id);
    if (!extension || !extension->present) throw std::runtime_error("the display tells nothing of damage");
    damaged_ = extension->first_event + XCB_DAMAGE_NOTIFY;
    std::free(xcb_damage_query_version_reply(connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));
    const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_);
  }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  ~Screen() { xcb_disconnect(connection_); }

  void forget() {
    while (auto* event = xcb_poll_for_event(connection_)) std::free(event);
    watched_.clear();
  }

  bool showsFrame(Clock::time_point deadline) {
    while (Clock::now() < deadline) {
      while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_), &std::free}) {
        const int type = event->response_type & 0x7F;
        if (type == XCB_MAP_NOTIFY) watch(reinterpret_cast<xcb_map_notify_event_t*>(event.get())->window);
        if (type == damaged_ && isLarge(reinterpret_cast<xcb_damage_notify_event_t*>(event.get())->drawable))
          return true;
      }
      pollfd wait{xcb_get_file_descriptor(connection_), POLLIN, 0};
      poll(&wait, 1, 20);
    }
    return false;
  }

 private:
  void watch(xcb_window_t window) {
    if (!watched_.insert(window).second) return;
    xcb_damage_create(connection_, xcb_generate_id(connection_), window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    xcb_flush(connection_);
  }
  bool isLarge(xcb_window_t window) {
    const Reply<xcb_get_geometry_reply_t> geometry{
        xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr), &std::free};
    return geometry && geometry->width >= 100 && geometry->height >= 40;
  }

  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
  int damaged_ = 0;
  std::set<xcb_window_t> watched_;
};

pid_t started(const Program& program) {
  const pid_t pid = fork();
  if (pid != 0) return pid;
  setpgid(0, 0);
  const int nowhere = open("/dev/null", O_RDWR);
  for (int number = 0; number < 3; ++number) dup2(nowhere, number);
  std::vector<char*> arguments;
  for (const std::string& word : program.words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

double processorTime(pid_t pid) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
  std::string line;
  std::getline(file, line);
  std::istringstream rest(line.substr(std::min(line.size(), line.rfind(')') + 1)));
  std::string skipped;
  for (int field = 3; field < 14; ++field) rest >> skipped;
  double user = 0, system = 0;
  rest >> user >> system;
  return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

std::optional<Times> measured(Screen& screen, const Program& program) {
  screen.forget();
  const auto start = Clock::now();
  const pid_t pid = started(program);
  const bool isShown = screen.showsFrame(start + std::chrono::seconds(30));
  const Times times{std::chrono::duration<double>(Clock::now() - start).count(), processorTime(pid)};
  kill(-pid, SIGTERM);
  waitpid(pid, nullptr, 0);
  return isShown ? std::optional(times) : std::nullopt;
}

double median(const std::vector<Times>& times, double Times::*part) {
  std::vector<double> values;
  for (const Times& each : times) values.push_back(each.*part);
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int count, char** words) try {
  int rounds = 7;
  double budget = 2.5;
  std::vector<Program> programs;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (word == "--rounds" && i + 1 < count) {
      rounds = std::max(1, std::atoi(words[++i]));
    } else if (word == "--budget" && i + 1 < count) {
      budget = std::atof(words[++i]);
    } else {
      Program program{word.substr(0, word.find('=')), {}, {}};
      std::istringstream rest(word.substr(std::min(word.size(), word.find('=') + 1)));
      for (std::string piece; rest >> piece;) program.words.push_back(piece);
      if (!program.words.empty()) programs.push_back(program);
    }
  }
  if (programs.empty()) return std::fputs("usage: first_frame [--rounds N] NAME=COMMAND...\n", stderr), 2;

  Screen screen;
  // The first start of each fills the caches and does not count.
  for (int round = -1; round < rounds; ++round)
    for (Program& program : programs) {
      const auto times = measured(screen, program);
      if (!times) return std::fprintf(stderr, "first_frame: %s shows no window\n", program.name.c_str()), 1;
      if (round >= 0) program.taken.push_back(*times);
    }
  std::printf("%-14s %9s %7s %9s %7s   (median of %d, budget %.2f)\n", "program", "wall ms", "ratio", "CPU ms", "ratio",
              rounds, budget);
  const double floorWall = median(programs[0].taken, &Times::wall);
  const double floorProcessor = std::max(median(programs[0].taken, &Times::processor), 0.01);
  bool isWithin = true;
  for (const Program& program : programs) {
    const double wall = median(program.taken, &Times::wall), processor = median(program.taken, &Times::processor);
    std::printf("%-14s %9.1f %7.2f %9.0f %7.2f\n", program.name.c_str(), wall * 1e3, wall / floorWall, processor * 1e3,
                processor / floorProcessor);
    isWithin = isWithin && wall / floorWall <= budget;
  }
  return isWithin ? 0 : 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "first_frame: %s\n", error.what());
  return 1;
}
