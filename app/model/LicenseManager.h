#pragma once
// The licence behind the feature gate.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/model/FeatureGate.h"

namespace ambrel {

// Until licences are sold every feature is allowed; a check that denies some can be set.
class LicenseManager : public QObject, public FeatureGate {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // Every feature is allowed.
  Q_PROPERTY(bool isPro READ isPro NOTIFY changed)

 public:
  using Check = std::function<bool(ProFeature)>;
  using QObject::QObject;

  bool allows(ProFeature feature) const override { return !check_ || check_(feature); }
  // By the feature's name; a name that is no feature needs no licence.
  Q_INVOKABLE bool allows(const QString& feature) const;
  bool isPro() const;
  // Whether the feature is allowed. If it is not, the user who asked for it is told what the licence would give.
  bool permits(ProFeature feature) const;

  // Replaces the check; an empty one allows everything. Runs `onBecamePro` when features were denied before and none is
  // now.
  void setCheck(Check check);

  // Explains what the licence would give. Assigned by the program.
  std::function<void()> showUpsell;
  std::function<void()> onBecamePro;

 Q_SIGNALS:
  void changed();

 private:
  Check check_;
};

}  // namespace ambrel
