#pragma once
// A file that others write: edited in place, replaced, made where there was none, or behind a link.

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <filesystem>

namespace ambrel {

class FollowedFile : public QObject {
  Q_OBJECT

 public:
  explicit FollowedFile(std::filesystem::path file, QObject* parent = nullptr);

  // From now on changes are told.
  void start();

 Q_SIGNALS:
  // Once the writing has paused; also for changes of our own, and for some of the file's folder. The name may stand for
  // another file by then.
  void changed();

 private:
  // A file that is written in place speaks for itself; one that is replaced or made is a change of its folder, and
  // while there is no folder, of the one above.
  void watch();

  std::filesystem::path file_;
  QFileSystemWatcher watcher_;
  QTimer pause_;
};

}  // namespace ambrel
