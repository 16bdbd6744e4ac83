#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include "core/base/Files.h"
#include "platform/linux/telemetry/TCPLatencyProbe.h"

namespace ambrel {
namespace {

using namespace std::chrono_literals;

// A port of this computer's own.
struct Listener {
  explicit Listener(int waitingPlaces) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(socket.get(), reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
        (waitingPlaces >= 0 && listen(socket.get(), waitingPlaces) != 0))
      throw std::runtime_error("cannot listen");
    port = ntohs(address.sin_port);
  }
  FileDescriptor socket{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  std::uint16_t port = 0;
};

TEST(LatencyProbe, TellsHowLongAConnectionTakes) {
  const Listener listener(4);
  const auto check = TCPLatencyProbe("127.0.0.1", listener.port, 5s).probe();
  ASSERT_TRUE(check.milliseconds);
  EXPECT_GT(*check.milliseconds, 0);
  EXPECT_LT(*check.milliseconds, 5000);
}

TEST(LatencyProbe, FailsWhereNobodyListens) {
  const Listener closed(-1);
  EXPECT_EQ(TCPLatencyProbe("127.0.0.1", closed.port, 5s).probe(), LatencyCheck{});
  EXPECT_EQ(TCPLatencyProbe("not an address", 443, 5s).probe(), LatencyCheck{});
}

TEST(LatencyProbe, DoesNotWaitLongerThanItMay) {
  // With its places taken, the listener leaves further connections without an answer.
  const Listener full(0);
  TCPLatencyProbe probe("127.0.0.1", full.port, 20ms);
  std::vector<FileDescriptor> waiting;
  for (int i = 0; i < 3; ++i) {
    waiting.emplace_back(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(full.port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connect(waiting.back().get(), reinterpret_cast<sockaddr*>(&address), sizeof address);
  }
  EXPECT_EQ(probe.probe(), LatencyCheck{});
}

}  // namespace
}  // namespace ambrel
