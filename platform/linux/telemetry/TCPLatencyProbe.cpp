#include "platform/linux/telemetry/TCPLatencyProbe.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include "core/base/Files.h"

namespace ambrel {
namespace {

using Clock = std::chrono::steady_clock;

bool isConnected(int socket) {
  int error = 0;
  socklen_t size = sizeof error;
  return getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

}  // namespace

LatencyCheck TCPLatencyProbe::probe() {
  sockaddr_in peer{};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port_);
  if (inet_pton(AF_INET, address_.c_str(), &peer.sin_addr) != 1) return {};
  const FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!socket) return {};
  const auto start = Clock::now(), deadline = start + timeOut_;
  if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0) {
    if (errno != EINPROGRESS) return {};
    for (;;) {
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
      if (left.count() <= 0) return {};
      pollfd ready{.fd = socket.get(), .events = POLLOUT, .revents = 0};
      const int count = poll(&ready, 1, static_cast<int>(left.count()));
      if (count > 0) break;
      if (count < 0 && errno != EINTR) return {};
    }
    if (!isConnected(socket.get())) return {};
  }
  return {std::chrono::duration<double, std::milli>(Clock::now() - start).count()};
}

}  // namespace ambrel
