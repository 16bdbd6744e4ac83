#pragma once
// The Bluetooth adapter and the devices that are connected to it.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/telemetry/LiveRows.h"
#include "app/telemetry/LiveText.h"
#include "core/base/Calendar.h"
#include "platform/Bluetooth.h"

namespace ambrel {

class BluetoothModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::LiveText* text READ text CONSTANT FINAL)
  Q_PROPERTY(ambrel::LiveRows* devices READ devices CONSTANT FINAL)
  Q_PROPERTY(bool hasAdapter READ hasAdapter NOTIFY changed FINAL)
  Q_PROPERTY(bool isOn READ isOn WRITE setOn NOTIFY changed FINAL)

 public:
  BluetoothModel(Bluetooth& bluetooth, Calendar calendar, QObject* parent = nullptr);
  ~BluetoothModel() override;

  // The service is listened to while this is wanted.
  void setListening(bool listens);

  LiveText* text() { return &text_; }
  LiveRows* devices() { return &devices_; }
  bool hasAdapter() const { return hasAdapter_; }
  bool isOn() const { return isOn_; }
  void setOn(bool isOn);

 Q_SIGNALS:
  void changed();

 private:
  void update();

  Bluetooth& bluetooth_;
  Calendar calendar_;
  LiveText text_;
  LiveRows devices_;
  bool hasAdapter_ = false, isOn_ = false;
  bool isListening_ = false;
};

}  // namespace ambrel
