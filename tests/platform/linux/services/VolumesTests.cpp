#include <QDBusMetaType>
#include <gmock/gmock.h>

#include "platform/linux/services/UDisksVolumes.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

const QString root = QStringLiteral("/org/freedesktop/UDisks2");
const QString stick = root + QStringLiteral("/drives/Stick");
const QString blockInterface = QStringLiteral("org.freedesktop.UDisks2.Block");
const QString fileSystem = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
const QString encrypted = QStringLiteral("org.freedesktop.UDisks2.Encrypted");
const QString driveInterface = QStringLiteral("org.freedesktop.UDisks2.Drive");

QString device(const char* name) { return root + QStringLiteral("/block_devices/") + QString::fromLatin1(name); }
QVariant path(const QString& text) { return QVariant::fromValue(QDBusObjectPath(text)); }
QVariant paths(const QList<QByteArray>& list) {
  QList<QByteArray> terminated;
  for (const QByteArray& entry : list) terminated << entry + '\0';
  return QVariant::fromValue(terminated);
}

// A stick with two volumes, one of them encrypted and opened, beside the computer's own drive.
ManagedObjects someDrives() {
  const auto block = [](const QString& drive, const QString& backing = QStringLiteral("/")) {
    return QVariantMap{{QStringLiteral("Drive"), path(drive)}, {QStringLiteral("CryptoBackingDevice"), path(backing)}};
  };
  const auto mounted = [](const QList<QByteArray>& list) {
    return QVariantMap{{QStringLiteral("MountPoints"), paths(list)}};
  };
  return {
      {QDBusObjectPath(stick),
       {{driveInterface, {{QStringLiteral("Ejectable"), true}, {QStringLiteral("CanPowerOff"), true}}}}},
      {QDBusObjectPath(root + QStringLiteral("/drives/Own")),
       {{driveInterface, {{QStringLiteral("Ejectable"), false}}}}},
      {QDBusObjectPath(device("sda1")),
       {{blockInterface, block(root + QStringLiteral("/drives/Own"))}, {fileSystem, mounted({"/"})}}},
      {QDBusObjectPath(device("sdb")), {{blockInterface, block(stick)}}},
      {QDBusObjectPath(device("sdb1")), {{blockInterface, block(stick)}, {fileSystem, mounted({"/media/a/MY STICK"})}}},
      {QDBusObjectPath(device("sdb2")),
       {{blockInterface, block(stick)}, {encrypted, {{QStringLiteral("CleartextDevice"), path(device("dm_2d0"))}}}}},
      {QDBusObjectPath(device("dm_2d0")),
       {{blockInterface, block(QStringLiteral("/"), device("sdb2"))},
        {fileSystem, mounted({"/media/a/secret", "/mnt/secret"})}}}};
}

TEST(EjectSteps, LetGoOfTheWholeDrive) {
  const std::vector<EjectStep> expected{{device("dm_2d0"), fileSystem, QStringLiteral("Unmount"), false},
                                        {device("dm_2d0"), fileSystem, QStringLiteral("Unmount"), false},
                                        {device("sdb1"), fileSystem, QStringLiteral("Unmount"), false},
                                        {device("sdb2"), encrypted, QStringLiteral("Lock"), false},
                                        {stick, driveInterface, QStringLiteral("Eject"), true},
                                        {stick, driveInterface, QStringLiteral("PowerOff"), true}};
  EXPECT_EQ(ejectSteps(someDrives(), "/media/a/MY STICK"), expected);
  EXPECT_EQ(ejectSteps(someDrives(), "/mnt/secret"), expected);
  EXPECT_EQ(ejectSteps(someDrives(), "/media/a"), std::nullopt);
  EXPECT_EQ(ejectSteps({}, "/"), std::nullopt);
}

TEST(EjectSteps, ACardReaderKeepsItsPowerAndADiscHasToComeOut) {
  ManagedObjects objects = someDrives();
  QVariantMap& drive = objects[QDBusObjectPath(stick)][driveInterface];
  drive[QStringLiteral("MediaCompatibility")] = QStringList{QStringLiteral("flash_sd")};
  EXPECT_EQ(ejectSteps(objects, "/mnt/secret")->back().method, QStringLiteral("Eject"));
  drive[QStringLiteral("MediaCompatibility")] = QStringList{QStringLiteral("optical_cd")};
  drive[QStringLiteral("Optical")] = true;
  EXPECT_EQ(ejectSteps(objects, "/mnt/secret")->back(),
            (EjectStep{stick, driveInterface, QStringLiteral("Eject"), false}));
}

class VolumesOnBus : public BusTest {
 protected:
  void SetUp() override {
    BusTest::SetUp();
    if (IsSkipped()) return;
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
                 ? message.createErrorReply(QString::fromLatin1(error), QStringLiteral("its own words"))
                 : message.createReply();
    };
  }

  std::unique_ptr<FakeService> udisks_;
};

TEST_F(VolumesOnBus, ADriveIsEjectedInOrder) {
  EXPECT_EQ(eject("file:///media/a/MY%20STICK"), (EjectResult{EjectOutcome::ejected, ""}));
  std::vector<std::string> members;
  for (const QString& member : udisks_->members()) members.push_back(member.toStdString());
  EXPECT_THAT(members,
              testing::ElementsAre("GetManagedObjects", "Unmount", "Unmount", "Unmount", "Lock", "Eject", "PowerOff"));
}

TEST_F(VolumesOnBus, ABusyVolumeStopsIt) {
  refuses("Unmount", "org.freedesktop.UDisks2.Error.DeviceBusy");
  EXPECT_EQ(eject("file:///media/a/MY%20STICK"), (EjectResult{EjectOutcome::busy, "its own words"}));
  EXPECT_EQ(udisks_->calls.size(), 2u) << "nothing is powered down under it";
}

TEST_F(VolumesOnBus, WhatIsUnmountedMayBeUnpluggedAllTheSame) {
  refuses("PowerOff", "org.freedesktop.UDisks2.Error.NotAuthorized");
  EXPECT_EQ(eject("file:///media/a/MY%20STICK").outcome, EjectOutcome::ejected);
}

TEST_F(VolumesOnBus, ErrorsHaveTheirMeaning) {
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
  UDisksVolumes volumes(QDBusConnection(QStringLiteral("none")));
  std::optional<EjectResult> told;
  volumes.eject("file:///media/a/x", [&](const EjectResult& result) { told = result; });
  QCoreApplication::processEvents();
  ASSERT_TRUE(told);
  EXPECT_EQ(told->outcome, EjectOutcome::failed);
  EXPECT_NE(told->reason, "");
}

}  // namespace
}  // namespace ambrel
