#include "core/developer/Containers.h"

#include <algorithm>
#include <set>
#include <utility>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

Container::Health healthOf(const JSON& container, std::string_view status) {
  const JSON* health = objectField(container, "Health");
  const std::string said = health ? stringField(*health, "Status").value_or("") : std::string();
  const auto says = [&](const char* word, const char* inStatus) {
    return said == word || status.find(inStatus) != std::string_view::npos;
  };
  if (says("unhealthy", "(unhealthy)")) return Container::Health::unhealthy;
  if (says("healthy", "(healthy)")) return Container::Health::healthy;
  if (says("starting", "(health: starting)")) return Container::Health::starting;
  return Container::Health::unknown;
}

std::string nameOf(const JSON& container) {
  if (const JSON* names = arrayField(container, "Names"))
    for (const JSON& name : *names)
      if (name.is_string()) return name.get<std::string>().substr(name.get<std::string>().starts_with('/') ? 1 : 0);
  return stringField(container, "Id").value_or("").substr(0, 12);
}

// The frames' texts behind one another; the bytes as they are where they are no frames.
std::string joinedFrames(std::string_view bytes) {
  std::string text;
  for (std::string_view rest = bytes; !rest.empty();) {
    if (rest.size() < 8 || rest[0] < 0 || rest[0] > 2 || rest.substr(1, 3) != std::string_view("\0\0\0", 3))
      return rest.size() == bytes.size() ? std::string(bytes) : text;
    std::size_t size = 0;
    for (const char byte : rest.substr(4, 4)) size = size << 8 | static_cast<unsigned char>(byte);
    rest.remove_prefix(8);
    text += rest.substr(0, size);
    rest.remove_prefix(std::min(size, rest.size()));
  }
  return text;
}

// How long the terminal's sequence is that begins with the escape character.
std::size_t sequenceLength(std::string_view text) {
  if (text.size() < 2) return text.size();
  if (text[1] == ']') {  // a title or a link, up to a bell or ESC \.
    const std::size_t end = text.find_first_of("\a\x1b\n", 2);
    if (end == std::string_view::npos) return text.size();
    return text[end] == '\n' ? end : text[end] == '\a' ? end + 1 : std::min(end + 2, text.size());
  }
  if (text[1] != '[') return 2;
  const std::size_t end =
      std::find_if(text.begin() + 2, text.end(), [](char c) { return c >= '@' && c <= '~'; }) - text.begin();
  return std::min(end + 1, text.size());
}

}  // namespace

std::optional<std::vector<std::filesystem::path>> containerSockets(std::string_view dockerHost,
                                                                   const std::filesystem::path& runtime,
                                                                   const std::filesystem::path& home) {
  if (!dockerHost.empty()) {
    constexpr std::string_view local = "unix://";
    if (!dockerHost.starts_with(local)) return std::nullopt;
    return std::vector<std::filesystem::path>{dockerHost.substr(local.size())};
  }
  std::vector<std::filesystem::path> places{"/var/run/docker.sock", home / ".docker/desktop/docker.sock"};
  if (!runtime.empty()) {
    places.insert(places.begin(), runtime / "docker.sock");
    places.push_back(runtime / "podman/podman.sock");
  }
  places.emplace_back("/run/podman/podman.sock");
  return places;
}

std::optional<std::vector<Container>> parseContainers(std::string_view json) {
  const auto document = parseJSON(json);
  if (!document || !document->is_array()) return std::nullopt;
  std::vector<Container> containers;
  for (const JSON& entry : *document) {
    Container container;
    container.id = stringField(entry, "Id").value_or("");
    if (container.id.empty()) continue;
    container.name = nameOf(entry);
    container.image = stringField(entry, "Image").value_or("");
    container.status = stringField(entry, "Status").value_or("");
    const std::string state = stringField(entry, "State").value_or("");
    container.isRunning = state == "running" || state == "paused" || state == "restarting";
    container.health = container.isRunning ? healthOf(entry, container.status) : Container::Health::unknown;
    std::set<std::uint16_t> ports;
    if (const JSON* list = arrayField(entry, "Ports"))
      for (const JSON& port : *list)
        if (const auto number = integerField(port, "PublicPort"); number && *number > 0 && *number < 65536)
          ports.insert(static_cast<std::uint16_t>(*number));
    container.ports.assign(ports.begin(), ports.end());
    containers.push_back(std::move(container));
  }
  std::ranges::sort(containers, {}, [](const Container& one) { return std::pair(!one.isRunning, one.name); });
  return containers;
}

std::string engineComplaint(std::string_view json) {
  const auto document = parseJSON(json);
  return document ? stringField(*document, "message").value_or("") : std::string();
}

std::string readableLog(std::string_view bytes, std::size_t mostLines) {
  const std::string joined = joinedFrames(bytes);
  std::string text;
  std::size_t lineStart = 0;
  bool isWrittenOver = false;
  for (std::size_t i = 0; i < joined.size(); ++i) {
    const auto byte = static_cast<unsigned char>(joined[i]);
    if (byte == 0x1b) {
      i += sequenceLength(std::string_view(joined).substr(i)) - 1;
    } else if (byte == '\r') {
      isWrittenOver = true;
    } else if (byte == '\n') {
      text += '\n';
      lineStart = text.size();
      isWrittenOver = false;
    } else if (byte == '\t' || (byte >= 0x20 && byte != 0x7f)) {
      // Of what shows its progress on one line, the last is read.
      if (std::exchange(isWrittenOver, false)) text.resize(lineStart);
      text += joined[i];
    }
  }
  std::vector<std::string_view> lines = split(text, '\n');
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  std::string last;
  for (std::size_t i = lines.size() - std::min(mostLines, lines.size()); i < lines.size(); ++i)
    last.append(lines[i]).append(i + 1 < lines.size() ? "\n" : "");
  return repairedUTF8(last);
}

}  // namespace ambrel
