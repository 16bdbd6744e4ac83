#pragma once
// Folders by inotify.

#include <QSocketNotifier>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "core/base/Files.h"
#include "platform/FolderWatch.h"

namespace ambrel {

class InotifyFolderWatch : public FolderWatch {
 public:
  // mostWatches: of folders in all. Each takes a kilobyte of the kernel's memory, and users have a limited number.
  explicit InotifyFolderWatch(std::size_t mostWatches = 1000);

  void follow(std::vector<WatchedFolder> folders, std::function<void(std::size_t)> changed) override;
  bool tellsAll() const override { return tellsAll_; }
  std::optional<std::vector<std::filesystem::path>> takeChangedFiles() override;

 private:
  // Why a folder is watched; there may be several reasons.
  struct Reason {
    std::size_t folder = 0;  // of the list
    std::string path;
    int levels = 0;
    std::string next;  // not empty: the folder is on the way to the one of the list, and this is the next step
  };

  void build();
  void follow(std::size_t index);
  void add(const Reason& reason);
  void readEvents();
  // Adds the folders of the list that may have changed. False: what is watched has to be made again.
  bool take(int watch, unsigned mask, const std::string& name, std::set<std::size_t>& changed);

  FileDescriptor inotify_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::size_t mostWatches_;
  std::vector<WatchedFolder> folders_;
  std::function<void(std::size_t)> changed_;
  std::map<int, std::vector<Reason>> watches_;
  bool tellsAll_ = false;
  std::set<std::string> files_;  // that have changed
  bool areFilesKnown_ = false;
};

}  // namespace ambrel
