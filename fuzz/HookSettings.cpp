// Settings of any bytes: what is taken is connected by connecting, and free of our hooks by disconnecting; everything
// else in it means what it meant.

#include "core/agents/connect/HookConnection.h"
#include "core/base/JSON.h"
#include "fuzz/AgentInput.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string settings(bytesOf(data, size));
  const std::string command = "/usr/bin/tilebayctl agents hook claudeCode";
  std::string connected;
  try {
    connected = connectedSettings(AgentKind::claudeCode, settings, command);
  } catch (const DecodingError&) {
    return 0;
  }
  expect(isConnected(AgentKind::claudeCode, connected, command));
  expect(connectedSettings(AgentKind::claudeCode, connected, command) == connected);
  const std::string removed = disconnectedSettings(AgentKind::claudeCode, connected);
  expect(!isConnected(AgentKind::claudeCode, removed, command));
  auto before = parseJSON(settings), after = parseJSON(removed);
  if (!before) return 0;
  expect(after.has_value());
  before->erase("hooks");
  after->erase("hooks");
  expect(before == after);
  return 0;
}
