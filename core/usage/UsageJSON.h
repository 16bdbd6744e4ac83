#pragma once
// The usage records as JSON: keys are the fields' names, an absent optional is left out.

#include <nlohmann/json_fwd.hpp>

#include "core/usage.h"

namespace ambrel {

void to_json(nlohmann::json& json, const UsageTotal& total);
void to_json(nlohmann::json& json, const UsageBlock& block);
void to_json(nlohmann::json& json, const ClaudeUsageSnapshot& snapshot);
void to_json(nlohmann::json& json, const AIUsage& usage);

namespace CodexUsage {
void to_json(nlohmann::json& json, const Window& window);
void to_json(nlohmann::json& json, const Limits& limits);
}  // namespace CodexUsage

namespace ClaudeLimits {
void to_json(nlohmann::json& json, const Limits& limits);
}  // namespace ClaudeLimits

}  // namespace ambrel
