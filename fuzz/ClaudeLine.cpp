// The end of a Claude Code log, of any bytes, whole or cut at its beginning.

#include "core/agents/ClaudeCodeReader.h"
#include "fuzz/AgentInput.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bytes = bytesOf(data, size);
  const Instant modified = instantFromUnixSeconds(1'795'262'400);
  LineParser parser;
  for (const bool isCut : {false, true}) {
    const RecordTail tail(std::string(bytes), isCut);
    const auto session = claudeSession("0b54c9de", tail, modified, modified, parser);
    if (!session) continue;
    expectWellFormed(*session);
    expect(session->status == AgentStatus::working || session->status == AgentStatus::finished);
    expect((session->status == AgentStatus::finished) <= (session->detail == "Done"));
  }
  return 0;
}
