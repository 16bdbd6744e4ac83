#include "app/QuitSignals.h"

#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace ambrel {
namespace {

constexpr int quitting[] = {SIGTERM, SIGINT, SIGHUP};

// Written to by the handler, which may do little else.
int told = -1;

void tell(int) {
  const std::uint64_t one = 1;
  [[maybe_unused]] const auto written = write(told, &one, sizeof one);
}

}  // namespace

QuitSignals::QuitSignals(std::function<void()> quit)
    : notifier_(told = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [quit = std::move(quit)] {
    std::uint64_t count = 0;
    if (read(told, &count, sizeof count) == sizeof count) quit();
  });
  struct sigaction action {};
  action.sa_handler = tell;
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  for (const int signal : quitting) sigaction(signal, &action, nullptr);
}

QuitSignals::~QuitSignals() {
  for (const int signal : quitting) std::signal(signal, SIG_DFL);
  close(std::exchange(told, -1));
}

}  // namespace ambrel
