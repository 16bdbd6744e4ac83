#include "app/model/FileWatcher.h"

#include <utility>

#include "core/base/Files.h"

namespace ambrel {
namespace {

// Some editors empty a file before they write it.
constexpr std::chrono::milliseconds editingPause{250};

}  // namespace

FileWatcher::FileWatcher(std::filesystem::path file, QObject* parent) : QObject(parent), file_(std::move(file)) {
  pause_.setSingleShot(true);
  pause_.setInterval(editingPause);
  connect(&pause_, &QTimer::timeout, this, &FileWatcher::changed);
}

void FileWatcher::start() {
  makeFolders(file_.parent_path());
  followed_ = std::make_unique<FollowedFile>(file_);
  connect(followed_.get(), &FollowedFile::changed, &pause_, qOverload<>(&QTimer::start));
}

}  // namespace ambrel
