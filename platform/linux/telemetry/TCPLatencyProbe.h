#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "platform/LatencyProbe.h"

namespace ambrel {

// The time that a plain TCP connection takes to be made. An address, no name: looking one up would count as well.
class TCPLatencyProbe : public LatencyProbe {
 public:
  TCPLatencyProbe(std::string address = "1.1.1.1", std::uint16_t port = 443,
                  std::chrono::milliseconds timeOut = std::chrono::seconds(5))
      : address_(std::move(address)), port_(port), timeOut_(timeOut) {}

  LatencyCheck probe() override;

 private:
  std::string address_;
  std::uint16_t port_;
  std::chrono::milliseconds timeOut_;
};

}  // namespace ambrel
