#pragma once
// Repositories by libgit2, which runs no hooks, filters or file system monitors of theirs.

#include "platform/DeveloperTools.h"

namespace ambrel {

// See DeveloperTools::git. Writes nothing: a file whose date alone has changed is compared again at each reading.
ToolAnswer<GitReading> readRepository(const std::filesystem::path& folder, std::chrono::milliseconds limit);

}  // namespace ambrel
