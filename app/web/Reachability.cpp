#include "app/web/Reachability.h"

#include <QNetworkInformation>

namespace ambrel {

Reachability::Reachability(QObject* parent) : QObject(parent) {
  // The other backend brings GLib's objects, and a thread of theirs, into the program: 3.5 MB.
  if (!QNetworkInformation::loadBackendByName(u"networkmanager") &&
      !QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability))
    return;
  connect(QNetworkInformation::instance(), &QNetworkInformation::reachabilityChanged, this, &Reachability::update);
  update();
}

void Reachability::update() {
  const auto reach = QNetworkInformation::instance()->reachability();
  const bool isOnline = reach != QNetworkInformation::Reachability::Disconnected;
  if (isOnline == isOnline_) return;
  isOnline_ = isOnline;
  Q_EMIT changed(isOnline_);
}

}  // namespace ambrel
