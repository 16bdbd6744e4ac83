#pragma once

#include "platform/DeveloperTools.h"
#include "platform/linux/developer/ContainerEngine.h"
#include "platform/linux/developer/ServerReader.h"

namespace ambrel {

class LinuxDeveloperTools : public DeveloperTools {
 public:
  struct Sources {
    std::filesystem::path proc = "/proc";
    uid_t user = 0;
    // Where container engines listen; absent when the user's are on another computer.
    std::optional<std::vector<std::filesystem::path>> engines = std::vector<std::filesystem::path>();
    // Where these programs may be; the first one that is there counts.
    std::vector<std::filesystem::path> brew = {}, xcrun = {}, emulator = {};
    // Folders with a NAME.ini for each virtual device, and with a file for each running emulator.
    std::vector<std::filesystem::path> virtualDevices = {}, runningEmulators = {};
  };
  // By what the environment says.
  static Sources runningSystem();

  explicit LinuxDeveloperTools(Sources sources);

  ToolAnswer<GitReading> git(const std::filesystem::path& folder, std::chrono::milliseconds limit) override;
  std::vector<LocalServer> servers() override { return servers_.read(); }
  bool stop(const LocalServer& server) override { return servers_.stop(server); }
  ToolAnswer<ContainerReading> containers() override;
  std::optional<ToolFailure> setRunning(const std::string& container, bool isRunning) override {
    return engine_.setRunning(container, isRunning);
  }
  ToolAnswer<std::string> log(const std::string& container) override { return engine_.log(container); }
  ToolAnswer<std::vector<std::string>> outdatedPackages() override;
  ToolAnswer<std::vector<Simulator>> simulators() override;
  bool start(const Simulator& simulator) override;

 private:
  Sources sources_;
  ServerReader servers_;
  ContainerEngine engine_;
};

}  // namespace ambrel
