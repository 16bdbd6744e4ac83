#include "core/developer/LocalServers.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <cstring>
#include <map>
#include <optional>
#include <tuple>

#include "core/telemetry/ProcText.h"

namespace ambrel {
namespace {

template <typename Number>
std::optional<Number> hexadecimal(std::string_view text) {
  Number value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

// Words of 32 bits in the processor's order of bytes, whose bytes are in the network's.
std::string addressText(std::string_view digits) {
  std::array<std::uint32_t, 4> words{};
  if (digits.size() != 8 && digits.size() != 32) return {};
  for (std::size_t i = 0; i < digits.size() / 8; ++i) {
    const auto word = hexadecimal<std::uint32_t>(digits.substr(i * 8, 8));
    if (!word) return {};
    words[i] = *word;
  }
  std::array<char, INET6_ADDRSTRLEN> text{};
  return inet_ntop(digits.size() == 8 ? AF_INET : AF_INET6, words.data(), text.data(), text.size()) ? text.data() : "";
}

// The next word of a line, which is taken off it.
std::string_view takeWord(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  const std::string_view word = line.substr(0, line.find(' '));
  line.remove_prefix(word.size());
  return word;
}

// The addresses that "localhost" leads to.
bool isLocalhost(const std::string& address) {
  constexpr std::string_view all[] = {"0.0.0.0", "::", "127.0.0.1", "::1", "::ffff:127.0.0.1", "::ffff:0.0.0.0"};
  return std::ranges::find(all, address) != std::end(all);
}

}  // namespace

std::vector<ListeningSocket> parseListeningSockets(std::string_view text) {
  std::vector<ListeningSocket> sockets;
  eachLine(text, [&](std::string_view line) {
    takeWord(line);  // a number of its own
    const std::string_view local = takeWord(line);
    takeWord(line);  // the other end
    constexpr std::string_view listening = "0A";
    if (takeWord(line) != listening) return;
    for (int i = 0; i < 3; ++i) takeWord(line);  // queues and timers
    const auto user = takeNumber(line);
    takeWord(line);  // a timeout
    const auto inode = takeNumber(line);
    const std::size_t colon = local.find(':');
    if (colon == std::string_view::npos || !user || !inode || *inode == 0) return;
    const auto port = hexadecimal<std::uint16_t>(local.substr(colon + 1));
    std::string address = addressText(local.substr(0, colon));
    if (port && !address.empty())
      sockets.push_back({std::move(address), *port, static_cast<std::uint32_t>(*user), *inode});
  });
  return sockets;
}

std::vector<LocalServer> localServers(const std::vector<ListeningSocket>& sockets,
                                      const std::vector<SocketHolder>& holders) {
  std::map<std::uint64_t, const SocketHolder*> holderOf;
  for (const SocketHolder& holder : holders)
    for (const std::uint64_t inode : holder.inodes) {
      const SocketHolder*& first = holderOf[inode];
      if (!first || std::pair(holder.startTicks, holder.pid) < std::pair(first->startTicks, first->pid))
        first = &holder;
    }
  std::map<std::tuple<bool, std::uint16_t, int, std::uint32_t>, LocalServer> servers;
  for (const ListeningSocket& socket : sockets) {
    const auto found = holderOf.find(socket.inode);
    const SocketHolder* holder = found == holderOf.end() ? nullptr : found->second;
    LocalServer& server = servers[{!holder, socket.port, holder ? holder->pid : 0, socket.user}];
    server.port = socket.port;
    server.user = socket.user;
    server.addresses.push_back(socket.address);
    if (!holder) continue;
    server.pid = holder->pid;
    server.startTicks = holder->startTicks;
    server.name = holder->name;
    server.folder = holder->folder;
  }
  std::vector<LocalServer> list;
  for (auto& [key, server] : servers) {
    std::ranges::sort(server.addresses);
    server.addresses.erase(std::unique(server.addresses.begin(), server.addresses.end()), server.addresses.end());
    list.push_back(std::move(server));
  }
  return list;
}

std::string webAddress(const LocalServer& server) {
  const bool isLocal = server.addresses.empty() || std::ranges::any_of(server.addresses, isLocalhost);
  std::string host = isLocal ? "localhost" : server.addresses.front();
  if (host.find(':') != std::string::npos) host = "[" + host + "]";
  return "http://" + host + ":" + std::to_string(server.port);
}

}  // namespace ambrel
