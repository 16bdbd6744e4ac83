// How soon a copy in another program has reached the history, beside a bare client of the X server that only fetches
// the text, and CopyQ's clipboard monitor where it runs.
//
//   ClipCapture [--rounds 60]
//   ClipCapture --watch           the history alone, until it is ended; for measuring what it costs at rest
//   ClipCapture --watch-bare      the bare client alone
//
// Needs a display with nobody else copying. Ends with 1 when the budget is missed.

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <fmt/format.h>
#include <mutex>
#include <string>
#include <thread>
#include <vector>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include "app/clipboard/ClipboardModel.h"
#include "app/model/AppSettings.h"
#include "platform/linux/LinuxDesktop.h"
#include "tests/TemporaryFolder.h"
#include "tests/e2e/pasteboard/SelectionClients.h"

namespace ambrel {
namespace {

using Clock = std::chrono::steady_clock;
constexpr double budget = 3;

double median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

// Tells a waiting thread that a text has arrived, and when.
class Arrivals {
 public:
  void note(const std::string& text) {
    const auto now = Clock::now();
    const std::scoped_lock lock(mutex_);
    text_ = text;
    time_ = now;
    changed_.notify_all();
  }
  // Seconds from `start` until the text was there; negative when it does not come within two seconds.
  double wait(const std::string& text, Clock::time_point start) {
    std::unique_lock lock(mutex_);
    const bool isThere = changed_.wait_for(lock, std::chrono::seconds(2), [&] { return text_ == text; });
    return isThere ? std::chrono::duration<double>(time_ - start).count() : -1;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string text_;
  Clock::time_point time_;
};

xcb_atom_t atomOf(xcb_connection_t* xcb, const std::string& name) {
  auto* reply = xcb_intern_atom_reply(
      xcb, xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr);
  const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return atom;
}

// The least that has to be done: wait for a change of the owner, ask for the text, read it.
void fetchForEver(const std::function<void(const std::string&)>& arrived) {
  xcb_connection_t* xcb = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(xcb)) throw std::runtime_error("no display");
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
  const xcb_window_t window = xcb_generate_id(xcb);
  xcb_create_window(xcb, 0, window, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
  const xcb_atom_t clipboard = atomOf(xcb, "CLIPBOARD"), utf8 = atomOf(xcb, "UTF8_STRING"),
                   property = atomOf(xcb, "BARE_CLIENT");
  const auto* extension = xcb_get_extension_data(xcb, &xcb_xfixes_id);
  std::free(xcb_xfixes_query_version_reply(xcb, xcb_xfixes_query_version(xcb, 5, 0), nullptr));
  xcb_xfixes_select_selection_input(xcb, window, clipboard, XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
  xcb_flush(xcb);
  while (auto* event = xcb_wait_for_event(xcb)) {
    const int type = event->response_type & 0x7F;
    if (type == extension->first_event) {
      const auto& change = *reinterpret_cast<xcb_xfixes_selection_notify_event_t*>(event);
      xcb_convert_selection(xcb, window, clipboard, utf8, property, change.selection_timestamp);
      xcb_flush(xcb);
    } else if (type == XCB_SELECTION_NOTIFY) {
      auto* reply = xcb_get_property_reply(
          xcb, xcb_get_property(xcb, 1, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 20), nullptr);
      if (reply)
        arrived({static_cast<const char*>(xcb_get_property_value(reply)),
                 static_cast<std::size_t>(xcb_get_property_value_length(reply))});
      std::free(reply);
    }
    std::free(event);
  }
}

// The history as the program has it, on a desktop of its own.
struct WatchedHistory {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  LinuxDesktop desktop{std::getenv("DISPLAY") ? std::getenv("DISPLAY") : "", folder.path().string(),
                       Calendar("UTC", "en_US")};
  QObject context;
  ClipboardModel model{
      settings, folder / "Clipboard", Calendar("UTC", "en_US"),
      ClipboardModel::Seams{
          .pasteboard = desktop.seams().pasteboard,
          .workspace = desktop.seams().workspace,
          .background = makeBackground(context),
          .fileBackground = makeDetachedBackground(context),
          .later = [](Seconds, const std::function<void()>&) {},
          .now = [] { return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now()); }}};
  QTimer timer;

  WatchedHistory() {
    QObject::connect(&timer, &QTimer::timeout, [this] { model.poll(); });
    timer.start(std::chrono::round<std::chrono::milliseconds>(ClipboardModel::pollInterval));
    model.start();
  }
};

// Copies again and again in a thread of its own; the times until each copy had arrived.
std::vector<double> copyAndWait(int rounds, Arrivals& arrivals) {
  std::vector<double> times;
  for (int i = 0; i < rounds; ++i) {
    const std::string text = fmt::format("copy number {} of this run", i);
    OwnerClient owner({{"UTF8_STRING", {.manner = Manner::whole, .bytes = text}}});
    const auto start = Clock::now();
    owner.copy();
    const double time = arrivals.wait(text, start);
    if (time >= 0) times.push_back(time);
    // Between two copies everybody goes back to rest.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return times;
}

std::vector<double> bareTimes(int rounds) {
  static Arrivals arrivals;
  std::thread([] { fetchForEver([](const std::string& text) { arrivals.note(text); }); }).detach();
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  return copyAndWait(rounds, arrivals);
}

std::vector<double> historyTimes(int rounds) {
  WatchedHistory history;
  Arrivals arrivals;
  QObject::connect(&history.model, &ClipboardModel::libraryChanged, [&] {
    const auto& items = history.model.library().items;
    if (!items.empty() && items.front().text) arrivals.note(*items.front().text);
  });
  std::vector<double> times;
  std::thread copies([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    times = copyAndWait(rounds, arrivals);
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  });
  QCoreApplication::exec();
  copies.join();
  return times;
}

int compare(int rounds) {
  // The history first: the bare client stays, and would answer along.
  const auto own = historyTimes(rounds), bare = bareTimes(rounds);
  if (own.empty() || bare.empty()) throw std::runtime_error("no copy arrived");
  const double floor = median(bare), time = median(own), ratio = time / floor;
  fmt::print("a bare client has the text after {:.2f} ms, the history after {:.2f} ms ({} and {} of {} copies)\n",
             floor * 1e3, time * 1e3, bare.size(), own.size(), rounds);
  fmt::print("a copy reaches the history: ratio {:.2f}, budget {:.1f}: {}\n", ratio, budget,
             ratio <= budget ? "kept" : "MISSED");
  return ratio <= budget ? 0 : 1;
}

}  // namespace
}  // namespace ambrel

int main(int count, char** words) {
  using namespace ambrel;
  int rounds = 60;
  const std::string option = count > 1 ? words[1] : "";
  if (option == "--rounds" && count > 2) rounds = std::max(3, std::atoi(words[2]));
  try {
    if (option == "--watch-bare") fetchForEver([](const std::string&) {});
    const QGuiApplication application(count, words);
    if (option == "--watch") {
      const WatchedHistory history;
      return QGuiApplication::exec();
    }
    return compare(rounds);
  } catch (const std::exception& error) {
    fmt::print(stderr, "ClipCapture: {}\n", error.what());
    return 2;
  }
}
