#pragma once
// A container engine at its local socket.

#include <filesystem>
#include <string>

#include "platform/DeveloperTools.h"

namespace ambrel {

class ContainerEngine {
 public:
  // The first of the sockets at which an engine answers is the one.
  explicit ContainerEngine(std::vector<std::filesystem::path> sockets,
                           std::chrono::milliseconds limit = std::chrono::seconds(5))
      : sockets_(std::move(sockets)), limit_(limit) {}

  ToolAnswer<ContainerReading> containers() const;
  std::optional<ToolFailure> setRunning(const std::string& container, bool isRunning) const;
  ToolAnswer<std::string> log(const std::string& container) const;

 private:
  // The body of a good answer. `socket`: where it came from.
  ToolAnswer<std::string> ask(const std::string& method, const std::string& target, std::chrono::milliseconds limit,
                              std::filesystem::path* socket = nullptr) const;

  std::vector<std::filesystem::path> sockets_;
  std::chrono::milliseconds limit_;
};

}  // namespace ambrel
