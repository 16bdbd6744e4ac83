#pragma once
// The one question that the rest of the program asks about the licence.

#include "core/widgets.h"

namespace ambrel {

class FeatureGate {
 public:
  virtual ~FeatureGate() = default;
  virtual bool allows(ProFeature feature) const = 0;
};

}  // namespace ambrel
