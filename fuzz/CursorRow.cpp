// The header of a Cursor conversation, of any bytes.

#include "core/agents/CursorReader.h"
#include "fuzz/AgentInput.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto bytes = bytesOf(data, size);
  LineParser parser;
  const auto session = cursorSession(bytes.substr(0, size % 40), bytes, instantFromUnixSeconds(1'795'262'400), parser);
  if (session) expectWellFormed(*session);
  return 0;
}
