#pragma once
// Antigravity: a database of summaries for the application and another one for its command-line tool.

#include "core/agents.h"
#include "core/agents/ToolStore.h"

namespace ambrel {

class AntigravityReader : public AgentSessionReader {
 public:
  // The application's conversations first; one that is in both stores is listed twice.
  std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const override;
  // Where its stores may be.
  static std::vector<std::filesystem::path> stores(const std::filesystem::path& home);

 private:
  std::shared_ptr<StoreCache> cache_ = std::make_shared<StoreCache>();
};

struct AntigravityRow {
  std::optional<std::string_view> conversationId, title, status;
  bool notFullyIdle = false;
  bool killed = false;
  std::int64_t stepCount = 0;
  std::optional<std::string_view> workspaceURIs;  // a JSON array of texts
  std::int64_t modified = 0;                      // seconds since 1970
};

// Absent without a conversation's identifier.
std::optional<AgentSession> antigravitySession(const AntigravityRow& row, Instant now);

}  // namespace ambrel
