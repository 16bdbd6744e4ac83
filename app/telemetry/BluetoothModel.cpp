#include "app/telemetry/BluetoothModel.h"

#include "app/telemetry/TelemetryTexts.h"

namespace ambrel {

BluetoothModel::BluetoothModel(Bluetooth& bluetooth, Calendar calendar, QObject* parent)
    : QObject(parent), bluetooth_(bluetooth), calendar_(std::move(calendar)) {
  update();
}

BluetoothModel::~BluetoothModel() { setListening(false); }

void BluetoothModel::setListening(bool listens) {
  if (listens == isListening_) return;
  isListening_ = listens;
  bluetooth_.setChangeHandler(listens ? [this] { update(); } : std::function<void()>());
  if (listens) update();
}

void BluetoothModel::setOn(bool isOn) {
  if (hasAdapter_ && isOn != isOn_) bluetooth_.setOn(isOn);
}

void BluetoothModel::update() {
  const auto reading = bluetooth_.reading();
  hasAdapter_ = reading.has_value();
  isOn_ = reading && reading->isOn;
  text_.set(bluetoothTile(calendar_, reading));
  devices_.set(bluetoothRows(calendar_, reading ? reading->devices : std::vector<BluetoothDevice>{}));
  Q_EMIT changed();
}

}  // namespace ambrel
