#pragma once
// The data folders of tests/cases/agents: each holds one input and the sessions in it.

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Files.h"
#include "core/base/JSON.h"

namespace ambrel {

struct AgentCase {
  std::string name;
  std::string input;  // the bytes of log.jsonl or store.sql
  JSON expected;
};

inline std::vector<AgentCase> agentCases(std::string_view kind, std::string_view inputName) {
  std::vector<AgentCase> cases;
  const auto root = std::filesystem::path(AMBREL_CASES) / "agents" / kind;
  for (const auto& folder : std::filesystem::directory_iterator(root))
    cases.push_back({folder.path().filename(), readFile(folder.path() / inputName).value(),
                     parseJSON(readFile(folder.path() / "expected.json").value()).value()});
  std::sort(cases.begin(), cases.end(), [](const AgentCase& a, const AgentCase& b) { return a.name < b.name; });
  return cases;
}

}  // namespace ambrel
