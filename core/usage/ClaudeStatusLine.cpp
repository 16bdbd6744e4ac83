#include "core/usage/ClaudeStatusLine.h"

#include <algorithm>
#include <string_view>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/StoredFile.h"
#include "core/base/Text.h"

namespace ambrel::ClaudeStatusLine {
namespace {

constexpr std::uint64_t largestFile = 64 << 20;

struct SettingsFile {
  std::optional<std::string> bytes;  // absent when there is no file
  ForeignJSON settings;
};

bool fileExists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::status(path, error));
}

std::string readWhole(const std::filesystem::path& path) {
  errno = 0;
  auto bytes = readFile(path, largestFile);
  if (!bytes) throw FileError("cannot read", path, errno == 0 ? EINVAL : errno);
  return std::move(*bytes);
}

SettingsFile readSettings(const Files& files) {
  if (!fileExists(files.settings)) return {};
  SettingsFile file;
  file.bytes = readWhole(files.settings);
  try {
    file.settings = ForeignJSON::parse(*file.bytes);
  } catch (const DecodingError& error) {
    throw DecodingError(files.settings.string() + ": " + error.what());
  }
  if (!file.settings.isObject()) throw DecodingError(files.settings.string() + ": not a JSON object");
  return file;
}

void writeSettings(const Files& files, const SettingsFile& old, const ForeignJSON& settings) {
  makeFolders(files.settings.parent_path());
  removeLeftovers(files.settings);
  if (old.bytes && !std::filesystem::exists(std::filesystem::symlink_status(files.backup))) {
    const auto permissions = std::filesystem::status(files.settings).permissions();
    writeAtomically(files.backup, *old.bytes, static_cast<mode_t>(permissions) & 07777);
  }
  rewriteAtomically(files.settings, settings.pretty());
}

void writeIfDifferent(const std::filesystem::path& path, const std::string& bytes, mode_t mode) {
  const auto status = std::filesystem::status(path);
  if (std::filesystem::exists(status) && static_cast<mode_t>(status.permissions()) == mode && readFile(path) == bytes)
    return;
  writeAtomically(path, bytes, mode);
}

void writeScript(const Files& files) {
  makeFolders(files.script.parent_path());
  writeIfDifferent(files.script, script(files.snapshot, files.original), 0755);
}

const ForeignJSON* statusLineOf(const ForeignJSON& settings) {
  const ForeignJSON* statusLine = settings.find("statusLine");
  return statusLine && statusLine->isObject() ? statusLine : nullptr;
}

std::optional<std::string> commandOf(const ForeignJSON& settings) {
  const ForeignJSON* statusLine = statusLineOf(settings);
  const ForeignJSON* command = statusLine ? statusLine->find("command") : nullptr;
  return command ? command->text() : std::nullopt;
}

// Whether a command starts the script, under any of the names that a user would write by hand.
bool mentionsScript(const std::string& text, const Files& files) {
  const std::string relative = files.script.lexically_relative(files.home).string();
  const std::string names[] = {files.script.string(), command(files.script), "~/" + relative, "$HOME/" + relative,
                               "${HOME}/" + relative};
  return std::any_of(std::begin(names), std::end(names),
                     [&](const std::string& name) { return text.find(name) != std::string::npos; });
}

void removeFile(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::remove(path, error);
  if (error) throw FileError("cannot delete", path, error.value());
}

}  // namespace

Files::Files(const std::filesystem::path& homeFolder, const std::filesystem::path& dataFolder,
             const AgentFolders& folders)
    : home(homeFolder),
      settings(folders.claudeIn(home) / "settings.json"),
      backup(folders.claudeIn(home) / "settings.json.ambrel-backup"),
      snapshot(dataFolder / "claude-status.json"),
      script(dataFolder / "claude-statusline.sh"),
      original(dataFolder / "claude-statusline-original") {}

