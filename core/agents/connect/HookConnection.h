#pragma once
// Our hooks in the settings of the agents' tools: put in and taken out at the user's wish, beside the user's own.

#include <filesystem>
#include <string>

#include "core/agents.h"

namespace ambrel {

// Tools with hooks are Claude Code and Codex.
class HookConnection {
 public:
  struct Places {
    std::filesystem::path home;
    std::filesystem::path data;  // the program's own folder
    std::filesystem::path tool;  // tilebayctl; absolute
    AgentFolders folders = {};
  };
  HookConnection(AgentKind kind, const Places& places);

  // Every event that we want calls us. Settings that cannot be read are not connected.
  bool isConnected() const;
  // Whether a call of ours may be left in them: they name our tool, be they damaged, or cannot be read.
  bool mayHaveOurs() const;
  // These change the settings whole or not at all, and throw FileError or DecodingError; settings that are no JSON
  // object, or whose hooks have another form, stay as they are. Both do nothing to settings that are as wanted.
  // The settings as they were before our first change are beside them, with ".ambrel-backup" behind their name.
  void connect() const;
  // Settings that nobody has changed since are the same to the byte as before.
  void disconnect() const;

  // The file that is changed.
  const std::filesystem::path& settings() const { return settings_; }

  // What the user reads when that failed: "Could not change ~/.claude/settings.json. Check that it is valid JSON."
  std::string cannotChange() const;

 private:
  AgentKind kind_;
  std::filesystem::path home_, settings_, backup_;
  std::filesystem::path before_;  // the bytes before the last connect
  std::string command_;
};

// The pure part. command: what the tool's shell runs. Both throw DecodingError.
std::string connectedSettings(AgentKind kind, std::string settings, const std::string& command);
// Lists and objects that are empty without our entries go, too.
std::string disconnectedSettings(AgentKind kind, std::string settings);
bool isConnected(AgentKind kind, const std::string& settings, const std::string& command);

}  // namespace ambrel
