#include "app/model/StartAtLogin.h"

#include <utility>

#include "core/base/Files.h"
#include "core/workspace/Autostart.h"

namespace ambrel {

StartAtLogin::StartAtLogin(const std::filesystem::path& config, std::filesystem::path installed,
                           std::filesystem::path program, QObject* parent)
    : QObject(parent),
      file_(autostartFile(config)),
      installed_(std::move(installed)),
      program_(std::move(program)),
      watcher_(file_) {
  connect(&watcher_, &FollowedFile::changed, this, &StartAtLogin::look);
  watcher_.start();
  look();
}

void StartAtLogin::look() {
  const auto own = readFile(file_);
  isOn_ = own ? startsAtLogin(own) : isInstalledOn();
  Q_EMIT changed();
}

bool StartAtLogin::isInstalledOn() const { return startsAtLogin(readFile(installed_)); }

void StartAtLogin::setOn(bool isOn) {
  if (isOn == isOn_) return;
  problem_.clear();
  try {
    if (isOn != isInstalledOn()) {
      makeFolders(file_.parent_path());
      writeAtomically(file_, isOn ? autostartEntry(program_) : noAutostartEntry(), 0644);
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
