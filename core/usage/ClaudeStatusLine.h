#pragma once
// The hook that lets Claude Code itself save its plan limits: a shell script that is installed as its status line, and
// that runs the user's own status line behind itself.

#include <filesystem>
#include <optional>
#include <string>

#include "core/agents.h"
#include "core/usage/ForeignJSON.h"

namespace ambrel::ClaudeStatusLine {

struct Files {
  std::filesystem::path home;
  std::filesystem::path settings;  // Claude Code's
  std::filesystem::path backup;    // as the settings were before the first change
  std::filesystem::path snapshot;  // the last input with limits, which ClaudeLimits::read reads
  std::filesystem::path script;
  std::filesystem::path original;  // the user's own status line: the command alone

  // dataFolder: where the program keeps its own files. It should be absolute, as the script is run from anywhere.
  Files(const std::filesystem::path& homeFolder, const std::filesystem::path& dataFolder,
        const AgentFolders& folders = {});
};

// What the user reads when the settings could not be changed.
inline constexpr const char* cannotChange = "Could not change ~/.claude/settings.json. Check that it is valid JSON.";

std::string script(const std::filesystem::path& statusFile, const std::filesystem::path& originalFile);

// The shell's way to name the script: the path as it is, unless it holds something that the shell would not take
// for itself, such as a blank; then in quotes.
std::string command(const std::filesystem::path& scriptFile);

bool isConnected(const ForeignJSON& settings, const std::filesystem::path& scriptFile);

struct Installed {
  ForeignJSON settings;
  std::optional<std::string> earlierCommand;  // absent too when it was the script's own
};
// `settings` is an object.
Installed install(ForeignJSON settings, const std::filesystem::path& scriptFile);
// Unchanged when the hook is not connected. original: the command to put back; absent or empty: there was none.
ForeignJSON remove(ForeignJSON settings, const std::filesystem::path& scriptFile,
                   const std::optional<std::string>& original);

// As the settings are in the file now; settings that cannot be read are not connected.
bool isConnected(const Files& files);
// Whether a call of the script may be left in them: they name it, be they damaged, or cannot be read.
bool mayHaveOurs(const Files& files);
// These change files, each whole or not at all, and throw FileError or DecodingError; settings that are no JSON object
// stay as they are. Installing again repairs a script that was lost. Both do nothing to settings that are as wanted.
void install(const Files& files);
void remove(const Files& files);

}  // namespace ambrel::ClaudeStatusLine
