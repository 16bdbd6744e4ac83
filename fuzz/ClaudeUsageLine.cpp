// A line of a Claude log, of any bytes: found by its key, decoded in place, and summed into a block.

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

#include "core/usage.h"
#include "core/usage/KeySearch.h"

using namespace ambrel;

namespace {

void expect(bool holds) {
  if (!holds) __builtin_trap();
}

std::optional<TokenUsage> useIn(const std::optional<LineObject>& line) {
  return line ? ClaudeUsage::parseLine(*line) : std::nullopt;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const char* end = bytes.data() + bytes.size();
  const char* found = findUsageKey(bytes.data(), end);
  expect(static_cast<std::size_t>(found - bytes.data()) == std::min(bytes.find(usageKey), bytes.size()));

  static LineParser parser, paddedParser;
  const auto use = useIn(parser.parse(bytes));
  const std::unique_ptr<char[]> padded(new char[size + LineParser::padding]);
  std::copy(bytes.begin(), bytes.end(), padded.get());
  std::memset(padded.get() + size, '}', LineParser::padding);
  expect(useIn(paddedParser.parsePadded({padded.get(), size})) == use);
  if (!use) return 0;

  static const Calendar calendars[] = {Calendar("Australia/Lord_Howe", "en_US"), Calendar("Asia/Kathmandu", "en_US")};
  for (const Calendar& calendar : calendars) {
    const auto block = ClaudeUsage::activeBlock({*use}, use->date, calendar);
    expect(block && block->start <= use->date && use->date < block->end);
    expect(block->tokens == use->tokens && block->replies == 1);
  }
  return 0;
}
