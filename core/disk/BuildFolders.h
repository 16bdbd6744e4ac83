#pragma once
// Folders that a build makes, and whether anything makes one again. Private to the disk sources.

#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

// The file that proves a project around a build folder of that name. Absent for other names.
std::optional<std::string_view> projectMarker(std::string_view folderName);

// Why this build folder may be all there is of a program, in a sentence or two. Empty when its project shows that a
// tool makes it again: a repository or a lock file at the project or above it, below the home.
std::string doubtAbout(const std::string& project, std::string_view folderName, const std::string& home);

}  // namespace ambrel
