// How soon a copy in another program has reached the history, beside a bare client of the X server that looks at the
// types and fetches the text, and CopyQ where it is installed.
//
//   ClipCapture [--rounds 60]
//   ClipCapture --watch           the history alone, until it is ended; for measuring what it costs at rest
//   ClipCapture --watch-bare      the bare client alone
//
// Needs a display with nobody else copying, and a home of its own. Ends with 1 when the budget is missed.

#include <QCoreApplication>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <fmt/format.h>
#include <mutex>
#include <string>
#include <sys/inotify.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include "app/clipboard/ClipboardModel.h"
#include "app/model/AppSettings.h"
#include "core/base/Files.h"
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

// The least that a history has to do: wait for a change of the owner, ask what it offers, since a private copy must not
// be fetched, then ask for the text and read it.
void fetchForEver(const std::function<void(const std::string&)>& arrived) {
  xcb_connection_t* xcb = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(xcb)) throw std::runtime_error("no display");
  const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data;
  const xcb_window_t window = xcb_generate_id(xcb);
  xcb_create_window(xcb, 0, window, screen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
  const xcb_atom_t clipboard = atomOf(xcb, "CLIPBOARD"), utf8 = atomOf(xcb, "UTF8_STRING"),
                   targets = atomOf(xcb, "TARGETS"), property = atomOf(xcb, "BARE_CLIENT");
  const auto* extension = xcb_get_extension_data(xcb, &xcb_xfixes_id);
  std::free(xcb_xfixes_query_version_reply(xcb, xcb_xfixes_query_version(xcb, 5, 0), nullptr));
  xcb_xfixes_select_selection_input(xcb, window, clipboard, XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
  xcb_flush(xcb);
  xcb_timestamp_t time = XCB_CURRENT_TIME;
  while (auto* event = xcb_wait_for_event(xcb)) {
    const int type = event->response_type & 0x7F;
    if (type == extension->first_event) {
      const auto& change = *reinterpret_cast<xcb_xfixes_selection_notify_event_t*>(event);
      time = change.selection_timestamp;
      xcb_convert_selection(xcb, window, clipboard, targets, property, time);
      xcb_flush(xcb);
    } else if (type == XCB_SELECTION_NOTIFY) {
      const bool isText = reinterpret_cast<xcb_selection_notify_event_t*>(event)->target == utf8;
      auto* reply = xcb_get_property_reply(
          xcb, xcb_get_property(xcb, 1, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 20), nullptr);
      if (!isText) {
        xcb_convert_selection(xcb, window, clipboard, utf8, property, time);
        xcb_flush(xcb);
      } else if (reply) {
        arrived({static_cast<const char*>(xcb_get_property_value(reply)),
                 static_cast<std::size_t>(xcb_get_property_value_length(reply))});
      }
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
                       Calendar("UTC", "en_US"), folder / "localtime"};
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
    timer.start(std::chrono::seconds(2));
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

// CopyQ tells by a script of its own, which runs when it has taken a copy in, and writes the text to a file.
std::vector<double> copyQTimes(int rounds) {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("copyq"));
  if (program.isEmpty()) return {};
  const TemporaryFolder folder;
  const auto file = (folder / "arrived").string();
  folder.write("copyq/copyq-commands.ini", fmt::format(R"([Commands]
1\Command="
    var takeIn = global.onClipboardChanged
    global.onClipboardChanged = function() {{
      takeIn()
      var file = new File('{}')
      file.openWriteOnly()
      file.write(data(mimeText))
      file.close()
    }}"
1\IsScript=true
1\Name=tell
size=1
)",
                                                       file));
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
    environment.insert(QString::fromLatin1(name), QString::fromStdString(folder.path()));
  static Arrivals arrivals;
  const int watch = inotify_init1(IN_CLOEXEC);
  inotify_add_watch(watch, folder.path().c_str(), IN_CLOSE_WRITE);
  std::thread([watch, file] {
    char events[4096];
    while (read(watch, events, sizeof events) > 0) arrivals.note(readFile(file).value_or(""));
  }).detach();
  QProcess copyQ;
  copyQ.setProcessEnvironment(environment);
  copyQ.start(program, QStringList());
  // What it finds at its start is no news to it.
  bool isUp = false;
  for (int i = 0; i < 20 && !isUp; ++i) {
    const std::string text = fmt::format("up {}", i);
    OwnerClient owner({{"UTF8_STRING", {.manner = Manner::whole, .bytes = text}}});
    owner.copy();
    isUp = arrivals.wait(text, Clock::now()) >= 0;
  }
  std::vector<double> times;
  if (isUp) times = copyAndWait(rounds, arrivals);
  copyQ.terminate();
  if (!copyQ.waitForFinished(5000)) copyQ.kill();
  copyQ.waitForFinished(1000);
  return times;
}

int compare(int rounds) {
  // The bare client last: it stays, and would answer along.
  const auto own = historyTimes(rounds), copyQ = copyQTimes(rounds), bare = bareTimes(rounds);
  if (own.empty() || bare.empty()) throw std::runtime_error("no copy arrived");
  const double floor = median(bare), time = median(own), ratio = time / floor;
  fmt::print("a bare client has the text after {:.2f} ms, the history after {:.2f} ms ({} and {} of {} copies)\n",
             floor * 1e3, time * 1e3, bare.size(), own.size(), rounds);
  if (!copyQ.empty())
    fmt::print("CopyQ has it after {:.2f} ms ({} of {} copies), ratio {:.2f}\n", median(copyQ) * 1e3, copyQ.size(),
               rounds, median(copyQ) / floor);
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
