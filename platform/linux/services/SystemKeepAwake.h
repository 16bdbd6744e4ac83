#pragma once
// Keeps the computer awake by an inhibitor of the session manager (org.freedesktop.login1) and, for the screens, one of
// the desktop's screen saver (org.freedesktop.ScreenSaver) and the window system's. Any of them will do.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <optional>
#include <vector>

#include "platform/KeepAwake.h"

namespace ambrel {

class SystemKeepAwake : public QObject, public KeepAwake {
  Q_OBJECT

 public:
  // holdScreens: stops the window system's own blanking, or lets it go on; false when that cannot be done. May be
  // empty.
  SystemKeepAwake(const QDBusConnection& systemBus, const QDBusConnection& sessionBus,
                  std::function<bool(bool isHeld)> holdScreens = {});
  ~SystemKeepAwake() override;

  void take(std::function<void(bool isHeld)> done) override;
  void release() override;
  bool isHeld() const override { return inhibitor_.isValid() || cookie_ || holdsScreens_; }

 private:
  void ask();
  void granted(uint generation, const QDBusMessage& answer);
  void finish();

  QDBusConnection systemBus_;
  QDBusConnection sessionBus_;
  QDBusUnixFileDescriptor inhibitor_;  // held as long as it is open
  std::optional<uint> cookie_;
  std::function<bool(bool)> holdScreens_;
  bool holdsScreens_ = false;
  int openQuestions_ = 0;  // of the present wish
  uint generation_ = 0;    // of the wish; what is granted after it has passed is given back
  std::vector<std::function<void(bool)>> waiting_;
};

}  // namespace ambrel
