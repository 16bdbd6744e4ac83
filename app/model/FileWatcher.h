#pragma once
// Tells when somebody has changed a file that the program keeps in memory, also when the file was replaced.

#include <QObject>
#include <QTimer>
#include <filesystem>
#include <memory>

#include "app/base/FollowedFile.h"

namespace ambrel {

class FileWatcher : public QObject {
  Q_OBJECT

 public:
  explicit FileWatcher(std::filesystem::path file, QObject* parent = nullptr);

  // From now on. Throws FileError when the file's folder cannot be made.
  void start();

 Q_SIGNALS:
  // Once the writing has paused; also for changes of our own, and for some of the file's folder.
  void changed();

 private:
  std::filesystem::path file_;
  std::unique_ptr<FollowedFile> followed_;
  QTimer pause_;
};

}  // namespace ambrel
