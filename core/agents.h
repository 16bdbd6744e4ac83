#pragma once
// What the user's AI coding agents are doing, as read from the files that the agents themselves write.
//
// Every reader gives AgentSession records; it takes the home folder and the time, reads only dates and a bounded
// slice of each recent file or a bounded query of a store, and never fails: bad input gives fewer sessions.

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/EnumText.h"
#include "core/base/Instant.h"

namespace ambrel {

enum class AgentKind { claudeCode, codex, cursor, antigravity };

// "Claude Code"
std::string_view displayName(AgentKind kind);
// The application that comes forward for the kind: "com.openai.codex". The desktop maps it to what runs here.
std::string_view bundleIdentifier(AgentKind kind);

// In order of urgency: a smaller value is more urgent.
enum class AgentStatus {
  needsInput,  // blocked on the user
  working,     // active a moment ago
  finished,    // the last turn ended, not long ago
  idle,        // nothing for a while, or killed
};

// What a list shows: "Needs you", "Working", "Done", "Idle".
std::string_view displayName(AgentStatus status);

// What an agent that is blocked asks for, and how that is known.
struct AgentWait {
  enum class Reason {
    permission,  // to run a tool
    question,
    plan,  // whether to carry a plan out
    other,
  };
  enum class Source {
    hook,      // the tool called our hook
    registry,  // the tool's own list of running sessions
    log,       // an open question in the conversation's log
    store,     // the tool's database
  };
  Reason reason = Reason::other;
  std::optional<std::string> detail = {};  // one line: the question, "Bash: make test"; at most 120 characters
  Instant since = {};
  Source source = Source::log;

  friend bool operator==(const AgentWait&, const AgentWait&) = default;
};

// Where the tool of a conversation runs, as far as that can be told.
enum class AgentPlace {
  here,
  container,      // on this computer, among processes of its own
  secureShell,    // on this computer, in a terminal of another one
  otherComputer,  // which shares the folder of the tool
};

// One conversation. Texts are valid UTF-8.
struct AgentSession {
  std::string id;  // a prefix for the kind and the tool's own identifier: "claude:0b54c9de-..."
  AgentKind kind = AgentKind::claudeCode;
  std::string title;                        // never empty
  std::optional<std::string> project = {};  // last component of the working folder
  std::optional<std::string> detail = {};   // what it does now: a tool's name, "Thinking", "Done", "12 steps"
  AgentStatus status = AgentStatus::idle;
  Instant updatedAt = {};              // the file's modification date, or the store's own time stamp
  std::optional<AgentWait> wait = {};  // only with needsInput
  // The user has broken the turn off; only with finished.
  bool isInterrupted = false;
  AgentPlace place = AgentPlace::here;
  int process = 0;  // the tool's, where it runs here; 0: not known
  // Who told of the status, and when. Absent: the log or the store, at updatedAt.
  struct Word {
    AgentWait::Source source = AgentWait::Source::log;
    Instant at = {};
    friend bool operator==(const Word&, const Word&) = default;
  };
  std::optional<Word> word = {};

  friend bool operator==(const AgentSession&, const AgentSession&) = default;
};

struct AgentTiming {
  AgentTiming() = delete;
  static constexpr Seconds recentWindow{21600};    // a session without a change for longer is not listed
  static constexpr Seconds workingTimeout{600};    // working without a change for longer is idle
  static constexpr Seconds finishedTimeout{7200};  // finished without a change for longer is idle
  // The status to show, `since` the last change. Exactly at a limit the status stays; needsInput never ages.
  static AgentStatus aged(AgentStatus status, Seconds since);
};

// Where tools keep their files when it is not the usual place: CLAUDE_CONFIG_DIR and CODEX_HOME. Empty: ".claude" and
// ".codex" in the home folder.
struct AgentFolders {
  std::filesystem::path claude = {}, codex = {};

  // `variable` gives the value of an environment variable, or null. A relative path there counts as none.
  template <typename Variable>
  static AgentFolders of(Variable variable) {
    const auto folder = [&](const char* name) {
      const char* value = variable(name);
      return value && *value == '/' ? std::filesystem::path(value) : std::filesystem::path();
    };
    return {folder("CLAUDE_CONFIG_DIR"), folder("CODEX_HOME")};
  }
  std::filesystem::path claudeIn(const std::filesystem::path& home) const {
    return claude.empty() ? home / ".claude" : claude;
  }
  std::filesystem::path codexIn(const std::filesystem::path& home) const {
    return codex.empty() ? home / ".codex" : codex;
  }
};

class AgentSessionReader {
 public:
  virtual ~AgentSessionReader() = default;
  // In no particular order. May be called from any thread, by one caller at a time.
  virtual std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const = 0;
};

using AgentReaders = std::vector<std::unique_ptr<const AgentSessionReader>>;

// Claude Code, Codex, Cursor, Antigravity. Two of them remember what they have parsed: keep the list between polls.
AgentReaders makeAgentReaders();

// What all readers give: the most urgent status first, in one status the newest first, then in the readers' order.
std::vector<AgentSession> mergedSessions(const AgentReaders& readers, const std::filesystem::path& home, Instant now);
// The same order for what the readers gave.
std::vector<AgentSession> mergedSessions(std::vector<std::vector<AgentSession>> found);

// The last component of a path or of a "file://" URL; absent for no text, an empty one and a broken URL.
// A slash at the end does not count; "/" gives "/".
std::optional<std::string> projectName(std::optional<std::string_view> pathOrURL);

}  // namespace ambrel
