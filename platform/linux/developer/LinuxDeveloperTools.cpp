#include "platform/linux/developer/LinuxDeveloperTools.h"

#include <QProcess>
#include <algorithm>
#include <cstdlib>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/Text.h"
#include "core/developer/BrewPackages.h"
#include "platform/linux/ToolRun.h"
#include "platform/linux/developer/GitReader.h"
#include "platform/linux/telemetry/SmallFiles.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds brewLimit{60}, simulatorLimit{15};

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

// In the folders of the search path, and then in those.
std::vector<fs::path> placesOf(const std::string& program, std::initializer_list<fs::path> folders = {}) {
  std::vector<fs::path> places;
  const std::string path = variable("PATH");
  for (const std::string_view folder : split(path, ':'))
    if (folder.starts_with('/')) places.push_back(fs::path(folder) / program);
  for (const fs::path& folder : folders)
    if (folder.is_absolute()) places.push_back(folder / program);
  return places;
}

std::string firstProgram(const std::vector<fs::path>& places) {
  const auto found =
      std::ranges::find_if(places, [](const fs::path& place) { return access(place.c_str(), X_OK) == 0; });
  return found == places.end() ? "" : found->string();
}

// Whether a process of that number is an emulator: the number may be another program's since.
bool isEmulator(const fs::path& process) {
  const std::string arguments = readText(process / "cmdline").value_or("");
  const std::string program = fs::path(arguments.c_str()).filename();
  return program.starts_with("emulator") || program.starts_with("qemu");
}

}  // namespace

LinuxDeveloperTools::Sources LinuxDeveloperTools::runningSystem() {
  const fs::path home = variable("HOME");
  const std::string runtime = variable("XDG_RUNTIME_DIR"), avdHome = variable("ANDROID_AVD_HOME");
  Sources sources{.user = getuid(), .engines = containerSockets(variable("DOCKER_HOST"), runtime, home)};
  sources.brew = placesOf("brew", {"/home/linuxbrew/.linuxbrew/bin", home / ".linuxbrew/bin"});
  sources.xcrun = placesOf("xcrun");
  sources.emulator =
      placesOf("emulator", {fs::path(variable("ANDROID_HOME")) / "emulator",
                            fs::path(variable("ANDROID_SDK_ROOT")) / "emulator", home / "Android/Sdk/emulator"});
  sources.virtualDevices = {avdHome.empty() ? home / ".android/avd" : fs::path(avdHome)};
  sources.runningEmulators = {home / ".android/avd/running"};
  if (!runtime.empty()) sources.runningEmulators.push_back(fs::path(runtime) / "avd/running");
  return sources;
}

LinuxDeveloperTools::LinuxDeveloperTools(Sources sources)
    : sources_(std::move(sources)),
      servers_(sources_.proc, sources_.user),
      engine_(sources_.engines.value_or(std::vector<fs::path>())) {}

ToolAnswer<GitReading> LinuxDeveloperTools::git(const fs::path& folder, std::chrono::milliseconds limit) {
  return readRepository(folder, limit);
}

ToolAnswer<ContainerReading> LinuxDeveloperTools::containers() {
  if (!sources_.engines) return ToolFailure{ToolFailure::Reason::elsewhere};
  return engine_.containers();
}

ToolAnswer<std::vector<std::string>> LinuxDeveloperTools::outdatedPackages() {
  const std::string program = firstProgram(sources_.brew);
  if (program.empty()) return ToolFailure{ToolFailure::Reason::missing};
  const auto output = outputOf({.program = program,
                                .arguments = {"outdated", "--json=v2"},
                                .limit = brewLimit,
                                .environment = {{"HOMEBREW_NO_AUTO_UPDATE", "1"}, {"HOMEBREW_NO_ANALYTICS", "1"}}});
  auto packages = output ? parseOutdated(*output) : std::nullopt;
  if (!packages) return ToolFailure{ToolFailure::Reason::failed};
  return std::move(*packages);
}

ToolAnswer<std::vector<Simulator>> LinuxDeveloperTools::simulators() {
  const std::string xcrun = firstProgram(sources_.xcrun);
  if (xcrun.empty() && firstProgram(sources_.emulator).empty()) return ToolFailure{ToolFailure::Reason::missing};
  std::vector<Simulator> simulators;
  if (!xcrun.empty())
    simulators = parseSimulatorDevices(
        outputOf({.program = xcrun, .arguments = {"simctl", "list", "devices", "--json"}, .limit = simulatorLimit})
            .value_or(""));
  std::vector<std::string> running;
  for (const fs::path& folder : sources_.runningEmulators)
    for (const std::string& name : namesIn(folder, "pid_")) {
      // The file of an emulator that was killed stays.
      if (isEmulator(sources_.proc / fs::path(name).stem().string().substr(4)))
        running.push_back(runningDevice(readFile(folder / name, 1 << 16).value_or("")));
    }
  for (const fs::path& folder : sources_.virtualDevices)
    for (const std::string& name : namesIn(folder)) {
      if (!name.ends_with(".ini")) continue;
      const std::string id = fs::path(name).stem().string();
      const auto text = [](const fs::path& file) { return readFile(file, 1 << 16).value_or("") + "\n"; };
      Simulator device = parseVirtualDevice(id, text(folder / name) + text(folder / (id + ".avd") / "config.ini"));
      device.isRunning = std::ranges::find(running, id) != running.end();
      simulators.push_back(std::move(device));
    }
  sortSimulators(simulators);
  return simulators;
}

bool LinuxDeveloperTools::start(const Simulator& simulator) {
  switch (simulator.maker) {
    case Simulator::Maker::apple:
      return outputOf({.program = firstProgram(sources_.xcrun),
                       .arguments = {"simctl", "boot", simulator.id},
                       .limit = simulatorLimit})
          .has_value();
    case Simulator::Maker::android: {
      QProcess emulator;
      emulator.setProgram(QString::fromStdString(firstProgram(sources_.emulator)));
      emulator.setArguments({QStringLiteral("-avd"), QString::fromStdString(simulator.id)});
      emulator.setStandardOutputFile(QProcess::nullDevice());
      emulator.setStandardErrorFile(QProcess::nullDevice());
      return emulator.startDetached();
    }
  }
  return false;
}

}  // namespace ambrel
