#pragma once
// Developers' tools, as the test plays them.

#include "platform/DeveloperTools.h"

namespace ambrel {

class FakeDeveloperTools : public DeveloperTools {
 public:
  ToolAnswer<GitReading> git(const std::filesystem::path& folder, std::chrono::milliseconds) override {
    asked.push_back("git " + folder.string());
    return repository;
  }
  std::vector<LocalServer> servers() override {
    asked.push_back("servers");
    return listening;
  }
  bool stop(const LocalServer& server) override {
    asked.push_back("stop " + std::to_string(server.pid));
    return doesAct;
  }
  ToolAnswer<ContainerReading> containers() override {
    asked.push_back("containers");
    return engine;
  }
  std::optional<ToolFailure> setRunning(const std::string& container, bool isRunning) override {
    asked.push_back((isRunning ? "run " : "end ") + container);
    return doesAct ? std::nullopt : std::optional(ToolFailure{ToolFailure::Reason::failed, "no such image"});
  }
  ToolAnswer<std::string> log(const std::string& container) override { return "log of " + container; }
  ToolAnswer<std::vector<std::string>> outdatedPackages() override {
    asked.push_back("brew");
    return packages;
  }
  ToolAnswer<std::vector<Simulator>> simulators() override {
    asked.push_back("simulators");
    return devices;
  }
  bool start(const Simulator& simulator) override {
    asked.push_back("start " + simulator.id);
    return doesAct;
  }

  // Nothing is installed.
  ToolAnswer<GitReading> repository = ToolFailure{};
  std::vector<LocalServer> listening;
  ToolAnswer<ContainerReading> engine = ToolFailure{};
  ToolAnswer<std::vector<std::string>> packages = ToolFailure{};
  ToolAnswer<std::vector<Simulator>> devices = ToolFailure{};
  bool doesAct = true;
  std::vector<std::string> asked;
};

}  // namespace ambrel
