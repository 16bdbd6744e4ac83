#pragma once
// Who listens on this computer, from /proc.

#include <filesystem>
#include <mutex>
#include <set>
#include <sys/types.h>
#include <vector>

#include "core/developer/LocalServers.h"

namespace ambrel {

class ServerReader {
 public:
  // user: whose processes are looked into. The system lets nobody else's be looked into.
  ServerReader(std::filesystem::path proc, uid_t user) : proc_(std::move(proc)), user_(user) {}

  std::vector<LocalServer> read();
  // See DeveloperTools::stop.
  bool stop(const LocalServer& server);

 private:
  std::vector<SocketHolder> holders() const;
  std::vector<std::uint64_t> socketsOf(const std::string& process) const;
  bool isAlive(const SocketHolder& holder) const;

  std::filesystem::path proc_;
  uid_t user_;
  std::mutex mutex_;
  std::vector<SocketHolder> holders_;  // of the last reading
  std::set<std::uint64_t> strangers_;  // sockets of the user's whose holder was not found, as in a container
};

}  // namespace ambrel
