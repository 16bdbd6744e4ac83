#pragma once
// Cursor: one database for all conversations, state.vscdb.

#include "core/agents.h"
#include "core/agents/ToolStore.h"
#include "core/base/LineJSON.h"

namespace ambrel {

class CursorReader : public AgentSessionReader {
 public:
  // Looks for Library/Application Support/Cursor/..., else .config/Cursor/....
  std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const override;
  // Where its stores may be.
  static std::vector<std::filesystem::path> stores(const std::filesystem::path& home);

 private:
  std::shared_ptr<StoreCache> cache_ = std::make_shared<StoreCache>();
};

// The session of one row; `value` is the JSON of the conversation's header. Absent when it is no JSON object.
std::optional<AgentSession> cursorSession(std::string_view composerId, std::string_view value, Instant now,
                                          LineParser& parser);

}  // namespace ambrel
