#include <algorithm>

#include "core/agents/attention/AskedText.h"
#include "core/agents/attention/LogSigns.h"

namespace ambrel {
namespace {

using Turn = LogSigns::Turn;

// Walks the records in the order in which they were written.
class CodexLog {
 public:
  LogSigns signs;

  void read(const LineObject& record) {
    const auto payload = record.object("payload");
    if (!payload) return;
    at_ = parseISO8601(record.text("timestamp").value_or(""));
    const auto type = record.text("type").value_or(""), event = payload->text("type").value_or("");
    if (type == "event_msg") readEvent(event, *payload);
    if (type == "response_item") readItem(event, *payload);
  }

  LogSigns finish(bool isWhole) {
    if (signs.turn == Turn::unknown && isWhole) signs.turn = Turn::none;
    signs.hasOpenCall = !calls_.empty();
    for (const Call& call : calls_) {
      if (call.tool == "request_user_input") {
        signs.open = AgentWait{AgentWait::Reason::question, call.asks, call.at.value_or(Instant{})};
      } else if (calls_.size() == 1) {
        signs.openAsks = call.asks;
      }
    }
    if (plan_ && signs.turn == Turn::ended)
      signs.open = AgentWait{AgentWait::Reason::plan, plan_, signs.turnAt.value_or(Instant{})};
    return std::move(signs);
  }

 private:
  struct Call {
    std::string id, tool;
    std::optional<std::string> asks;
    std::optional<Instant> at;
  };

  void set(Turn turn) {
    signs.turn = turn;
    signs.turnAt = at_;
    if (turn != Turn::running) calls_.clear();
  }

  void readEvent(std::string_view event, const LineObject& payload) {
    if (event == "task_started" || event == "turn_started" || event == "user_message") {
      calls_.clear();
      plan_.reset();
      set(Turn::running);
    } else if (event == "task_complete" || event == "turn_complete") {
      set(Turn::ended);
    } else if (event == "turn_aborted") {
      plan_.reset();
      set(Turn::interrupted);
    } else if (event == "error") {
      set(Turn::failed);
    } else if (event == "agent_message") {
      signs.messageAt = at_;
    } else if (event == "item_completed") {
      // A plan is put to the user when its turn ends.
      const auto item = payload.object("item");
      if (item && item->text("type") == "Plan") plan_ = askedLine(item->text("text").value_or("Plan"));
    }
  }

  void readItem(std::string_view event, const LineObject& payload) {
    const auto id = payload.text("call_id").value_or("");
    if (event == "function_call" || event == "custom_tool_call" || event == "local_shell_call") {
      const std::string tool(payload.text("name").value_or(event));
      // The arguments are a document of their own in a text.
      const auto input = arguments_.parse(payload.text("arguments").value_or(""));
      calls_.push_back({std::string(id), tool, askedText(tool, input), at_});
    } else if (event.ends_with("_call_output")) {
      std::erase_if(calls_, [&](const Call& call) { return call.id == id; });
      signs.resultAt = at_;
    }
  }

  std::optional<Instant> at_;
  std::vector<Call> calls_;
  std::optional<std::string> plan_;
  LineParser arguments_;
};

}  // namespace

LogSigns codexSigns(const RecordTail& tail, bool isWhole, LineParser& parser) {
  return signsOf<CodexLog>(tail, isWhole, parser);
}

}  // namespace ambrel
