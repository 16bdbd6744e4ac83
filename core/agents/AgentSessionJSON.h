#pragma once
// A session as JSON: the fields by name, an absent one left out, the date in ISO 8601.

#include <nlohmann/json_fwd.hpp>

#include "core/agents.h"

namespace ambrel {

void to_json(nlohmann::json& json, const AgentSession& session);
// `id`, `kind`, `title` and `status` must be there. Throws DecodingError.
void from_json(const nlohmann::json& json, AgentSession& session);

}  // namespace ambrel
