#include "app/model/StartAtLogin.h"

#include <utility>

#include "core/base/Files.h"
#include "core/workspace/Autostart.h"

namespace ambrel {

StartAtLogin::StartAtLogin(const std::filesystem::path& config, std::filesystem::path program, QObject* parent)
    : QObject(parent), file_(autostartFile(config)), program_(std::move(program)), watcher_(file_) {
  connect(&watcher_, &FollowedFile::changed, this, &StartAtLogin::look);
  watcher_.start();
  look();
}

void StartAtLogin::look() {
  isOn_ = startsAtLogin(readFile(file_));
  Q_EMIT changed();
}

void StartAtLogin::setOn(bool isOn) {
  if (isOn == isOn_) return;
  problem_.clear();
  try {
    if (isOn) {
      makeFolders(file_.parent_path());
      writeAtomically(file_, autostartEntry(program_), 0644);
    } else {
      std::error_code error;
      std::filesystem::remove(file_, error);
      if (error) throw FileError("cannot remove", file_, error.value());
    }
  } catch (const FileError& error) {
    problem_ = QString::fromLocal8Bit(error.what());
  }
  look();
}

}  // namespace ambrel
