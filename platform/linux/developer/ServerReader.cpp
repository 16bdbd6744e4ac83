#include "platform/linux/developer/ServerReader.h"

#include <algorithm>
#include <csignal>
#include <sys/stat.h>

#include "core/base/Files.h"
#include "core/telemetry/KernelTexts.h"
#include "core/telemetry/ProcText.h"
#include "platform/linux/telemetry/SmallFiles.h"

// The header of glibc 2.36 does not say that its functions are C's.
extern "C" {
#include <sys/pidfd.h>
}

namespace ambrel {
namespace {

namespace fs = std::filesystem;

std::string linkTarget(const fs::path& link) {
  std::error_code error;
  return fs::read_symlink(link, error).string();
}

}  // namespace

std::vector<std::uint64_t> ServerReader::socketsOf(const std::string& process) const {
  std::vector<std::uint64_t> inodes;
  std::error_code error;
  fs::directory_iterator entry(proc_ / process / "fd", error), end;
  for (; !error && entry != end; entry.increment(error)) {
    const std::string target = linkTarget(entry->path());  // "socket:[12345]"
    constexpr std::string_view prefix = "socket:[";
    if (!target.starts_with(prefix)) continue;
    std::string_view number = std::string_view(target).substr(prefix.size());
    if (const auto inode = takeNumber(number)) inodes.push_back(*inode);
  }
  return inodes;
}

std::vector<SocketHolder> ServerReader::holders() const {
  std::vector<SocketHolder> found;
  for (const std::string& process : namesIn(proc_)) {
    if (process.find_first_not_of("0123456789") != std::string::npos) continue;
    struct stat status;
    if (stat((proc_ / process).c_str(), &status) != 0 || status.st_uid != user_) continue;
    std::vector<std::uint64_t> inodes = socketsOf(process);
    if (inodes.empty()) continue;
    const auto times = parseProcessTimes(readText(proc_ / process / "stat").value_or(""));
    // The session's service manager has the sockets of services, whether they run or not, and is none of them.
    if (!times || times->name == "systemd") continue;
    std::string folder = linkTarget(proc_ / process / "cwd");
    if (folder.ends_with(" (deleted)")) folder.clear();
    found.push_back({times->pid, times->startTicks,
                     wholeName(times->name, readText(proc_ / process / "cmdline").value_or("")), std::move(folder),
                     std::move(inodes)});
  }
  return found;
}

bool ServerReader::isAlive(const SocketHolder& holder) const {
  const auto times = parseProcessTimes(readText(proc_ / std::to_string(holder.pid) / "stat").value_or(""));
  return times && times->startTicks == holder.startTicks;
}

std::vector<LocalServer> ServerReader::read() {
  std::vector<ListeningSocket> sockets;
  for (const char* table : {"net/tcp", "net/tcp6"}) {
    const auto part = parseListeningSockets(readText(proc_ / table).value_or(""));
    sockets.insert(sockets.end(), part.begin(), part.end());
  }
  const std::scoped_lock lock(mutex_);
  // Every descriptor of every process is looked at only when there is a socket whose holder is not known.
  std::erase_if(holders_, [&](const SocketHolder& holder) { return !isAlive(holder); });
  const auto unheld = [&] {
    std::set<std::uint64_t> inodes;
    for (const ListeningSocket& socket : sockets)
      if (socket.user == user_) inodes.insert(socket.inode);
    for (const SocketHolder& holder : holders_)
      for (const std::uint64_t inode : holder.inodes) inodes.erase(inode);
    return inodes;
  };
  const std::set<std::uint64_t> unknown = unheld();
  if (!std::ranges::includes(strangers_, unknown)) {
    holders_ = holders();
    for (SocketHolder& holder : holders_)
      std::erase_if(holder.inodes, [&](std::uint64_t inode) {
        return std::ranges::find(sockets, inode, &ListeningSocket::inode) == sockets.end();
      });
    std::erase_if(holders_, [](const SocketHolder& holder) { return holder.inodes.empty(); });
    strangers_ = unheld();
  }
  return localServers(sockets, holders_);
}

bool ServerReader::stop(const LocalServer& server) {
  if (server.pid <= 1) return false;
  // From here on the handle means this process, whatever becomes of its number.
  const FileDescriptor process(pidfd_open(server.pid, 0));
  if (!process) return false;
  const std::vector<LocalServer> now = read();
  const bool isSame = std::ranges::any_of(now, [&](const LocalServer& other) {
    return other.pid == server.pid && other.startTicks == server.startTicks && other.port == server.port;
  });
  return isSame && pidfd_send_signal(process.get(), SIGTERM, nullptr, 0) == 0;
}

}  // namespace ambrel
