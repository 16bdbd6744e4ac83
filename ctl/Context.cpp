#include "ctl/Context.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "core/base/JSON.h"
#include "ctl/Command.h"

namespace ambrel {

Output::Output(int descriptor) : descriptor_(descriptor), isTerminal_(isatty(descriptor) == 1) {}

std::size_t Output::columns() const {
  winsize size{};
  if (!isTerminal_ || ioctl(descriptor_, TIOCGWINSZ, &size) != 0) return 0;
  return size.ws_col;
}

Output& Output::operator<<(std::string_view text) {
  pending_ += text;
  return *this;
}

void Output::flush() {
  std::string_view rest = pending_;
  while (!rest.empty()) {
    const ssize_t count = write(descriptor_, rest.data(), rest.size());
    if (count < 0) {
      if (errno == EINTR) continue;
      if (errno == EPIPE) throw ClosedPipe();
      throw CommandError(std::string("cannot write to standard output: ") + std::strerror(errno));
    }
    rest.remove_prefix(static_cast<std::size_t>(count));
  }
  pending_.clear();
}

void Output::wait(Seconds duration) {
  using namespace std::chrono;
  const auto until = steady_clock::now() + duration_cast<steady_clock::duration>(std::min(duration, Seconds(1e6)));
  for (;;) {
    const auto left = until - steady_clock::now();
    if (left <= left.zero()) return;
    pollfd output{.fd = descriptor_, .events = 0, .revents = 0};
    const int count = poll(&output, 1, static_cast<int>(ceil<milliseconds>(left).count()));
    if (count > 0 && (output.revents & (POLLERR | POLLHUP))) throw ClosedPipe();
  }
}

void Context::print(const nlohmann::json& document) { out << compactJSON(document) << "\n"; }

void Context::warn(std::string_view text) const {
  std::fprintf(stderr, "tilebayctl: %.*s\n", static_cast<int>(text.size()), text.data());
}

std::string Context::styled(std::string_view style, std::string_view text) const {
  if (!hasColors || style.empty()) return std::string(text);
  return "\x1b[" + std::string(style) + "m" + std::string(text) + "\x1b[0m";
}

}  // namespace ambrel
