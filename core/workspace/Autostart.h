#pragma once
// The desktop entry that starts the program with the session.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

// "autostart/tilebay.desktop" in the user's folder of configurations.
std::filesystem::path autostartFile(const std::filesystem::path& config);
// The entry of an installed package, which starts the program for every user who has no entry of that name.
std::filesystem::path installedAutostartFile();
// An entry that keeps an installed one from starting the program.
std::string noAutostartEntry();
// `program`: absolute; any bytes may be in it.
std::string autostartEntry(const std::filesystem::path& program);
// Whether a session that finds this text starts the program: an entry can be there and be switched off.
bool startsAtLogin(const std::optional<std::string>& entry);

}  // namespace ambrel
