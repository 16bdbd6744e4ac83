// What a tool hands to its hook, and the registry's record, of any bytes: an event fits on a line of the store, and is
// the same when it is read back.

#include "core/agents/attention/HookState.h"
#include "core/agents/attention/LiveRegistry.h"
#include "fuzz/AgentInput.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bytes = bytesOf(data, size);
  LineParser parser;
  if (const auto record = liveRecord(bytes, parser))
    expect(record->pid > 0 && !record->sessionId.empty() && !record->processStart.empty());
  storedEvent(bytes, parser);
  const auto event = hookEvent(AgentKind::claudeCode, bytes, instantFromUnixSeconds(1'795'262'400), parser);
  if (!event) return 0;
  const std::string line = storedLine(*event);
  expect(line.size() < 4096 && line.find('\n') == line.npos);
  expect(storedEvent(line, parser) == event);
  HookState state;
  for (int i = 0; i < 3; ++i) state.take(*event);
  expect(state.open.size() <= 1);
  return 0;
}
