#include "ctl/HookCall.h"

#include <cerrno>
#include <chrono>
#include <poll.h>
#include <string_view>
#include <unistd.h>

#include "core/agents/attention/HookStore.h"

namespace ambrel {
namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 12ms;
constexpr std::size_t largestInput = 16 << 20;  // results of tools are in it, too

// What comes before the wait is over; absent when it is too much.
std::optional<std::string> standardInput() {
  std::string input;
  std::string buffer(64 << 10, '\0');
  std::chrono::steady_clock::duration waited{};
  for (;;) {
    pollfd ready{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(longestWait - waited);
    const auto begin = std::chrono::steady_clock::now();
    const int count = left > 0ms ? poll(&ready, 1, static_cast<int>(left.count())) : 0;
    waited += std::chrono::steady_clock::now() - begin;
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return input;
    const ssize_t got = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return input;
    // The rest is still taken, as a pipe that breaks disturbs the tool.
    if (input.size() < largestInput) input.append(buffer, 0, static_cast<std::size_t>(got));
  }
}

}  // namespace

std::optional<HookCall> hookCall(const std::vector<std::string>& words) {
  HookCall call;
  std::vector<std::string_view> command;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string_view word = words[i];
    if (word == "--json") continue;
    bool isOption = false;
    for (const std::string_view option : {"--data", "--home", "--now"}) {
      if (!word.starts_with(option)) continue;
      std::string value;
      if (word.size() > option.size() && word[option.size()] == '=') {
        value = word.substr(option.size() + 1);
      } else if (word == option && i + 1 < words.size()) {
        value = words[++i];
      } else {
        return std::nullopt;
      }
      isOption = true;
      if (option == "--data") call.data = value;
      if (option == "--now") call.now = parseISO8601(value);
    }
    if (!isOption) command.push_back(word);
  }
  if (command.size() != 3 || command[0] != "agents" || command[1] != "hook" || command[2].starts_with('-'))
    return std::nullopt;
  call.kind = command[2];
  return call;
}

void keepHookEvent(const HookCall& call, const std::function<std::filesystem::path()>& dataFolder) noexcept {
  try {
    const auto kind = fromName<AgentKind>(call.kind);
    const auto input = standardInput();
    if (!input || (kind != AgentKind::claudeCode && kind != AgentKind::codex)) return;
    const auto now = std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now());
    LineParser parser;
    auto event = hookEvent(*kind, *input, call.now.value_or(now), parser);
    if (!event) return;
    event->process = toolProcess("/proc", getpid(), getppid());
    appendHookEvent(HookStoreFiles(dataFolder()), *event);
  } catch (...) {  // NOLINT(bugprone-empty-catch): an agent is not to be disturbed
  }
}

}  // namespace ambrel