std::string script(const std::filesystem::path& statusFile, const std::filesystem::path& originalFile) {
  return "#!/bin/sh\n"
         "# Tilebay: saves Claude Code's plan limits for the Claude widget, then runs your own status line.\n"
         "input=$(cat)\n"
         "case \"$input\" in\n"
         "  *'\"rate_limits\"'*)\n"
         "    file=" +
         shellQuoted(statusFile.string()) +
         "\n"
         "    printf '%s' \"$input\" > \"$file.$$\" && mv -f \"$file.$$\" \"$file\" ;;\n"
         "esac\n"
         "original=" +
         shellQuoted(originalFile.string()) +
         "\n"
         "if [ -s \"$original\" ]; then printf '%s' \"$input\" | /bin/sh -c \"$(cat \"$original\")\"; fi\n";
}

std::string command(const std::filesystem::path& scriptFile) {
  constexpr std::string_view plain = "/._-+@%:,=";
  const std::string path = scriptFile.string();
  const bool isPlain = std::all_of(path.begin(), path.end(), [&](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') || byte >= 0x80 ||
           plain.find(c) != plain.npos;
  });
  return isPlain ? path : shellQuoted(path);
}

bool isConnected(const ForeignJSON& settings, const std::filesystem::path& scriptFile) {
  const auto present = commandOf(settings);
  return present && (*present == scriptFile.string() || *present == command(scriptFile));
}

Installed install(ForeignJSON settings, const std::filesystem::path& scriptFile) {
  std::optional<std::string> earlier;
  if (!isConnected(settings, scriptFile)) earlier = commandOf(settings);
  const ForeignJSON* present = statusLineOf(settings);
  ForeignJSON statusLine = present ? *present : ForeignJSON();
  statusLine.set("type", ForeignJSON::ofText("command"));
  statusLine.set("command", ForeignJSON::ofText(command(scriptFile)));
  settings.set("statusLine", std::move(statusLine));
  return {std::move(settings), std::move(earlier)};
}

ForeignJSON remove(ForeignJSON settings, const std::filesystem::path& scriptFile,
                   const std::optional<std::string>& original) {
  if (!isConnected(settings, scriptFile)) return settings;
  if (original && !original->empty()) {
    ForeignJSON statusLine = *statusLineOf(settings);
    statusLine.set("command", ForeignJSON::ofText(*original));
    settings.set("statusLine", std::move(statusLine));
  } else {
    settings.remove("statusLine");
  }
  return settings;
}

bool isConnected(const Files& files) {
  try {
    return isConnected(readSettings(files).settings, files.script);
  } catch (const std::exception&) {
    return false;
  }
}

bool mayHaveOurs(const Files& files) {
  try {
    return fileExists(files.settings) && mentionsScript(readWhole(files.settings), files);
  } catch (const FileError&) {
    return true;
  }
}

void install(const Files& files) {
  const SettingsFile file = readSettings(files);
  if (isConnected(file.settings, files.script)) return writeScript(files);
  if (!isValidUTF8(files.script.string())) throw FileError("cannot name in JSON", files.script, EILSEQ);
  const Installed installed = install(file.settings, files.script);
  writeScript(files);
  const std::string earlier = installed.earlierCommand.value_or("");
  if (earlier.empty()) {
    removeFile(files.original);
  } else if (!mentionsScript(earlier, files)) {
    // Saved behind itself, the script would start itself for ever.
    writeAtomically(files.original, earlier);
  }
  writeSettings(files, file, installed.settings);
}

void remove(const Files& files) {
  const SettingsFile file = readSettings(files);
  if (isConnected(file.settings, files.script)) {
    const auto original = readFile(files.original, largestFile);
    const bool isText = original && isValidUTF8(*original);
    writeSettings(files, file, remove(file.settings, files.script, isText ? original : std::nullopt));
  }
  removeFile(files.snapshot);
}

}  // namespace ambrel::ClaudeStatusLine
