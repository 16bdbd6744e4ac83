#include <QDBusMetaType>

#include "platform/linux/services/UDisksVolumes.h"
#include "tests/Matchers.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

const QString root = "/org/freedesktop/UDisks2";
const QString stick = root + "/drives/Stick";
const QString blockInterface = "org.freedesktop.UDisks2.Block";
const QString fileSystem = "org.freedesktop.UDisks2.Filesystem";
const QString encrypted = "org.freedesktop.UDisks2.Encrypted";
const QString driveInterface = "org.freedesktop.UDisks2.Drive";

QString device(const char* name) { return root + "/block_devices/" + QString::fromLatin1(name); }
QVariant path(const QString& text) { return QVariant::fromValue(QDBusObjectPath(text)); }
QVariant paths(const QList<QByteArray>& list) {
  QList<QByteArray> terminated;
  for (const QByteArray& entry : list) terminated << entry + '\0';
  return QVariant::fromValue(terminated);
}

// A stick with two volumes, one of them encrypted and opened, beside the computer's own drive.
ManagedObjects someDrives() {
  const auto block = [](const QString& drive, const QString& backing = "/") {
    return QVariantMap{{"Drive", path(drive)}, {"CryptoBackingDevice", path(backing)}};
  };
  const auto mounted = [](const QList<QByteArray>& list) { return QVariantMap{{"MountPoints", paths(list)}}; };
  return {
      {QDBusObjectPath(stick), {{driveInterface, {{"Ejectable", true}, {"CanPowerOff", true}}}}},
      {QDBusObjectPath(root + "/drives/Own"), {{driveInterface, {{"Ejectable", false}}}}},
      {QDBusObjectPath(device("sda1")), {{blockInterface, block(root + "/drives/Own")}, {fileSystem, mounted({"/"})}}},
      {QDBusObjectPath(device("sdb")), {{blockInterface, block(stick)}}},
      {QDBusObjectPath(device("sdb1")), {{blockInterface, block(stick)}, {fileSystem, mounted({"/media/a/MY STICK"})}}},
      {QDBusObjectPath(device("sdb2")),
       {{blockInterface, block(stick)}, {encrypted, {{"CleartextDevice", path(device("dm_2d0"))}}}}},
      {QDBusObjectPath(device("dm_2d0")),
       {{blockInterface, block("/", device("sdb2"))}, {fileSystem, mounted({"/media/a/secret", "/mnt/secret"})}}}};
}

TEST(EjectSteps, LetGoOfTheWholeDrive) {
  const std::vector<EjectStep> expected{
      {device("dm_2d0"), fileSystem, "Unmount", false}, {device("dm_2d0"), fileSystem, "Unmount", false},
      {device("sdb1"), fileSystem, "Unmount", false},   {device("sdb2"), encrypted, "Lock", false},
      {stick, driveInterface, "Eject", true},           {stick, driveInterface, "PowerOff", true}};
  EXPECT_EQ(ejectSteps(someDrives(), "/media/a/MY STICK"), expected);
  EXPECT_EQ(ejectSteps(someDrives(), "/mnt/secret"), expected);
  EXPECT_EQ(ejectSteps(someDrives(), "/media/a"), std::nullopt);
  EXPECT_EQ(ejectSteps({}, "/"), std::nullopt);
}

TEST(EjectSteps, ACardReaderKeepsItsPowerAndADiscHasToComeOut) {
  ManagedObjects objects = someDrives();
  QVariantMap& drive = objects[QDBusObjectPath(stick)][driveInterface];
  drive["MediaCompatibility"] = QStringList{"flash_sd"};
  EXPECT_EQ(ejectSteps(objects, "/mnt/secret")->back().method, "Eject");
  drive["MediaCompatibility"] = QStringList{"optical_cd"};
  drive["Optical"] = true;
  EXPECT_EQ(ejectSteps(objects, "/mnt/secret")->back(), (EjectStep{stick, driveInterface, "Eject", false}));
}

class VolumesOnBus : public BusTest {
 protected:
  void play() override {
    qDBusRegisterMetaType<QList<QByteArray>>();
    udisks_ = service("org.freedesktop.UDisks2");
    udisks_->objects = someDrives();
    udisks_->answer = [](const QDBusMessage& message) { return message.createReply(); };
  }
  EjectResult eject(const char* url) {
    UDisksVolumes volumes(bus_.connection());
    std::optional<EjectResult> told;
    volumes.eject(url, [&](const EjectResult& result) { told = result; });
    EXPECT_FALSE(told) << "later";
    EXPECT_TRUE(happens([&] { return told.has_value(); }));
    return told.value_or(EjectResult{});
  }
  // Plays a refusal of that step.
  void refuses(const char* member, const char* error) {
    udisks_->answer = [=](const QDBusMessage& message) {
      return message.member() == QLatin1String(member)
                 ? message.createErrorReply(QString::fromLatin1(error), "its own words")
                 : message.createReply();
    };
  }

  std::unique_ptr<FakeService> udisks_;
};

TEST_F(VolumesOnBus, ADriveIsEjectedInOrder) {
  EXPECT_EQ(eject("file:///media/a/MY%20STICK"), (EjectResult{EjectOutcome::ejected, ""}));
  std::vector<std::string> members;
  for (const QString& member : udisks_->members()) members.push_back(member.toStdString());
  EXPECT_THAT(members, ElementsAre("GetManagedObjects", "Unmount", "Unmount", "Unmount", "Lock", "Eject", "PowerOff"));
}

TEST_F(VolumesOnBus, ErrorsHaveTheirMeaning) {
  refuses("Unmount", "org.freedesktop.UDisks2.Error.DeviceBusy");
  EXPECT_EQ(eject("file:///media/a/MY%20STICK"), (EjectResult{EjectOutcome::busy, "its own words"}));
  EXPECT_EQ(udisks_->calls.size(), 2u) << "nothing is powered down under it";
  refuses("PowerOff", "org.freedesktop.UDisks2.Error.NotAuthorized");
  EXPECT_EQ(eject("file:///media/a/MY%20STICK").outcome, EjectOutcome::ejected) << "what is unmounted may be unplugged";
  const std::pair<const char*, EjectOutcome> cases[] = {
      {"org.freedesktop.UDisks2.Error.NotAuthorized", EjectOutcome::notPermitted},
      {"org.freedesktop.UDisks2.Error.NotAuthorizedDismissed", EjectOutcome::notPermitted},
      {"org.freedesktop.UDisks2.Error.Failed", EjectOutcome::failed}};
  for (const auto& [error, outcome] : cases) {
    refuses("Lock", error);
    EXPECT_EQ(eject("file:///media/a/MY%20STICK").outcome, outcome) << error;
  }
  EXPECT_EQ(eject("file:///mnt/nas").outcome, EjectOutcome::failed);
  EXPECT_EQ(eject("not a url").outcome, EjectOutcome::failed);
  udisks_->stop();
  EXPECT_EQ(eject("file:///media/a/MY%20STICK").outcome, EjectOutcome::failed);
}

TEST(Volumes, WithoutABusCannotBeEjected) {
  UDisksVolumes volumes(QDBusConnection("none"));
  std::optional<EjectResult> told;
  volumes.eject("file:///media/a/x", [&](const EjectResult& result) { told = result; });
  QCoreApplication::processEvents();
  ASSERT_TRUE(told);
  EXPECT_EQ(told->outcome, EjectOutcome::failed);
  EXPECT_NE(told->reason, "");
}

}  // namespace
}  // namespace ambrel
