#pragma once
// "tilebayctl agents hook KIND", which the agents' tools run at every turn.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/base/Instant.h"

namespace ambrel {

struct HookCall {
  std::string kind;  // as it was given
  std::string data;  // empty: the usual folder
  std::optional<Instant> now = {};
};

// Absent when the words are those of another command.
std::optional<HookCall> hookCall(const std::vector<std::string>& words);

// Keeps the event on standard input, and waits for the whole of it no longer than 12 ms. Prints nothing; whatever goes
// wrong is passed over.
void keepHookEvent(const HookCall& call, const std::function<std::filesystem::path()>& dataFolder) noexcept;

}  // namespace ambrel
