#include "core/agents/attention/AgentPoll.h"

#include <algorithm>
#include <unordered_map>

#include "core/agents/AntigravityReader.h"
#include "core/agents/ClaudeCodeReader.h"
#include "core/agents/CodexReader.h"
#include "core/agents/CursorReader.h"
#include "core/agents/attention/Attention.h"
#include "core/agents/attention/HookStore.h"
#include "core/agents/attention/TitleSearch.h"

namespace ambrel {
namespace {

constexpr Seconds hooksAreKept{86400};

// The signs of each log, read again when it changed.
class SignsCache {
 public:
  void beginLook() {
    former_ = std::move(present_);
    present_.clear();
  }

  const LogSigns& signs(AgentKind kind, const SessionFile& file, LineParser& parser) {
    Entry& entry = present_[file.path];
    if (const auto known = former_.find(file.path); known != former_.end()) entry = std::move(known->second);
    if (!entry.isRead || !entry.file.hasSameDate(file) || entry.file.size != file.size) {
      const RecordTail tail = tailRecords(file.path, sessionTailBytes);
      const bool isWhole = file.size <= sessionTailBytes;
      entry.signs = kind == AgentKind::codex ? codexSigns(tail, isWhole, parser) : claudeSigns(tail, isWhole, parser);
      entry.file = file;
      entry.isRead = true;
    }
    return entry.signs;
  }

 private:
  struct Entry {
    SessionFile file;
    LogSigns signs;
    bool isRead = false;
  };
  std::unordered_map<std::string, Entry> present_, former_;
};

}  // namespace

struct AgentPoll::Impl {
  Impl(const std::filesystem::path& data, const AgentFolders& folders, std::filesystem::path proc)
      : processes(std::move(proc)),
        space(processSpace(processes)),
        claude(folders),
        codex(folders),
        registry(folders),
        files(data) {}

  std::filesystem::path processes;
  std::string space;
  ClaudeCodeReader claude;
  CodexReader codex;
  CursorReader cursor;
  AntigravityReader antigravity;

  LiveRegistry registry;
  std::unordered_multimap<std::string, LiveRecord> live;  // by the conversation
  HookStoreFiles files;
  HookStoreReader store;
  std::unordered_map<std::string, HookState> hooks;  // by the tool and the conversation
  SignsCache logs;
  TitleSearch titles;
  std::map<int, bool> remote;  // by the process; of one look
  LineParser parser;

  // Codex names the conversation or its log, whose name ends with the conversation's.
  static std::string hookKey(AgentKind kind, std::string_view session) {
    constexpr std::size_t length = 36;
    if (kind == AgentKind::codex && session.size() > length) session.remove_prefix(session.size() - length);
    return std::string(nameOf(kind)) + ":" + std::string(session);
  }

  void readHooks(Instant now) {
    bool hasNew = false;
    store.readNew(files, [&](const HookEvent& event) {
      hooks[hookKey(event.kind, event.session)].take(event);
      hasNew = true;
    });
    if (hasNew)
      std::erase_if(hooks, [&](const auto& each) { return secondsBetween(each.second.lastAt, now) > hooksAreKept; });
  }

