// Any bytes as the answer of a model server: it is read within its bounds, and cut in two it says the same.

#include <string_view>

#include "core/assistant/ChatExchange.h"
#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "fuzz/Require.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ChatReply whole, halves;
  whole.add(bytes);
  whole.end();
  halves.add(bytes.substr(0, size / 2));
  halves.add(bytes.substr(size / 2));
  halves.end();
  require(whole.text() == halves.text() && whole.calls() == halves.calls() && whole.problem() == halves.problem());
  require(isValidUTF8(whole.text()) && whole.calls().size() <= ChatReply::mostCalls);

  ChatExchange exchange("m", {.instructions = "", .prompt = "?", .hasTools = true});
  const auto perform = [](const AssistantCall& call) { return call.name; };
  int rounds = 0;
  do {
    require(parseJSON(exchange.request()).has_value());
    exchange.add(bytes);
  } while (exchange.end(perform) == ChatExchange::Next::ask && ++rounds <= ChatExchange::mostRounds);
  require(rounds < ChatExchange::mostRounds);
  return 0;
}
