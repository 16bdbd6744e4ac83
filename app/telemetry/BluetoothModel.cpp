#include "app/telemetry/BluetoothModel.h"

#include "app/telemetry/TelemetryTexts.h"

namespace ambrel {

BluetoothModel::BluetoothModel(Bluetooth& bluetooth, Calendar calendar, LiveFace& face, QObject* parent)
    : QObject(parent), bluetooth_(bluetooth), calendar_(std::move(calendar)), face_(face) {
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
  const TileReading& shown = face_.reading();
  if (!shown.isMissing && isOn != shown.isOn) bluetooth_.setOn(isOn);
}

void BluetoothModel::update() {
  const auto reading = bluetooth_.reading();
  face_.set(bluetoothTile(calendar_, reading));
  face_.setRows(bluetoothRows(calendar_, reading ? reading->devices : std::vector<BluetoothDevice>{}));
}

}  // namespace ambrel