  AgentSession attend(LoggedSession each, Instant now) {
    const std::string name = sessionIdentifier(each.file.path);
    const LogSigns& signs = logs.signs(each.session.kind, each.file, parser);
    AttentionSigns all{.log = &signs};
    if (each.session.kind == AgentKind::claudeCode) {
      all.titles = titles.titles(each.file, sessionTailBytes, {signs.customTitle, signs.aiTitle}, parser);
      all.hasRegistry = !live.empty();
      const auto [first, last] = live.equal_range(name);
      for (auto record = first; record != last; ++record) all.live.push_back(record->second);
    }
    const auto hook = hooks.find(hookKey(each.session.kind, name));
    all.hook = hook == hooks.end() ? nullptr : &hook->second;
    using enum AttentionSigns::ToolState;
    // Elsewhere the number is another process's.
    if (all.hook && all.hook->process.pid > 0 && all.hook->process.space == space) {
      const ToolProcess& tool = all.hook->process;
      all.tool = isSameProcess(processes, tool.pid, tool.start) ? runs : ended;
      if (!all.hook->open.empty() && all.hook->open.front().ticks > 0)
        all.hasToolGoneOn = hasChildSince(processes, tool.pid, all.hook->open.front().ticks);
    }
    AgentSession session = attended(std::move(each.session), all, now);
    if (const LiveRecord* record = newestAlive(all.live)) {
      session.place = record->place;
      session.process = record->process;
    } else if (all.tool == runs) {
      session.process = all.hook->process.pid;
    }
    if (session.place == AgentPlace::here && session.process > 0 && isRemote(session.process))
      session.place = AgentPlace::secureShell;
    return session;
  }

  bool isRemote(int pid) {
    const auto known = remote.find(pid);
    return known != remote.end() ? known->second : remote.emplace(pid, isRemoteLogin(processes, pid)).first->second;
  }

  std::vector<AgentSession> attendAll(std::vector<LoggedSession> sessions, Instant now) {
    std::vector<AgentSession> all;
    all.reserve(sessions.size());
    for (LoggedSession& each : sessions) all.push_back(attend(std::move(each), now));
    return all;
  }
};

AgentPoll::AgentPoll(std::filesystem::path data, AgentFolders folders, std::filesystem::path processes)
    : impl_(std::make_unique<Impl>(data, folders, std::move(processes))) {}
AgentPoll::~AgentPoll() = default;

std::vector<AgentSession> AgentPoll::sessions(const std::filesystem::path& home, Instant now) const {
  Impl& all = *impl_;
  std::vector<std::vector<AgentSession>> found;
  auto claude = all.claude.logged(home, now), codex = all.codex.logged(home, now);
  all.live.clear();
  all.remote.clear();
  for (LiveRecord& record : all.registry.records(home, all.processes)) {
    std::string session = record.sessionId;
    all.live.emplace(std::move(session), std::move(record));
  }
  all.readHooks(now);
  if (all.live.empty() && !all.store.exists()) {
    found.push_back(withoutLogs(std::move(claude)));
    found.push_back(withoutLogs(std::move(codex)));
  } else {
    all.logs.beginLook();
    all.titles.beginLook();
    found.push_back(all.attendAll(std::move(claude), now));
    found.push_back(all.attendAll(std::move(codex), now));
  }
  found.push_back(all.cursor.sessions(home, now));
  for (AgentSession& session : found.back())
    if (session.status == AgentStatus::needsInput)
      session.wait = AgentWait{.since = session.updatedAt, .source = AgentWait::Source::store};
  found.push_back(all.antigravity.sessions(home, now));
  return mergedSessions(std::move(found));
}

AgentReaders makeAttentiveReaders(const std::filesystem::path& data, const AgentFolders& folders) {
  AgentReaders readers;
  readers.push_back(std::make_unique<AgentPoll>(data, folders));
  return readers;
}

std::vector<AgentTrace> agentTraces(const std::filesystem::path& home, const std::filesystem::path& data,
                                    const AgentFolders& folders) {
  // The hooks and the registry say little, and all of it counts; a log may grow many times a second, and the stores
  // hold much else.
  constexpr Seconds none{0.05}, ofLogs{1}, ofStores{3};
  std::vector<AgentTrace> traces{{data, 0, none},
                                 {folders.claudeIn(home) / "sessions", 0, none},
                                 {folders.claudeIn(home) / "projects", 1, ofLogs},
                                 // By year, month and day.
                                 {folders.codexIn(home) / "sessions", 3, ofLogs}};
  for (const auto& stores : {CursorReader::stores(home), AntigravityReader::stores(home)})
    for (const std::filesystem::path& store : stores) traces.push_back({store.parent_path(), 0, ofStores});
  return traces;
}

}  // namespace ambrel
