#pragma once
// Whether the machine has a network, as far as the desktop's network service says.

#include <QObject>

namespace ambrel {

// Without such a service the machine counts as online: a request then finds out.
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
