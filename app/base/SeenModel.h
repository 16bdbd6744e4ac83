#pragma once
// What the models of tiles with a panel share: they work while the tile can be seen or the panel is open.

#include "app/base/Replaced.h"
#include "app/base/TimedModel.h"

namespace ambrel {

class SeenModel : public ambrel::TimedModel {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)  // its panel

 public:
  using TimedModel::TimedModel;

  // Of one that has no times of its own.
  std::optional<Instant> due() const override { return std::nullopt; }
  void tick(Instant /*now*/) override {}

  bool isNeeded() const { return isSeen_ || isOpen_; }
  bool isOpen() const { return isOpen_; }
  void setIsSeen(bool isSeen) {
    if (replaced(isSeen_, isSeen)) neededChanged();
  }
  // Of the panel.
  Q_INVOKABLE void begin() {
    if (replaced(isOpen_, true)) Q_EMIT isOpenChanged();
    neededChanged();
  }
  Q_INVOKABLE void end() {
    if (!replaced(isOpen_, false)) return;
    Q_EMIT isOpenChanged();
    closed();
    neededChanged();
  }

 Q_SIGNALS:
  void isOpenChanged();

 protected:
  virtual void closed() {}
  virtual void neededChanged() {}

 private:
  bool isSeen_ = false, isOpen_ = false;
};

}  // namespace ambrel
