#pragma once
// A file that others write: edited in place, replaced, made where there was none, or behind a link.

#include <QFileSystemWatcher>
#include <QObject>
#include <filesystem>

namespace ambrel {

class FollowedFile : public QObject {
  Q_OBJECT

 public:
  explicit FollowedFile(const std::filesystem::path& file, QObject* parent = nullptr);

 Q_SIGNALS:
  // It may be another one now.
  void changed();

 private:
  // A file that is written in place speaks for itself; one that is replaced or made is a change of its folder, and
  // while there is no folder, of the one above.
  void watch();

  std::filesystem::path file_;
  QFileSystemWatcher watcher_;
};

}  // namespace ambrel
