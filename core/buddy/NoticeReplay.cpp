#include "core/buddy/NoticeReplay.h"

#include <fmt/format.h>

#include "core/agents/AgentSessionJSON.h"
#include "core/base/JSON.h"
#include "core/base/Overloaded.h"

namespace ambrel {
namespace {

// An object being read. A value of the wrong type is an error, null is absent, and a key that was not asked for is
// remarked upon.
class Fields {
 public:
  Fields(const JSON& object, std::string name, std::vector<std::string>& remarks)
      : object_(object), name_(std::move(name)), remarks_(remarks) {
    if (!object.is_object()) throw DecodingError(name_ + " is no JSON object");
  }

  const JSON* find(const char* key) {
    asked_.insert(key);
    const auto found = object_.find(key);
    return found == object_.end() || found->is_null() ? nullptr : &*found;
  }
  std::optional<std::string> text(const char* key) { return typed(key, stringField, "text"); }
  std::optional<double> number(const char* key) { return typed(key, numberField, "number"); }
  std::optional<std::int64_t> integer(const char* key) { return typed(key, integerField, "number"); }
  bool flag(const char* key) { return typed(key, boolField, "true or false").value_or(false); }
  std::optional<Instant> instant(const char* key) {
    const auto written = text(key);
    if (!written) return std::nullopt;
    const auto parsed = parseISO8601(*written);
    if (!parsed) throw wrong(key, "instant, which is written like 2026-11-21T09:00:00Z");
    return parsed;
  }
  std::optional<Fields> object(const char* key) {
    const JSON* value = find(key);
    if (!value) return std::nullopt;
    return Fields(*value, "\"" + std::string(key) + "\"", remarks_);
  }
  // Calls `visit` for each element of an array.
  template <typename Visit>
  void each(const char* key, Visit visit) {
    const JSON* value = find(key);
    if (!value) return;
    if (!value->is_array()) throw wrong(key, "array");
    for (const JSON& element : *value) visit(element);
  }
  template <typename E>
  std::optional<E> caseNamed(const char* key) {
    const auto name = text(key);
    return name ? std::optional(caseOf<E>(*name, key)) : std::nullopt;
  }
  template <typename E>
  std::set<E> casesNamed(const char* key) {
    std::set<E> cases;
    each(key, [&](const JSON& element) {
      if (!element.is_string()) throw wrong(key, "array of names");
      cases.insert(caseOf<E>(element.get_ref<const std::string&>(), key));
    });
    return cases;
  }
  template <typename Value>
  Value required(const char* key, std::optional<Value> value) const {
    if (!value) throw DecodingError(fmt::format("{} has no \"{}\"", name_, key));
    return std::move(*value);
  }
  void remarkUnknown() {
    for (const auto& [key, value] : object_.items())
      if (asked_.count(key) == 0) remarks_.push_back(fmt::format("{} has an unknown field \"{}\"", name_, key));
  }

  std::vector<std::string>& remarks() { return remarks_; }

 private:
  DecodingError wrong(const char* key, std::string_view expected) const {
    return DecodingError(fmt::format("\"{}\" of {} is no {}", key, name_, expected));
  }
  template <typename Value>
  std::optional<Value> typed(const char* key, std::optional<Value> (*read)(const JSON&, std::string_view),
                             std::string_view expected) {
    if (!find(key)) return std::nullopt;
    auto value = read(object_, key);
    if (!value) throw wrong(key, expected);
    return value;
  }
  template <typename E>
  E caseOf(const std::string& name, const char* key) const {
    const auto value = fromName<E>(name);
    if (!value) throw DecodingError(fmt::format("\"{}\" is no case of \"{}\" of {}", name, key, name_));
    return *value;
  }

