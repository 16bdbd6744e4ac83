#pragma once
// Whether the machine has a network, as far as the desktop's network service says.

#include <QObject>

namespace ambrel {

// A hint, no more. Without such a service the machine counts as online; and what the toolkit takes for one where no
// service runs may say "offline" at the start and then nothing ever again. A request finds out.
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
