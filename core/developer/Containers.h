#pragma once
// What a container engine says over its interface, which Docker's and Podman's engines share.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

struct Container {
  enum class Health { unknown, starting, healthy, unhealthy };

  std::string id = {};
  std::string name = {};    // "shop-web-1"
  std::string image = {};   // "nginx:1.25"
  std::string status = {};  // the engine's own words: "Up 2 hours (healthy)"
  bool isRunning = false;
  Health health = Health::unknown;
  std::vector<std::uint16_t> ports = {};  // of this computer, in order
  bool operator==(const Container&) const = default;
};

// Where an engine may listen, the likeliest first. dockerHost: DOCKER_HOST; runtime: XDG_RUNTIME_DIR; both may be
// empty. Absent when DOCKER_HOST names another computer.
std::optional<std::vector<std::filesystem::path>> containerSockets(std::string_view dockerHost,
                                                                   const std::filesystem::path& runtime,
                                                                   const std::filesystem::path& home);

// Those that run first, and by name. Absent when the text is no list of containers.
std::optional<std::vector<Container>> parseContainers(std::string_view json);
// Why the engine did not do something, in its own words; empty when it does not say.
std::string engineComplaint(std::string_view json);

// The last lines of a log as a person reads them: standard output and errors as they came, without control characters
// and the sequences that colour a terminal. A terminal's log comes as it is, others in frames of eight bytes and a
// text.
std::string readableLog(std::string_view bytes, std::size_t mostLines);

}  // namespace ambrel
