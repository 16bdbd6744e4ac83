// The end of a log of any bytes, whole or cut at its beginning: what it says of a turn stays bounded text.

#include "core/agents/attention/LogSigns.h"
#include "fuzz/AgentInput.h"

using namespace ambrel;

namespace {

void expectLine(const std::optional<std::string>& text) {
  expect(!text || (!text->empty() && text->size() <= 4 * 120 && isValidUTF8(*text)));
  expect(!text || text->find('\n') == text->npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LineParser parser;
  for (const bool isCut : {false, true}) {
    const RecordTail tail(std::string(bytesOf(data, size)), isCut);
    for (const LogSigns& signs : {claudeSigns(tail, !isCut, parser), codexSigns(tail, !isCut, parser)}) {
      expect((signs.turn == LogSigns::Turn::none) <= !isCut);
      expect(signs.backgroundAgents >= 0);
      expectLine(signs.openAsks);
      if (signs.open) expectLine(signs.open->detail);
      if (signs.open) expect(signs.open->reason != AgentWait::Reason::permission);
    }
  }
  return 0;
}
