#pragma once
// Whether the machine has a network, as far as the desktop's network service says.

#include <QObject>

namespace ambrel {

// Only a hint. Without such a service the machine counts as online. The toolkit's fallback may say "offline" at the
// start and then nothing else, so only a request can tell.
class Reachability : public QObject {
  Q_OBJECT

 public:
  explicit Reachability(QObject* parent = nullptr);

  bool isOnline() const { return isOnline_; }

 Q_SIGNALS:
  void changed(bool isOnline);

 private:
  void update();

  bool isOnline_ = true;
};

}  // namespace ambrel
