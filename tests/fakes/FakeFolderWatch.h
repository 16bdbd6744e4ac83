#pragma once

#include <utility>

#include "platform/FolderWatch.h"

namespace ambrel {

class FakeFolderWatch : public FolderWatch {
 public:
  void follow(std::vector<WatchedFolder> folders, std::function<void(std::size_t)> changed) override {
    followed = std::move(folders);
    changed_ = std::move(changed);
  }
  bool tellsAll() const override { return isWhole; }

  // Something is written in that folder.
  void change(std::size_t folder) {
    if (changed_) changed_(folder);
  }

  std::vector<WatchedFolder> followed;
  bool isWhole = true;

 private:
  std::function<void(std::size_t)> changed_;
};

}  // namespace ambrel
