#pragma once
// Programs of this computer that wait for connections over TCP.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// A line of /proc/net/tcp or /proc/net/tcp6 that listens.
struct ListeningSocket {
  std::string address;  // "127.0.0.1", "::"
  std::uint16_t port = 0;
  std::uint32_t user = 0;
  std::uint64_t inode = 0;
  bool operator==(const ListeningSocket&) const = default;
};
std::vector<ListeningSocket> parseListeningSockets(std::string_view text);

// A process that holds some of them.
struct SocketHolder {
  int pid = 0;
  std::uint64_t startTicks = 0;  // since boot; with the pid it names a process for good
  std::string name;              // "node"
  std::string folder;            // in which it works; empty when that cannot be told
  std::vector<std::uint64_t> inodes;
  bool operator==(const SocketHolder&) const = default;
};

struct LocalServer {
  std::uint16_t port = 0;
  std::vector<std::string> addresses = {};  // sorted
  std::uint32_t user = 0;
  // Of other users' processes nothing more is known: pid 0 and no name.
  int pid = 0;
  std::uint64_t startTicks = 0;
  std::string name = {}, folder = {};
  bool operator==(const LocalServer&) const = default;
};

// One for each port and process, those with a process first, then by port. Of processes that share a socket the one
// that was there first counts: the others are its workers.
std::vector<LocalServer> localServers(const std::vector<ListeningSocket>& sockets,
                                      const std::vector<SocketHolder>& holders);

// What a browser opens: "http://localhost:5173", or the address where the server listens on that one alone.
std::string webAddress(const LocalServer& server);

}  // namespace ambrel
