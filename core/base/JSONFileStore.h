#pragma once
// One JSON document per file.

#include <filesystem>
#include <optional>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/StoredFile.h"

namespace ambrel {

// A value: no lock, no queue; its owner calls it on the owner's own thread. `Value` converts to and from JSON.
template <typename Value>
struct JSONFileStore {
  std::filesystem::path url;

  // No value when the file does not exist. Throws FileError when it cannot be read and DecodingError when it
  // holds something else; the file stays as it is. What an interrupted save left beside it goes.
  std::optional<Value> load() const {
    removeLeftovers(url);
    if (!std::filesystem::exists(std::filesystem::symlink_status(url))) return std::nullopt;
    errno = 0;
    auto bytes = readFile(url);
    if (!bytes) throw FileError("cannot read", url, errno == 0 ? EINVAL : errno);
    const auto json = parseJSON(*bytes);
    // The text of a long history need not stay beside its tree and its records.
    bytes.reset();
    if (!json) throw DecodingError("not a JSON document: " + url.string());
    try {
      return json->template get<Value>();
    } catch (const nlohmann::json::exception& error) {
      throw DecodingError(url.string() + ": " + error.what());
    }
  }

  // Makes the parent folder (0700), then replaces the file (0600) whole or not at all. Two saves of one value
  // are identical to the byte. Throws FileError; the old file stays.
  void save(const Value& value) const {
    makeFolders(url.parent_path());
    writeAtomically(url, prettyJSON(JSON(value)));
  }
};

}  // namespace ambrel
