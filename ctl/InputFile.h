#pragma once
// A file that a command was given to read.

#include <cstdint>
#include <string>

namespace ambrel {

// All of its bytes. Throws CommandError for a file that is larger, and FileError for one that cannot be read.
std::string inputFile(const std::string& file, std::uint64_t largest);

}  // namespace ambrel
