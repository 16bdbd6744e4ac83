#include "core/agents/SessionCache.h"

namespace ambrel {

std::vector<AgentSession> withoutLogs(std::vector<LoggedSession> logged) {
  std::vector<AgentSession> sessions;
  sessions.reserve(logged.size());
  for (LoggedSession& each : logged) sessions.push_back(std::move(each.session));
  return sessions;
}

std::vector<LoggedSession> SessionCache::sessions(std::vector<SessionFile> files, Instant now, const Parse& parse) {
  std::shared_ptr<const Entries> known;
  {
    const std::lock_guard guard(lock_);
    known = entries_;
  }

  std::vector<const Entry*> found(files.size(), nullptr);
  bool isUnchanged = files.size() == known->size();
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto entry = known->find(files[i].path);
    if (entry != known->end() && entry->second.modified == files[i].modified &&
        entry->second.modifiedRest == files[i].modifiedRest)
      found[i] = &entry->second;
    else
      isUnchanged = false;
  }

  std::shared_ptr<Entries> fresh;
  if (!isUnchanged) {
    fresh = std::make_shared<Entries>();
    fresh->reserve(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
      Entry entry;
      if (found[i]) {
        entry = *found[i];
      } else {
        entry.modified = files[i].modified;
        entry.modifiedRest = files[i].modifiedRest;
        entry.session = parse(files[i], files[i].modified);
      }
      found[i] = &fresh->insert_or_assign(files[i].path, std::move(entry)).first->second;
    }
  }

  std::vector<LoggedSession> sessions;
  sessions.reserve(files.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (!found[i]->session) continue;
    AgentSession& session = sessions.emplace_back(LoggedSession{*found[i]->session, std::move(files[i])}).session;
    session.status = AgentTiming::aged(session.status, secondsBetween(found[i]->modified, now));
  }

  if (fresh) {
    const std::lock_guard guard(lock_);
    entries_ = std::move(fresh);
  }
  return sessions;
}

}  // namespace ambrel
