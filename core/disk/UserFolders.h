#pragma once
// Where this user's Downloads, Desktop and other own folders are, whatever the language of the desktop.

#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

struct UserFolders {
  std::vector<std::string> desktop, downloads;  // absolute, the plain names first
  std::vector<std::string> all;                 // every folder that the desktop names, absolute
};

// `text`: a user-dirs.dirs document. Entries that are the home itself or are outside it mean nothing.
UserFolders parseUserFolders(std::string_view text, const std::string& home);
// From the home's own file, if there is one.
UserFolders readUserFolders(const std::string& home);

}  // namespace ambrel
