#include "platform/linux/telemetry/Netlink.h"

#include <array>
#include <cstring>
#include <linux/genetlink.h>
#include <linux/netlink.h>
#include <poll.h>
#include <sys/socket.h>

namespace ambrel::netlink {
namespace {

constexpr int patienceMilliseconds = 1000;
constexpr std::size_t largestDatagram = 1 << 16;

template <typename Value>
std::optional<Value> take(std::string_view bytes) {
  if (bytes.size() < sizeof(Value)) return std::nullopt;
  Value value;
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

template <typename Value>
void put(std::string& bytes, const Value& value) {
  bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

// Everything begins at a multiple of four.
constexpr std::size_t aligned(std::size_t length) { return (length + 3) & ~std::size_t(3); }

}  // namespace

std::optional<std::uint8_t> Attribute::u8() const { return take<std::uint8_t>(bytes); }
std::optional<std::uint16_t> Attribute::u16() const { return take<std::uint16_t>(bytes); }
std::optional<std::uint32_t> Attribute::u32() const { return take<std::uint32_t>(bytes); }
std::string_view Attribute::text() const { return bytes.substr(0, bytes.find('\0')); }

std::vector<Attribute> attributes(std::string_view bytes) {
  std::vector<Attribute> list;
  while (const auto header = take<nlattr>(bytes)) {
    if (header->nla_len < sizeof(nlattr) || header->nla_len > bytes.size()) break;
    list.push_back({static_cast<std::uint16_t>(header->nla_type & NLA_TYPE_MASK),
                    bytes.substr(sizeof(nlattr), header->nla_len - sizeof(nlattr))});
    bytes.remove_prefix(std::min(aligned(header->nla_len), bytes.size()));
  }
  return list;
}

const Attribute* find(const std::vector<Attribute>& list, std::uint16_t type) {
  for (const Attribute& attribute : list)
    if (attribute.type == type) return &attribute;
  return nullptr;
}

void append(std::string& attributes, std::uint16_t type, std::string_view bytes) {
  put(attributes, nlattr{.nla_len = static_cast<std::uint16_t>(sizeof(nlattr) + bytes.size()), .nla_type = type});
  attributes += bytes;
  attributes.resize(aligned(attributes.size()));
}

void append(std::string& attributes, std::uint16_t type, std::uint32_t value) {
  append(attributes, type, std::string_view(reinterpret_cast<const char*>(&value), sizeof value));
}

std::string encode(const Request& request, std::uint32_t sequence) {
  std::string message;
  put(message,
      nlmsghdr{
          .nlmsg_len = static_cast<std::uint32_t>(sizeof(nlmsghdr) + sizeof(genlmsghdr) + request.attributes.size()),
          .nlmsg_type = request.family,
          .nlmsg_flags = static_cast<std::uint16_t>(NLM_F_REQUEST | (request.isDump ? NLM_F_DUMP : NLM_F_ACK)),
          .nlmsg_seq = sequence,
          .nlmsg_pid = 0});
  put(message, genlmsghdr{.cmd = request.command, .version = 1, .reserved = 0});
  return message + request.attributes;
}

Decoded decode(std::string_view datagram, std::uint32_t sequence) {
  Decoded decoded;
  while (const auto header = take<nlmsghdr>(datagram)) {
    if (header->nlmsg_len < sizeof(nlmsghdr) || header->nlmsg_len > datagram.size()) break;
    const std::string_view body = datagram.substr(sizeof(nlmsghdr), header->nlmsg_len - sizeof(nlmsghdr));
    datagram.remove_prefix(std::min(aligned(header->nlmsg_len), datagram.size()));
    if (header->nlmsg_seq != sequence) continue;
    if (header->nlmsg_type == NLMSG_DONE || header->nlmsg_type == NLMSG_ERROR) {
      // An error of 0 acknowledges.
      decoded.isLast = true;
      decoded.isRefused = header->nlmsg_type == NLMSG_ERROR && take<std::int32_t>(body).value_or(-1) != 0;
      return decoded;
    }
    const auto generic = take<genlmsghdr>(body);
    if (generic) decoded.replies.push_back({generic->cmd, std::string(body.substr(sizeof(genlmsghdr)))});
  }
  return decoded;
}

Connection::Connection() : socket_(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_GENERIC)) {}

std::optional<std::vector<Reply>> Connection::exchange(const Request& request) {
  if (!socket_) return std::nullopt;
  sockaddr_nl kernel{};
  kernel.nl_family = AF_NETLINK;
  const std::string message = encode(request, ++sequence_);
  if (sendto(socket_.get(), message.data(), message.size(), 0, reinterpret_cast<const sockaddr*>(&kernel),
             sizeof kernel) < 0)
    return std::nullopt;
  std::vector<Reply> replies;
  std::vector<char> buffer(largestDatagram);
  for (;;) {
    pollfd ready{.fd = socket_.get(), .events = POLLIN, .revents = 0};
    if (poll(&ready, 1, patienceMilliseconds) <= 0) return std::nullopt;
    const ssize_t count = recv(socket_.get(), buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (count <= 0) return std::nullopt;
    Decoded decoded = decode({buffer.data(), static_cast<std::size_t>(count)}, sequence_);
    for (Reply& reply : decoded.replies) replies.push_back(std::move(reply));
    if (decoded.isRefused) return std::nullopt;
    if (decoded.isLast) return replies;
  }
}

}  // namespace ambrel::netlink
