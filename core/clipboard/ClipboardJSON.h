#pragma once
// The library as its file holds it.

#include <string>

#include "core/clipboard.h"

namespace ambrel {

// What prettyJSON makes of it, to the byte, with the tree of one record at a time: the tree of a long history takes
// several times the memory of its text.
std::string fileText(const ClipboardLibrary& library);

}  // namespace ambrel
