#include "core/agents/AgentSessionJSON.h"

#include "core/base/JSON.h"

namespace ambrel {
namespace {

std::string requiredText(const JSON& json, std::string_view key) {
  auto text = stringField(json, key);
  if (!text) throw DecodingError("a session has no \"" + std::string(key) + "\"");
  return std::move(*text);
}

template <typename E>
E requiredCase(const JSON& json, std::string_view key) {
  const std::string name = requiredText(json, key);
  const auto value = fromName<E>(name);
  if (!value) throw DecodingError("\"" + name + "\" is no " + std::string(key) + " of a session");
  return *value;
}

}  // namespace

void to_json(nlohmann::json& json, const AgentSession& session) {
  json = {{"id", session.id},
          {"kind", nameOf(session.kind)},
          {"title", session.title},
          {"status", nameOf(session.status)},
          {"updatedAt", session.updatedAt}};
  if (session.project) json["project"] = *session.project;
  if (session.detail) json["detail"] = *session.detail;
  if (const auto& wait = session.wait) {
    JSON& entry =
        json["wait"] = {{"reason", nameOf(wait->reason)}, {"since", wait->since}, {"source", nameOf(wait->source)}};
    if (wait->detail) entry["detail"] = *wait->detail;
  }
}

void from_json(const nlohmann::json& json, AgentSession& session) {
  if (!json.is_object()) throw DecodingError("a session is no JSON object");
  session.id = requiredText(json, "id");
  session.kind = requiredCase<AgentKind>(json, "kind");
  session.title = requiredText(json, "title");
  session.project = stringField(json, "project");
  session.detail = stringField(json, "detail");
  session.status = requiredCase<AgentStatus>(json, "status");
  session.updatedAt = json.contains("updatedAt") ? json.at("updatedAt").get<Instant>() : Instant{};
  if (const JSON* wait = objectField(json, "wait")) {
    AgentWait& read = session.wait.emplace();
    read.reason = requiredCase<AgentWait::Reason>(*wait, "reason");
    read.source = requiredCase<AgentWait::Source>(*wait, "source");
    read.detail = stringField(*wait, "detail");
    read.since = wait->contains("since") ? wait->at("since").get<Instant>() : Instant{};
  }
}

}  // namespace ambrel
