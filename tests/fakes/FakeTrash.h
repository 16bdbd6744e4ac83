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
  TrashPlace move(const DiskAdvice::TrashRequest& request, Instant) override {
    asked.push_back(request.url);
    if (refused.contains(request.url)) throw TrashError(reason, "refused");
    std::filesystem::rename(request.url, folder / std::to_string(asked.size()));
    return place.value();
  }
  std::optional<TrashPlace> placeFor(const std::string&) const override { return place; }

  TemporaryFolder folder;
  std::vector<std::string> asked;
  std::set<std::string> refused;
  StayReason reason = StayReason::inUse;
  std::optional<TrashPlace> place = TrashPlace{.folder = "/trash"};
};

}  // namespace ambrel
