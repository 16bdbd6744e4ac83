// A Codex log of any bytes: its first line and its end.

#include "core/agents/CodexReader.h"
#include "fuzz/AgentInput.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bytes = bytesOf(data, size);
  const Instant modified = instantFromUnixSeconds(1'795'262'400);
  LineParser parser;
  const auto first = parser.parse(bytes.substr(0, bytes.find('\n')));
  const auto folder = first ? codexFolder(*first) : std::nullopt;
  for (const bool isCut : {false, true}) {
    const auto session =
        codexSession("rollout-1", folder, RecordTail(std::string(bytes), isCut), modified, modified, parser);
    expectWellFormed(session);
    expect(session.status == AgentStatus::working || session.status == AgentStatus::finished);
    expect(session.detail.has_value());
  }
  return 0;
}
