#pragma once
// Tells when somebody has changed a file that the program keeps in memory, also when the file was replaced.

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <filesystem>

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
  void watch();

  std::filesystem::path file_;
  QFileSystemWatcher watcher_;
  QTimer pause_;
};

}  // namespace ambrel
