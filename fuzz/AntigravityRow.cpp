// A row of Antigravity's summaries: eight lines, one a column.

#include <array>
#include <charconv>

#include "core/agents/AntigravityReader.h"
#include "fuzz/AgentInput.h"

using namespace ambrel;

namespace {

std::int64_t number(std::optional<std::string_view> text) {
  std::int64_t value = 0;
  if (text) std::from_chars(text->data(), text->data() + text->size(), value);
  return value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::array<std::optional<std::string_view>, 8> columns;
  std::size_t count = 0;
  for (const auto line : split(bytesOf(data, size), '\n'))
    if (count < columns.size()) columns[count++] = line;

  const AntigravityRow row{.conversationId = columns[0],
                           .title = columns[1],
                           .status = columns[2],
                           .notFullyIdle = number(columns[3]) != 0,
                           .killed = number(columns[4]) != 0,
                           .stepCount = number(columns[5]),
                           .workspaceURIs = columns[6],
                           .modified = number(columns[7])};
  const auto session = antigravitySession(row, instantFromUnixSeconds(1'795'262'400));
  expect(session.has_value() == row.conversationId.has_value());
  if (session) expectWellFormed(*session);
  return 0;
}
