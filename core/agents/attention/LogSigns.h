#pragma once
// What the end of a conversation's log says of its turn, beyond the session that a reader takes from it.

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/agents.h"
#include "core/agents/SessionFiles.h"

namespace ambrel {

struct LogSigns {
  enum class Turn {
    unknown,  // nothing in the part that was read tells
    none,     // the whole log holds no prompt yet
    running,
    ended,
    interrupted,  // by the user
    failed,       // an error of the service ended it
  };
  Turn turn = Turn::unknown;
  std::optional<Instant> turnAt = {};  // of the record that decided; absent when that has no time

  // A question or a plan that nobody has answered. `source` is log.
  std::optional<AgentWait> open = {};
  // The one tool call without its result; a permission that is asked for may be its. Absent where there are several,
  // and for a sub-agent's, which has calls of its own.
  std::optional<std::string> openAsks = {};  // "Bash: make test"
  bool hasOpenCall = false;                  // at least one
  // When the newest message of the agent began, or the user refused a call.
  std::optional<Instant> messageAt = {};
  // When the newest result of a call came.
  std::optional<Instant> resultAt = {};
  int backgroundAgents = 0;  // sub-agents that still run while the main turn goes on or has ended

  std::optional<std::string> customTitle = {};  // the newest one, given by the user
  std::optional<std::string> aiTitle = {};
  // Of a conversation that a person started in a terminal, with the tool's version: "2.1.139".
  bool isFromTerminal = false;
  std::optional<std::string> version = {};

  friend bool operator==(const LogSigns&, const LogSigns&) = default;
};

// `Log` takes the records in the order in which they were written. `isWhole`: the tail is the whole log.
template <typename Log>
LogSigns signsOf(const RecordTail& tail, bool isWhole, LineParser& parser) {
  Log log;
  tail.eachOldestFirst(parser, [&](const LineObject& record) {
    log.read(record);
    return true;
  });
  return log.finish(isWhole);
}

LogSigns claudeSigns(const RecordTail& tail, bool isWhole, LineParser& parser);
LogSigns codexSigns(const RecordTail& tail, bool isWhole, LineParser& parser);

}  // namespace ambrel
