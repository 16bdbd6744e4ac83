#include "platform/linux/services/BlueZBluetooth.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

const QString adapterPath = "/org/bluez/hci0";
const QString headset = "/org/bluez/hci0/dev_AA";
const QString mouse = "/org/bluez/hci0/dev_BB";

class BluetoothOnBus : public BusTest {
 protected:
  void play() override {
    bluez_ = service("org.bluez");
    bluez_->objects = {
        {QDBusObjectPath("/org/bluez"), {{"org.bluez.AgentManager1", {}}}},
        {QDBusObjectPath(adapterPath), {{"org.bluez.Adapter1", {{"Powered", true}}}}},
        {QDBusObjectPath(headset),
         {{"org.bluez.Device1", {{"Connected", true}, {"Alias", "WH-1000"}, {"Icon", "audio-headset"}}},
          {"org.bluez.Battery1", {{"Percentage", QVariant::fromValue(uchar(70))}}}}},
        {QDBusObjectPath(mouse), {{"org.bluez.Device1", {{"Connected", false}, {"Alias", "arc mouse"}}}}}};
    connection_.emplace(bus_.connection());
    bluetooth_ = std::make_unique<BlueZBluetooth>(*connection_, std::chrono::milliseconds(0));
  }
  void listen() {
    bluetooth_->setChangeHandler([this] { ++changes_; });
  }
  // Until the next change.
  bool changes() {
    const int before = changes_;
    return happens([&] { return changes_ > before; });
  }

  // Everything that was sent until now has been heard and answered.
  void allIsHeard() {
    for (int i = 0; i < 3; ++i) {
      connection_->interface()->isServiceRegistered("org.bluez");
      QCoreApplication::processEvents();
    }
  }

  std::unique_ptr<FakeService> bluez_;
  std::optional<QDBusConnection> connection_;
  std::unique_ptr<BlueZBluetooth> bluetooth_;
  int changes_ = 0;
};

const BluetoothDevice wh{headset.toStdString(), "WH-1000", "audio-headset", 70};

TEST_F(BluetoothOnBus, AsksOnlyWhileSomebodyListens) {
  EXPECT_EQ(bluetooth_->reading(), std::nullopt);
  EXPECT_TRUE(bluez_->calls.empty());
  listen();
  ASSERT_TRUE(changes());
  EXPECT_EQ(bluetooth_->reading(), (BluetoothReading{true, {wh}}));
  const auto asked = bluez_->calls.size();
  bluez_->set(mouse, "org.bluez.Device1", "RSSI", QVariant::fromValue(short(-40)));
  allIsHeard();
  EXPECT_EQ(bluez_->calls.size(), asked) << "a signal's strength is no news";
  bluetooth_->setChangeHandler(nullptr);
  EXPECT_EQ(bluetooth_->reading(), std::nullopt);
  bluez_->set(headset, "org.bluez.Battery1", "Percentage", QVariant::fromValue(uchar(5)));
  allIsHeard();
  EXPECT_EQ(bluez_->calls.size(), asked);
}

TEST_F(BluetoothOnBus, FollowsDevicesAndTheirBatteries) {
  listen();
  ASSERT_TRUE(changes());
  bluez_->set(headset, "org.bluez.Battery1", "Percentage", QVariant::fromValue(uchar(69)));
  ASSERT_TRUE(changes());
  EXPECT_EQ(bluetooth_->reading()->devices.front().batteryPercent, 69);
  bluez_->set(mouse, "org.bluez.Device1", "Connected", true);
  ASSERT_TRUE(changes());
  ASSERT_EQ(bluetooth_->reading()->devices.size(), 2u);
  EXPECT_EQ(bluetooth_->reading()->devices[0], (BluetoothDevice{mouse.toStdString(), "arc mouse", "", std::nullopt}));
  bluez_->objects.remove(QDBusObjectPath(headset));
  bluez_->announce("InterfacesRemoved",
                   {QVariant::fromValue(QDBusObjectPath(headset)), QStringList{"org.bluez.Device1"}});
  ASSERT_TRUE(changes());
  EXPECT_EQ(bluetooth_->reading()->devices.size(), 1u);
}

TEST_F(BluetoothOnBus, TheAdapterIsSwitched) {
  bluez_->answer = [this](const QDBusMessage& message) {
    bluez_->set(message.path(), message.arguments()[0].toString(), message.arguments()[1].toString(),
                message.arguments()[2].value<QDBusVariant>().variant());
    return message.createReply();
  };
  listen();
  ASSERT_TRUE(changes());
  bluetooth_->setOn(false);
  ASSERT_TRUE(changes());
  EXPECT_EQ(bluetooth_->reading(), BluetoothReading{.isOn = false});
  bluetooth_->setOn(true);
  ASSERT_TRUE(changes());
  EXPECT_EQ(bluetooth_->reading(), (BluetoothReading{true, {wh}}));
  bluez_->answer = [](const QDBusMessage& message) {
    return message.createErrorReply("org.bluez.Error.Blocked", "Blocked through rfkill");
  };
  bluetooth_->setOn(false);
  ASSERT_TRUE(changes()) << "a refusal is told";
  EXPECT_TRUE(bluetooth_->reading()->isOn);
}

TEST_F(BluetoothOnBus, TheServiceComesAndGoes) {
  bluez_->stop();
  listen();
  allIsHeard();
  EXPECT_EQ(bluetooth_->reading(), std::nullopt);
  bluez_->start();
  ASSERT_TRUE(changes());
  EXPECT_TRUE(bluetooth_->reading());
  bluez_->stop();
  ASSERT_TRUE(changes());
  EXPECT_EQ(bluetooth_->reading(), std::nullopt);
}

TEST(Bluetooth, WithoutABusOrAnAdapterIsAbsent) {
  BlueZBluetooth bluetooth(QDBusConnection("none"));
  bluetooth.setChangeHandler([] { FAIL(); });
  bluetooth.setOn(true);
  QCoreApplication::processEvents();
  EXPECT_EQ(bluetooth.reading(), std::nullopt);
  EXPECT_EQ(bluetoothReading({{QDBusObjectPath(headset), {{"org.bluez.Device1", {{"Connected", true}}}}}}),
            std::nullopt);
}

}  // namespace
}  // namespace ambrel
