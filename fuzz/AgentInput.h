#pragma once
// What every session must be, whatever its tool has left behind.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/agents.h"
#include "core/base/Text.h"

namespace ambrel {

inline void expect(bool isTrue) {
  if (!isTrue) __builtin_trap();
}

inline std::string_view bytesOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

inline void expectWellFormed(const AgentSession& session) {
  expect(!session.id.empty() && isValidUTF8(session.id));
  expect(!session.title.empty() && isValidUTF8(session.title));
  expect(!session.project || (!session.project->empty() && isValidUTF8(*session.project)));
  expect(!session.detail || isValidUTF8(*session.detail));
  expect(session.updatedAt < advanced(session.updatedAt, Seconds(1)));
}

}  // namespace ambrel
