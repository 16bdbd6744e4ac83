#pragma once
// The events that the tools' hooks told, in the order in which they came: <data folder>/agent-hooks.jsonl.
//
// Any number of processes append at once; each event is one write to the file's end. A file that is full becomes
// agent-hooks-earlier.jsonl, in the place of the one before.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "core/agents/attention/HookEvent.h"

namespace ambrel {

struct HookStoreFiles {
  std::filesystem::path current, earlier, lock;
  explicit HookStoreFiles(const std::filesystem::path& dataFolder);
};

// Makes the folder and the file when there are none. A full disk, a folder that cannot be written: the event is lost
// and nothing else. Never throws, never waits for another process.
void appendHookEvent(const HookStoreFiles& files, const HookEvent& event, std::uint64_t largest = 1 << 20) noexcept;

// Follows the store from where it was at the last look.
class HookStoreReader {
 public:
  // The events since then, the oldest first. Where the store was cleared or rotated twice, what is left of it.
  void readNew(const HookStoreFiles& files, const std::function<void(HookEvent)>& take);
  // There is a store.
  bool exists() const { return exists_; }

 private:
  struct Position {
    std::uint64_t node = 0;
    std::uint64_t offset = 0;  // behind the last whole line
  };
  Position position_;
  bool exists_ = false;
};

}  // namespace ambrel
