#include <algorithm>
#include <array>
#include <set>

#include "core/agents/attention/AskedText.h"
#include "core/agents/attention/LogSigns.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

using Turn = LogSigns::Turn;

constexpr std::string_view interruptMark = "[Request interrupted by user";
constexpr std::string_view refusalMark = "The user doesn't want to";
constexpr std::string_view taskNotice = "<task-notification>";
// What the tool itself carries out when it is typed in: no turn of the agent begins.
constexpr std::array<std::string_view, 7> localInputs{"<command-name>",     "<command-message>", "<local-command-",
                                                      "<bash-input>",       "<bash-stdout>",     "<bash-stderr>",
                                                      "<user-memory-input>"};

bool isLocal(std::string_view text) {
  return std::any_of(localInputs.begin(), localInputs.end(), [&](auto mark) { return text.starts_with(mark); });
}

// The text between <name> and </name>.
std::string_view element(std::string_view text, std::string_view name) {
  const std::string open = "<" + std::string(name) + ">", close = "</" + std::string(name) + ">";
  const auto begin = text.find(open);
  if (begin == text.npos) return {};
  const auto end = text.find(close, begin);
  return end == text.npos ? std::string_view() : text.substr(begin + open.size(), end - begin - open.size());
}

// Walks the records in the order in which they were written.
class ClaudeLog {
 public:
  LogSigns signs;

  void read(const LineObject& record) {
    const auto type = record.text("type").value_or("");
    if (type == "custom-title") {
      if (const auto title = record.text("customTitle")) signs.customTitle = *title;
    } else if (type == "ai-title") {
      if (const auto title = record.text("aiTitle")) signs.aiTitle = *title;
    } else if (type == "queue-operation") {
      finishTask(record.text("content").value_or(""));
    }
    // Older versions wrote their sub-agents' records into the same log.
    if (record.boolean("isSidechain").value_or(false)) return;
    at_ = parseISO8601(record.text("timestamp").value_or(""));
    if (const auto entry = record.text("entrypoint")) signs.isFromTerminal = *entry == "cli";
    if (const auto version = record.text("version")) signs.version = *version;
    if (type == "user") {
      readUser(record);
    } else if (type == "assistant") {
      readAssistant(record);
    } else if (type == "system" && record.text("subtype") == "turn_duration") {
      if (signs.turn == Turn::running) set(Turn::ended);
    }
  }

  LogSigns finish(bool isWhole) {
    if (signs.turn == Turn::unknown && isWhole) signs.turn = Turn::none;
    signs.backgroundAgents = static_cast<int>(agents_.size());
    signs.hasOpenCall = !calls_.empty();
    for (const Call& call : calls_) {
      if (call.reason != AgentWait::Reason::permission) {
        signs.open = AgentWait{call.reason, call.asks, call.at.value_or(Instant{}), AgentWait::Source::log};
      } else if (calls_.size() == 1 && call.tool != "Agent" && call.tool != "Task") {
        signs.openAsks = call.asks;
      }
    }
    return std::move(signs);
  }

 private:
  struct Call {
    std::string id, tool;
    AgentWait::Reason reason;
    std::optional<std::string> asks;
    std::optional<Instant> at;
  };

  void set(Turn turn) {
    signs.turn = turn;
    signs.turnAt = at_;
    // A turn that is over waits for nothing.
    if (turn != Turn::running) calls_.clear();
  }

  void prompt() {
    calls_.clear();
    set(Turn::running);
  }

  void finishTask(std::string_view text) {
    if (!text.starts_with(taskNotice)) return;
    if (const auto id = element(text, "task-id"); !id.empty()) agents_.erase(std::string(trimmed(id)));
  }

  void readText(std::string_view text) {
    if (text.starts_with(interruptMark)) return set(Turn::interrupted);
    finishTask(text);
    if (!isLocal(text)) prompt();
  }

  void readUser(const LineObject& record) {
    if (record.boolean("isMeta").value_or(false) || record.boolean("isCompactSummary").value_or(false)) return;
    const auto message = record.object("message");
    if (!message) return;
    if (const auto text = message->text("content")) return readText(*text);
    message->eachObject("content", [&](const LineObject& block) {
      const auto type = block.text("type");
      if (type == "tool_result") {
        const auto id = block.text("tool_use_id").value_or("");
        std::erase_if(calls_, [&](const Call& call) { return call.id == id; });
        if (signs.turn != Turn::interrupted) set(Turn::running);
        signs.resultAt = at_;
        if (block.text("content").value_or("").starts_with(refusalMark)) signs.messageAt = at_;
      } else if (type == "text") {
        readText(block.text("text").value_or(""));
      }
      return true;
    });
    const auto result = record.object("toolUseResult");
    if (result && result->text("status") == "async_launched")
      if (const auto agent = result->text("agentId")) agents_.emplace(*agent);
  }

  void readAssistant(const LineObject& record) {
    const auto message = record.object("message");
    if (!message) return;
    if (const auto id = message->text("id"); id && *id != messageId_) {
      messageId_ = *id;
      signs.messageAt = at_;
    }
    if (record.boolean("isApiErrorMessage").value_or(false)) return set(Turn::failed);
    set(Turn::running);
    message->eachObject("content", [&](const LineObject& block) {
      if (block.text("type") != "tool_use") return true;
      const std::string tool(block.text("name").value_or(""));
      calls_.push_back({std::string(block.text("id").value_or("")), tool, reasonOf(tool),
                        askedText(tool, block.object("input")), at_});
      return true;
    });
    const auto reason = message->text("stop_reason");
    if (reason == "end_turn" || reason == "stop_sequence") set(Turn::ended);
  }

  std::optional<Instant> at_;
  std::string messageId_;
  std::vector<Call> calls_;
  std::set<std::string, std::less<>> agents_;
};

}  // namespace

LogSigns claudeSigns(const RecordTail& tail, bool isWhole, LineParser& parser) {
  return signsOf<ClaudeLog>(tail, isWhole, parser);
}

}  // namespace ambrel
