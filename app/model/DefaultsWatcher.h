#pragma once
// Follows the file of the defaults, so that what is edited by hand takes effect while the program runs.

#include <set>
#include <string>

#include "app/base/FollowedFile.h"
#include "core/base/UserDefaults.h"

namespace ambrel {

// `defaults` outlives it; it takes over their `onRefreshed`.
class DefaultsWatcher : public QObject {
  Q_OBJECT

 public:
  explicit DefaultsWatcher(UserDefaults& defaults, QObject* parent = nullptr);

  void start();

 Q_SIGNALS:
  // Emitted later, after pending writes are done.
  void changed(const std::set<std::string>& keys);

 private:
  void tell();

  UserDefaults& defaults_;
  FollowedFile watcher_;
  std::set<std::string> keys_;
};

}  // namespace ambrel
