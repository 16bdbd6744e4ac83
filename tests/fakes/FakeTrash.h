#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "platform/Trash.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {

// Takes what still is what was asked for, and puts it into a folder of its own.
class FakeTrash : public Trash {
 public:
  void move(const DiskAdvice::TrashRequest& request, Instant) override {
    asked.push_back(request.url);
    if (refused.contains(request.url)) throw TrashError("in use");
    std::filesystem::rename(request.url, folder / std::to_string(asked.size()));
  }

  TemporaryFolder folder;
  std::vector<std::string> asked;
  std::set<std::string> refused;
};

}  // namespace ambrel
