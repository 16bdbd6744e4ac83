#include "app/model/LicenseManager.h"

#include <algorithm>

namespace ambrel {

bool LicenseManager::allows(const QString& feature) const {
  const auto known = fromName<ProFeature>(feature.toStdString());
  return !known || allows(*known);
}

bool LicenseManager::isPro() const {
  constexpr auto features = allCases<ProFeature>();
  return std::ranges::all_of(features, [this](ProFeature feature) { return allows(feature); });
}

bool LicenseManager::permits(ProFeature feature) const {
  const bool isAllowed = allows(feature);
  if (!isAllowed && showUpsell) showUpsell();
  return isAllowed;
}

void LicenseManager::setCheck(Check check) {
  const bool wasPro = isPro();
  check_ = std::move(check);
  Q_EMIT changed();
  if (!wasPro && isPro() && onBecamePro) onBecamePro();
}

}  // namespace ambrel
