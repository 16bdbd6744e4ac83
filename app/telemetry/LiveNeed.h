#pragma once
// Keeps parts of the computer being read while a panel shows more of them than its tile does.

#include <QStringList>

#include "app/telemetry/LiveModels.h"

namespace ambrel {

class LiveNeed : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(ambrel::LiveModels* readings MEMBER readings_ NOTIFY changed REQUIRED FINAL)
  // The widgets that show them, such as "topApps".
  Q_PROPERTY(QStringList parts MEMBER parts_ NOTIFY changed REQUIRED FINAL)
  Q_PROPERTY(bool active MEMBER active_ NOTIFY changed FINAL)

 public:
  explicit LiveNeed(QObject* parent = nullptr) : QObject(parent) {
    connect(this, &LiveNeed::changed, this, &LiveNeed::update);
  }

 Q_SIGNALS:
  void changed();

 private:
  void update() {
    needs_.clear();
    if (!active_ || !readings_) return;
    for (const QString& part : parts_)
      if (const auto widget = fromName<DockWidget>(part.toStdString()))
        if (SamplerBase* sampler = readings_->samplerOf(*widget))
          needs_.push_back(readings_->require(*sampler, sampler->interval()));
  }

  LiveModels* readings_ = nullptr;
  QStringList parts_;
  bool active_ = false;
  std::vector<LiveModels::Need> needs_;
};

}  // namespace ambrel
