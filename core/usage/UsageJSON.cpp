#include "core/usage/UsageJSON.h"

#include "core/base/JSON.h"

namespace ambrel {
namespace {

template <typename Value>
void add(JSON& json, const char* key, const std::optional<Value>& value) {
  if (value) json[key] = *value;
}

}  // namespace

void to_json(JSON& json, const UsageTotal& total) { json = {{"tokens", total.tokens}, {"replies", total.replies}}; }

void to_json(JSON& json, const UsageBlock& block) {
  json = {{"start", block.start}, {"end", block.end}, {"tokens", block.tokens}, {"replies", block.replies}};
}

void to_json(JSON& json, const ClaudeUsageSnapshot& snapshot) {
  json = {{"today", snapshot.today}};
  add(json, "block", snapshot.block);
}

void CodexUsage::to_json(JSON& json, const Window& window) {
  json = {{"usedPercent", window.usedPercent}, {"windowMinutes", window.windowMinutes}, {"resetsAt", window.resetsAt}};
}

void CodexUsage::to_json(JSON& json, const Limits& limits) {
  json = {{"session", limits.session}, {"asOf", limits.asOf}};
  add(json, "week", limits.week);
}

void ClaudeLimits::to_json(JSON& json, const Limits& limits) {
  json = {{"asOf", limits.asOf}};
  add(json, "session", limits.session);
  add(json, "week", limits.week);
}

void to_json(JSON& json, const AIUsage& usage) {
  json = {{"claude", usage.claude}};
  add(json, "codex", usage.codex);
  add(json, "claudeLimits", usage.claudeLimits);
}

}  // namespace ambrel
