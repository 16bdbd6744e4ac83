#pragma once
// Generic netlink, as much of it as it takes to ask a question and read the answer.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Files.h"

namespace ambrel::netlink {

// One attribute: its number and its bytes.
struct Attribute {
  std::uint16_t type = 0;
  std::string_view bytes = {};

  // Of that many bytes, in the computer's order; absent when there are not so many.
  std::optional<std::uint8_t> u8() const;
  std::optional<std::uint16_t> u16() const;
  std::optional<std::uint32_t> u32() const;
  std::string_view text() const;  // up to the first NUL
};

// Attributes that follow each other; a damaged one ends the list.
std::vector<Attribute> attributes(std::string_view bytes);
const Attribute* find(const std::vector<Attribute>& list, std::uint16_t type);

// What is asked, and one message of an answer without its headers.
struct Request {
  std::uint16_t family = 0;
  std::uint8_t command = 0;
  bool isDump = false;  // many messages answer
  std::string attributes = {};
};
struct Reply {
  std::uint8_t command = 0;
  std::string attributes;
};

// Appends an attribute to those of a request.
void append(std::string& attributes, std::uint16_t type, std::string_view bytes);
void append(std::string& attributes, std::uint16_t type, std::uint32_t value);

// Absent when it was refused or not answered.
using Exchange = std::function<std::optional<std::vector<Reply>>(const Request&)>;

std::string encode(const Request& request, std::uint32_t sequence);
// The messages of a datagram that answer that sequence; others are passed over.
struct Decoded {
  std::vector<Reply> replies;
  bool isLast = false;
  bool isRefused = false;
};
Decoded decode(std::string_view datagram, std::uint32_t sequence);

// A connection to the kernel. An answer is waited for up to a second.
class Connection {
 public:
  Connection();
  std::optional<std::vector<Reply>> exchange(const Request& request);

 private:
  FileDescriptor socket_;
  std::uint32_t sequence_ = 0;
};

}  // namespace ambrel::netlink
