#include "platform/linux/developer/ContainerEngine.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/Text.h"
#include "core/developer/HTTPAnswer.h"

namespace ambrel {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t longestAnswer = 8 << 20;
constexpr std::size_t shownLines = 200;
constexpr std::chrono::seconds stopGrace{10};  // after which the engine ends a container by force

// Waits for the socket; false when the time is over.
bool waitFor(const FileDescriptor& socket, short events, Clock::time_point deadline) {
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return false;
    pollfd wanted{socket.get(), events, 0};
    const int ready = poll(&wanted, 1, static_cast<int>(left));
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
}

// errno says why not.
FileDescriptor connectTo(const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.native().size() >= sizeof address.sun_path) {
    errno = ENAMETOOLONG;
    return {};
  }
  std::memcpy(address.sun_path, path.c_str(), path.native().size());
  FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!socket || connect(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return {};
  return socket;
}

// Absent when it does not come whole in time.
std::optional<HTTPAnswer> exchange(const FileDescriptor& socket, std::string_view request, Clock::time_point deadline) {
  while (!request.empty()) {
    const ssize_t sent = send(socket.get(), request.data(), request.size(), MSG_NOSIGNAL);
    if (sent > 0) request.remove_prefix(static_cast<std::size_t>(sent));
    if (sent < 0 && (errno != EAGAIN || !waitFor(socket, POLLOUT, deadline))) return std::nullopt;
  }
  std::string bytes;
  std::array<char, 16384> part;
  while (bytes.size() <= longestAnswer && waitFor(socket, POLLIN, deadline)) {
    const ssize_t got = recv(socket.get(), part.data(), part.size(), 0);
    if (got == 0) return parseHTTPAnswer(bytes);
    if (got > 0) bytes.append(part.data(), static_cast<std::size_t>(got));
    if (got < 0 && errno != EAGAIN && errno != EINTR) return std::nullopt;
  }
  return std::nullopt;
}

std::string engineName(const std::filesystem::path& socket) {
  return socket.native().find("podman") == std::string::npos ? "Docker" : "Podman";
}

}  // namespace

ToolAnswer<std::string> ContainerEngine::ask(const std::string& method, const std::string& target,
                                             std::chrono::milliseconds limit, std::filesystem::path* socket) const {
  ToolFailure failure;
  for (const std::filesystem::path& path : sockets_) {
    const FileDescriptor connection = connectTo(path);
    if (!connection) {
      if (errno == EACCES || errno == EPERM) failure.reason = ToolFailure::Reason::noAccess;
      continue;
    }
    const auto answer =
        exchange(connection, method + " " + target + " HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n",
                 Clock::now() + limit);
    if (!answer) return ToolFailure{ToolFailure::Reason::failed};
    if (socket) *socket = path;
    if (answer->status == 304 || (answer->status >= 200 && answer->status < 300)) return answer->body;
    return ToolFailure{ToolFailure::Reason::failed, engineComplaint(answer->body)};
  }
  return failure;
}

ToolAnswer<ContainerReading> ContainerEngine::containers() const {
  std::filesystem::path socket;
  auto answer = ask("GET", "/containers/json?all=1", limit_, &socket);
  if (auto* failure = std::get_if<ToolFailure>(&answer)) return std::move(*failure);
  auto containers = parseContainers(std::get<std::string>(answer));
  if (!containers) return ToolFailure{ToolFailure::Reason::failed};
  return ContainerReading{engineName(socket), std::move(*containers)};
}

std::optional<ToolFailure> ContainerEngine::setRunning(const std::string& container, bool isRunning) const {
  const std::string path = "/containers/" + percentEncodedPath(container);
  auto answer = isRunning ? ask("POST", path + "/start", limit_ + stopGrace)
                          : ask("POST", path + "/stop?t=" + std::to_string(stopGrace.count()), limit_ + stopGrace);
  if (auto* failure = std::get_if<ToolFailure>(&answer)) return std::move(*failure);
  return std::nullopt;
}

ToolAnswer<std::string> ContainerEngine::log(const std::string& container) const {
  auto answer =
      ask("GET",
          "/containers/" + percentEncodedPath(container) + "/logs?stdout=1&stderr=1&tail=" + std::to_string(shownLines),
          limit_);
  if (auto* body = std::get_if<std::string>(&answer)) *body = readableLog(*body, shownLines);
  return answer;
}

}  // namespace ambrel
