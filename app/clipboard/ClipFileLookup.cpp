#include "app/clipboard/ClipFileLookup.h"

#include <algorithm>
#include <memory>

#include "core/base/Files.h"
#include "core/clipboard/Capture.h"

namespace ambrel {
namespace {

constexpr std::size_t mostFiles = 1000;
constexpr std::size_t mostShown = 3;

}  // namespace

ClipFiles filesOf(const ClipItem& item) {
  ClipFiles files;
  const std::vector<std::string> paths = filePaths(item);
  std::uint64_t bytes = 0;
  bool isWhole = paths.size() <= mostFiles;
  for (std::size_t i = 0; i < std::min(paths.size(), mostFiles); ++i) {
    const auto status = fileStatus(paths[i]);
    if (i < mostShown) files.isFolder.push_back(status && status->isFolder);
    if (status && status->isRegular)
      bytes += status->size;
    else
      isWhole = false;
    if (!isWhole && i + 1 >= mostShown) break;
  }
  if (isWhole) files.bytes = bytes;
  return files;
}

ClipFileLookup::ClipFileLookup(Background background, std::function<void(const UUID&)> changed)
    : background_(std::move(background)), changed_(std::move(changed)) {}

const ClipFiles* ClipFileLookup::lookAt(const ClipItem& item) {
  if (fresh_.insert(item.id).second) {
    auto files = std::make_shared<ClipFiles>();
    background_([item, files] { *files = filesOf(item); },
                [this, id = item.id, files] {
                  auto& known = found_[id];
                  if (known == *files) return;
                  known = std::move(*files);
                  changed_(id);
                });
  }
  const auto found = found_.find(item.id);
  return found == found_.end() ? nullptr : &found->second;
}

}  // namespace ambrel
