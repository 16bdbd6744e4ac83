#pragma once
// The Bluetooth adapter and the devices that are connected to it.

#include "app/telemetry/LiveFace.h"
#include "core/base/Calendar.h"
#include "platform/Bluetooth.h"

namespace ambrel {

class BluetoothModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // Shows what there is on the face, which outlives it.
  BluetoothModel(Bluetooth& bluetooth, Calendar calendar, LiveFace& face, QObject* parent = nullptr);
  ~BluetoothModel() override;

  // The service is listened to while this is wanted.
  void setListening(bool listens);
  Q_INVOKABLE void setOn(bool isOn);

 private:
  void update();

  Bluetooth& bluetooth_;
  Calendar calendar_;
  LiveFace& face_;
  bool isListening_ = false;
};

}  // namespace ambrel
