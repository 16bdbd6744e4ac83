#include "platform/linux/InstalledPrograms.h"

#include <QDir>
#include <QProcess>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <unistd.h>
#include <unordered_set>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::uint64_t longestEntry = 1 << 20;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

void addFolders(std::vector<std::filesystem::path>& folders, const std::string& list) {
  for (const std::string_view folder : split(list, ':'))
    if (folder.starts_with('/')) folders.emplace_back(folder);
}

std::optional<std::int64_t> timeOfChange(const std::filesystem::path& folder) {
  const auto status = fileStatus(folder);
  if (!status || !status->isFolder) return std::nullopt;
  return status->modified.time_since_epoch().count();
}

}  // namespace

ProgramFolders ProgramFolders::ofThisSession() {
  ProgramFolders folders;
  const std::string home = environment("HOME");
  const std::string own = environment("XDG_DATA_HOME");
  const std::string shared = environment("XDG_DATA_DIRS");
  if (own.starts_with('/'))
    folders.data.emplace_back(own);
  else if (!home.empty())
    folders.data.emplace_back(home + "/.local/share");
  addFolders(folders.data, shared.empty() ? "/usr/local/share:/usr/share" : shared);
  addFolders(folders.commands, environment("PATH"));
  // A session that was not started by a login shell lacks the folder where agents' installers put their commands.
  if (!home.empty()) folders.commands.emplace_back(home + "/.local/bin");
  return folders;
}

const std::vector<DesktopEntry>& InstalledPrograms::entries() {
  // A folder that was added below one of them has changed that one.
  const auto isAsSeen = [](const SeenFolder& folder) { return timeOfChange(folder.path) == folder.changed; };
  if (!isRead_ || !std::ranges::all_of(seenFolders_, isAsSeen)) read();
  return entries_;
}

void InstalledPrograms::read() {
  isRead_ = true;
  programs_.clear();
  entries_.clear();
  seenFolders_.clear();
  const auto see = [this](const std::filesystem::path& folder) {
    seenFolders_.push_back({folder, timeOfChange(folder)});
  };
  std::unordered_set<std::string> seen;
  for (const auto& root : folders_.data) {
    const auto applications = root / "applications";
    std::error_code error, unknown;
    see(applications);
    constexpr auto options = std::filesystem::directory_options::skip_permission_denied;
    for (std::filesystem::recursive_directory_iterator file(applications, options, error), end; !error && file != end;
         file.increment(error)) {
      // Before the iterator goes into it.
      if (file->is_directory(unknown)) see(file->path());
      const auto id = desktopEntryID(file->path().lexically_relative(applications).string());
      if (!id || seen.contains(*id)) continue;
      const auto text = readFile(file->path(), longestEntry);
      auto entry = text ? parseDesktopEntry(*id, *text) : std::nullopt;
      if (!entry) continue;
      seen.insert(*id);
      entries_.push_back(*entry);
      programs_.push_back({std::move(*entry), file->path()});
    }
  }
}

std::optional<InstalledProgram> InstalledPrograms::find(std::string_view id) {
  entries();
  for (const InstalledProgram& program : programs_) {
    const DesktopEntry& entry = program.entry;
    if (entry.id != id || entry.isHidden) continue;
    if (!entry.tryExec.empty() && !command(entry.tryExec)) continue;
    return program;
  }
  return std::nullopt;
}

std::optional<std::filesystem::path> InstalledPrograms::command(std::string_view name) const {
  const auto isProgram = [](const std::filesystem::path& path) {
    const auto status = fileStatus(path);
    return status && status->isRegular && access(path.c_str(), X_OK) == 0;
  };
  if (name.empty()) return std::nullopt;
  if (name.find('/') != name.npos) {
    std::filesystem::path path(name);
    return path.is_absolute() && isProgram(path) ? std::optional(path) : std::nullopt;
  }
  for (const auto& folder : folders_.commands)
    if (auto path = folder / name; isProgram(path)) return path;
  return std::nullopt;
}

std::vector<std::string> InstalledPrograms::inTerminal(const std::vector<std::string>& command) const {
  struct Terminal {
    const char* name;
    const char* option;  // what comes before the command; null for nothing
  };
  constexpr std::array terminals{Terminal{"xdg-terminal-exec", nullptr},
                                 Terminal{"x-terminal-emulator", "-e"},
                                 Terminal{"konsole", "-e"},
                                 Terminal{"gnome-terminal", "--"},
                                 Terminal{"xfce4-terminal", "-x"},
                                 Terminal{"kitty", nullptr},
                                 Terminal{"alacritty", "-e"},
                                 Terminal{"foot", nullptr},
                                 Terminal{"xterm", "-e"}};
  for (const Terminal& terminal : terminals) {
    const auto program = this->command(terminal.name);
    if (!program) continue;
    std::vector<std::string> whole{program->string()};
    if (terminal.option) whole.emplace_back(terminal.option);
    whole.insert(whole.end(), command.begin(), command.end());
    return whole;
  }
  return {};
}

bool startDetached(const std::vector<std::string>& command, const std::string& folder) {
  if (command.empty()) return false;
  QStringList arguments;
  for (std::size_t i = 1; i < command.size(); ++i)
    arguments << QFile::decodeName(QByteArray::fromStdString(command[i]));
  QProcess process;
  process.setProgram(QFile::decodeName(QByteArray::fromStdString(command.front())));
  process.setArguments(arguments);
  const QString wanted = QFile::decodeName(QByteArray::fromStdString(folder));
  process.setWorkingDirectory(QDir(wanted).exists() && !wanted.isEmpty() ? wanted : QDir::homePath());
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached();
}

}  // namespace ambrel