  const JSON& object_;
  std::string name_;
  std::vector<std::string>& remarks_;
  std::set<std::string> asked_;
};

AgentSession session(JSON json) {
  // No notice speaks of a title.
  if (json.is_object() && !json.contains("title")) json["title"] = "";
  return json.get<AgentSession>();
}

BuddySignals::Meeting meeting(Fields fields) {
  BuddySignals::Meeting meeting{.id = fields.required("id", fields.text("id")),
                                .title = fields.required("title", fields.text("title")),
                                .start = fields.required("start", fields.instant("start")),
                                .url = fields.text("url")};
  fields.remarkUnknown();
  return meeting;
}

UsageBlock block(Fields fields) {
  UsageBlock block{.start = fields.instant("start").value_or(Instant{}),
                   .end = fields.required("end", fields.instant("end")),
                   .tokens = fields.integer("tokens").value_or(0),
                   .replies = fields.integer("replies").value_or(0)};
  fields.remarkUnknown();
  return block;
}

CodexUsage::Window window(Fields fields) {
  CodexUsage::Window window{.usedPercent = fields.required("usedPercent", fields.number("usedPercent")),
                            .windowMinutes = fields.integer("windowMinutes").value_or(0),
                            .resetsAt = fields.required("resetsAt", fields.instant("resetsAt"))};
  fields.remarkUnknown();
  return window;
}

std::optional<CodexUsage::Window> window(std::optional<Fields> fields) {
  return fields ? std::optional(window(std::move(*fields))) : std::nullopt;
}

ClaudeLimits::Limits claudeLimits(Fields fields) {
  ClaudeLimits::Limits limits{.session = window(fields.object("session")),
                              .week = window(fields.object("week")),
                              .asOf = fields.instant("asOf").value_or(Instant{})};
  fields.remarkUnknown();
  return limits;
}

CodexUsage::Limits codexLimits(Fields fields) {
  CodexUsage::Limits limits{.session = fields.required("session", window(fields.object("session"))),
                            .week = window(fields.object("week")),
                            .asOf = fields.instant("asOf").value_or(Instant{})};
  fields.remarkUnknown();
  return limits;
}

BuddySignals::Battery battery(Fields fields) {
  const std::int64_t percent = fields.required("percent", fields.integer("percent"));
  if (percent < 0 || percent > 100) throw DecodingError("\"percent\" of \"battery\" is no number from 0 to 100");
  BuddySignals::Battery battery{.percent = static_cast<int>(percent), .isCharging = fields.flag("isCharging")};
  fields.remarkUnknown();
  return battery;
}

BuddySignals signals(Fields fields) {
  BuddySignals signals;
  fields.each("agents", [&](const JSON& json) { signals.agents.push_back(session(json)); });
  signals.focusedAgents = fields.casesNamed<AgentKind>("focusedAgents");
  fields.each("meetings", [&](const JSON& json) {
    signals.meetings.push_back(meeting(Fields(json, "a meeting", fields.remarks())));
  });
  if (auto found = fields.object("claudeBlock")) signals.claudeBlock = block(std::move(*found));
  signals.claudeBudgetTokens = fields.integer("claudeBudgetTokens");
  if (auto found = fields.object("claudeLimits")) signals.claudeLimits = claudeLimits(std::move(*found));
  if (auto found = fields.object("codex")) signals.codex = codexLimits(std::move(*found));
  if (auto found = fields.object("battery")) signals.battery = battery(std::move(*found));
  signals.diskFreeBytes = fields.integer("diskFreeBytes");
  signals.cpuUsage = fields.number("cpuUsage");
  signals.topProcess = fields.text("topProcess");
  signals.waterDueAt = fields.instant("waterDueAt");
  signals.waterGlassesToday = fields.integer("waterGlassesToday").value_or(0);
  signals.isFocusRunning = fields.flag("isFocusRunning");
  signals.focusSessionsToday = fields.integer("focusSessionsToday").value_or(0);
  signals.phaseEnded = fields.caseNamed<BuddySignals::PhaseEnd>("phaseEnded");
  fields.remarkUnknown();
  return signals;
}

QuietHours quietHours(Fields fields) {
  const auto hour = [&](const char* key) {
    const std::int64_t value = fields.required(key, fields.integer(key));
    if (value < 0 || value > 24) throw DecodingError(fmt::format("\"{}\" is no hour of the day", key));
    return static_cast<int>(value);
  };
  QuietHours hours{.startHour = hour("startHour"), .endHour = hour("endHour")};
  fields.remarkUnknown();
  return hours;
}

BuddyPolicy policy(Fields fields) {
  BuddyPolicy policy;
  if (const auto level = fields.caseNamed<BuddyLevel>("level")) policy.level = *level;
  if (fields.find("categories")) policy.categories = fields.casesNamed<BuddyCategory>("categories");
  if (auto found = fields.object("quietHours")) policy.quietHours = quietHours(std::move(*found));
  policy.onlyUnfocusedAgents = fields.flag("onlyUnfocusedAgents");
  fields.remarkUnknown();
  return policy;
}

JSON actionJSON(const BuddyAction& action) {
  return std::visit(Overloaded{[](const BuddyActions::Join& join) {
                                 return JSON{{"join", join.url}};
                               },
                               [](const BuddyActions::OpenAgent& open) {
                                 return JSON{{"openAgent", nameOf(open.kind)}};
                               },
                               [](const BuddyActions::Snooze& snooze) {
                                 return JSON{{"snooze", snooze.minutes}};
                               },
                               [](const BuddyActions::OpenDiskCleanup&) {
                                 return JSON{{"openDiskCleanup", true}};
                               },
                               [](const BuddyActions::OpenInbox&) {
                                 return JSON{{"openInbox", true}};
                               }},
                    action);
}

}  // namespace

void to_json(JSON& json, const BuddyNotice& notice) {
  json = {{"id", notice.id},
          {"rule", nameOf(notice.rule)},
          {"priority", nameOf(priority(notice.rule))},
          {"category", nameOf(category(notice.rule))},
          {"trigger", nameOf(trigger(notice.rule))},
          {"title", notice.title},
          {"detail", notice.detail},
          {"actions", JSON::array()},
          {"date", notice.date}};
  for (const BuddyAction& action : notice.actions) json["actions"].push_back(actionJSON(action));
  if (notice.sessionID) json["sessionID"] = *notice.sessionID;
  if (notice.expiresAt) json["expiresAt"] = *notice.expiresAt;
}

NoticeReplay::Answer NoticeReplay::play(std::string_view line) {
  const auto json = parseJSON(line);
  if (!json) throw DecodingError("this is no JSON");
  Answer answer;
  Fields fields(*json, "the line", answer.remarks);
  const Instant now = fields.required("now", fields.instant("now"));

  if (auto snooze = fields.object("snooze")) {
    if (fields.find("signals") || fields.find("policy"))
      throw DecodingError("a line is an evaluation or a snooze, and this is both");
    const std::string id = snooze->required("id", snooze->text("id"));
    const std::int64_t minutes = snooze->required("minutes", snooze->integer("minutes"));
    constexpr std::int64_t year = 525'600;
    if (minutes < 0 || minutes > year) throw DecodingError("\"minutes\" is no number from 0 to 525600, a year");
    snooze->remarkUnknown();
    fields.remarkUnknown();
    if (const auto found = returned_.find(id); found != returned_.end())
      engine_.snooze(found->second, minutes, now);
    else
      answer.remarks.push_back(fmt::format("no notice was returned under the id \"{}\"", id));
    return answer;
  }

  auto given = fields.object("signals");
  const BuddySignals seen = given ? signals(std::move(*given)) : BuddySignals{};
  auto filter = fields.object("policy");
  const BuddyPolicy allowed = filter ? policy(std::move(*filter)) : BuddyPolicy{};
  fields.remarkUnknown();
  answer.notices = engine_.evaluate(seen, allowed, now, calendar_);
  for (const BuddyNotice& notice : answer.notices) returned_.insert_or_assign(notice.id, notice);
  return answer;
}

}  // namespace ambrel
