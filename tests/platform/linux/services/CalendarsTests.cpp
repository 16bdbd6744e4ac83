#include "platform/linux/services/EvolutionCalendars.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

const QString factoryName = "org.gnome.evolution.dataserver.Calendar8";
const QString sourceInterface = "org.gnome.evolution.dataserver.Source";

QVariantMap sourceOf(const char* id, const char* data) { return {{"UID", id}, {"Data", data}}; }

class CalendarsOnBus : public BusTest {
 protected:
  void play() override {
    registry_ = service("org.gnome.evolution.dataserver.Sources5");
    const auto add = [this](const char* path, const QVariantMap& source) {
      registry_->objects[QDBusObjectPath("/org/gnome/evolution/dataserver/SourceManager/" + QString(path))] = {
          {sourceInterface, source}};
    };
    add("a", sourceOf("account",
                      "[Data Source]\nDisplayName=Account\nEnabled=false\n[Collection]\nIdentity=me@example.org\n"));
    add("b", sourceOf("personal",
                      "[Data Source]\nDisplayName[de]=Eigene\nDisplayName=Personal\n[Calendar]\nBackendName=local\n"));
    add("c", sourceOf("tasks", "[Data Source]\nDisplayName=Tasks\n[Task List]\nSelected=false\n"));
    add("d", sourceOf("remote", "[Data Source]\nDisplayName=Remote\nParent=account\n[Calendar]\n"));
    factory_ = service(qPrintable(factoryName));
    // The account cannot be reached at first.
    factory_->answer = [this](const QDBusMessage& call) {
      if (call.member() == QLatin1String("Open") && !std::exchange(isReachable_, true))
        return call.createErrorReply(QDBusError::NoReply, {});
      if (call.member() == QLatin1String("OpenCalendar")) return call.createReply({"/calendar", factoryName});
      if (call.member() == QLatin1String("Open"))
        return call.createReply(QVariant(QStringList{"cal-email-address", "'Other@Example.org'"}));
      if (call.member() == QLatin1String("GetView"))
        return call.createReply(QVariant::fromValue(QDBusObjectPath("/view")));
      if (call.member() == QLatin1String("GetObjectList")) return call.createReply(QVariant(components_));
      return call.createReply();
    };
    calendars_ =
        std::make_unique<EvolutionCalendars>(bus_.connection(), EvolutionCalendars::Pace{.burst = {}, .rest = {}});
  }

  std::unique_ptr<FakeService> registry_, factory_;
  QStringList components_{"BEGIN:VEVENT\r\nUID:1\r\nEND:VEVENT\r\n"};
  bool isReachable_ = false;
  std::unique_ptr<EvolutionCalendars> calendars_;
  int changes_ = 0;
};

TEST_F(CalendarsOnBus, TellsOfThoseThatAreSwitchedOnAndOfTheirChanges) {
  EXPECT_TRUE(calendars_->calendars().empty());
  calendars_->setChangeHandler([this] { ++changes_; });
  ASSERT_TRUE(happens([this] { return changes_ > 0; }));
  ASSERT_EQ(calendars_->calendars().size(), 1U);
  const ServedCalendar first = calendars_->calendars()[0];
  EXPECT_EQ(first.name, "Personal");
  EXPECT_EQ(*first.text, components_[0].toStdString() + "\n");
  EXPECT_EQ(calendars_->ownAddresses(), (std::set<std::string>{"me@example.org", "other@example.org"}));
  ASSERT_TRUE(happens([this] { return factory_->members().back() == "Start"; }));

  components_ << "BEGIN:VEVENT\r\nUID:2\r\nEND:VEVENT\r\n";
  factory_->send("/view", "org.gnome.evolution.dataserver.CalendarView", "ObjectsAdded", {components_});
  ASSERT_TRUE(happens([this] { return changes_ > 1; }));
  EXPECT_NE(calendars_->calendars()[0].version, first.version);

  registry_->set("/org/gnome/evolution/dataserver/SourceManager/b", sourceInterface, "Data",
                 "[Data Source]\nEnabled=false\n[Calendar]\n");
  ASSERT_TRUE(happens([this] { return changes_ > 2; }));
  EXPECT_TRUE(calendars_->calendars().empty());
}

}  // namespace
}  // namespace ambrel
