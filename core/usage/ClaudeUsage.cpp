#include <algorithm>
#include <array>
#include <string_view>

#include "core/usage.h"
#include "core/usage/TokenSum.h"

namespace ambrel {
namespace {

constexpr std::array<std::string_view, 3> countedKeys{"input_tokens", "output_tokens", "cache_creation_input_tokens"};

}  // namespace

std::optional<TokenUsage> ClaudeUsage::parseLine(const LineObject& line) {
  if (line.text("type") != "assistant") return std::nullopt;
  const auto message = line.object("message");
  const auto usage = message ? message->object("usage") : std::nullopt;
  const auto timestamp = usage ? line.text("timestamp") : std::nullopt;
  const auto date = timestamp ? parseISO8601(*timestamp) : std::nullopt;
  if (!date) return std::nullopt;
  std::int64_t tokens = 0;
  for (const auto key : countedKeys) {
    const auto sum = sumIfItFits(tokens, usage->integer(key).value_or(0));
    if (!sum) return std::nullopt;
    tokens = *sum;
  }
  return TokenUsage{*date, tokens};
}

std::optional<UsageBlock> ClaudeUsage::activeBlock(std::vector<TokenUsage> uses, Instant now,
                                                   const Calendar& calendar) {
  const auto earlier = [](const TokenUsage& a, const TokenUsage& b) { return a.date < b.date; };
  if (!std::is_sorted(uses.begin(), uses.end(), earlier)) std::sort(uses.begin(), uses.end(), earlier);
  std::optional<Instant> start;
  for (const TokenUsage& use : uses)
    if (!start || use.date >= advanced(*start, blockLength)) start = calendar.startOfHour(use.date);
  if (!start) return std::nullopt;

  UsageBlock block{.start = *start, .end = advanced(*start, blockLength)};
  if (now >= block.end) return std::nullopt;
  const auto first = std::partition_point(uses.begin(), uses.end(), [&](const auto& use) { return use.date < *start; });
  for (auto use = first; use != uses.end() && use->date <= now; ++use) {
    block.tokens = checkedSum(block.tokens, use->tokens);
    ++block.replies;
  }
  return block;
}

}  // namespace ambrel
