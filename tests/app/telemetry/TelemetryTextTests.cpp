#include <QTest>

#include "app/telemetry/TelemetryTexts.h"

namespace ambrel {
namespace {

const Calendar calendar("UTC", "en_US");

template <typename Value>
Sampled<Value> known(Value value) {
  return {std::move(value), false};
}
template <typename Value>
Sampled<Value> missing() {
  return {std::nullopt, true};
}

Sampled<PowerReading> battery(int percent, bool isOnAdapter = false) {
  return known(PowerReading{.isOnAdapter = isOnAdapter, .percent = percent, .minutesToEmpty = 19});
}

}  // namespace

// What the tiles and panels say of a reading.
class TelemetryTextTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void whatIsNotThereIsSaidAndWhatIsNotKnownIsMeasured() {
    for (const TileReading& tile :
         {gpuTile(calendar, missing<double>(), {}), wifiTile(calendar, missing<WiFiReading>()),
          thermalTile(calendar, missing<ThermalReading>()), batteryTile(calendar, missing<PowerReading>()),
          batteryHealthTile(calendar, known(BatteryHealthReading{})), volumeTile(calendar, {}), microphoneTile({}),
          bluetoothTile(calendar, {}), displayTile({})}) {
      QVERIFY(!tile.message.isEmpty() && !tile.shortMessage.isEmpty() && tile.value.isEmpty());
      QCOMPARE(tile.spokenText(), tile.message);
    }
    QCOMPARE(gpuTile(calendar, {}, {}).spokenText(), QStringLiteral("–, Measuring…"));
    QCOMPARE(networkTile(calendar, {}, {}).spokenText(), QStringLiteral("measuring"));
    QCOMPARE(wifiTile(calendar, known(WiFiReading{.isOn = true})).message, QStringLiteral("Not connected"));
  }

  void aLowBatteryIsLoudUnlessItIsOnItsAdapter() {
    QCOMPARE(batteryTile(calendar, battery(20)).level, 0);
    QCOMPARE(batteryTile(calendar, battery(19)).level, 1);
    QCOMPARE(batteryTile(calendar, battery(9)).level, 2);
    QCOMPARE(batteryTile(calendar, battery(9, true)).level, 0);
    QCOMPARE(batteryTile(calendar, battery(7)).spokenText(), QStringLiteral("7 %, 0:19 left"));
    QCOMPARE(powerTile(calendar, battery(7)).value, QStringLiteral("Battery"));
  }

  void aWornBatterySaysSoInPlaceOfItsCapacity() {
    const BatteryHealth good{.cycleCount = 312, .maximumCapacity = 91};
    BatteryHealth worn = good;
    worn.condition = BatteryCondition::serviceRecommended;
    QCOMPARE(batteryHealthTile(calendar, known(BatteryHealthReading{good})).spokenText(),
             QStringLiteral("91 %, Battery · Normal"));
    const TileReading tile = batteryHealthTile(calendar, known(BatteryHealthReading{worn}));
    QCOMPARE(tile.message + u'|' + tile.shortMessage, QStringLiteral("Service recommended|91 %"));
    QCOMPARE(tile.level, 1);
  }

  void aHotComputerSaysThatItSlowsDown() {
    const auto tile = [](ThermalLevel level) {
      return thermalTile(calendar, known(ThermalReading{.level = level, .celsius = 96.4}));
    };
    QCOMPARE(tile(ThermalLevel::fair).spokenText(), QStringLiteral("96 °C, Normal"));
    QCOMPARE(tile(ThermalLevel::serious).message, QStringLiteral("Slowing down to cool"));
    QCOMPARE(tile(ThermalLevel::critical).level, 2);
  }

  void theLatencyHasTheUnitThatFits() {
    const auto tile = [](std::optional<double> last, std::deque<LatencyCheck> history = {}) {
      history.push_back({last});
      return latencyTile(calendar, known(LatencyCheck{last}), history);
    };
    QCOMPARE(tile(0.38).figure(), QStringLiteral("0.4 ms"));
    QCOMPARE(tile(999.4).figure(), QStringLiteral("999 ms"));
    QCOMPARE(tile(1234.5, {{1234.5}}).spokenText(), QStringLiteral("1.2 s, avg 1.2"));
    QCOMPARE(tile(3000, {{100.0}}).subLine, QStringLiteral("avg 1.6"));
    QCOMPARE(tile({}, {{100.0}}).message, QStringLiteral("No answer"));
    QCOMPARE(tile(40, {{std::nullopt}}).tip, QStringLiteral("1 of 2 without an answer"));
    QCOMPARE(latencyRows(calendar, {{23.4}, {std::nullopt}}).back().figure, QStringLiteral("1 of 2"));
  }

  void namesFromOthersTakeOneLine() {
    const std::vector<VolumeInfo> drives{{.url = "a", .name = "Long\nname\tfor a  stick", .isRemote = true}};
    const TileReading tile = volumesTile(calendar, known(drives), {});
    QCOMPARE(tile.value + u'|' + tile.subLine, QStringLiteral("Long name for a stick|Network folder"));
    QVERIFY2(!tile.percent && !volumeRows(calendar, drives, {}).front().hasAction, "there is nothing to eject");
    QCOMPARE(refusal({.outcome = EjectOutcome::failed, .reason = "it\nis locked"}), QStringLiteral("it is locked"));
  }

  void theUptimeSaysSinceWhen() {
    const Instant now = parseISO8601("2026-11-21T12:00:00Z").value();
    const auto since = [&](double hours) { return uptimeTile(calendar, Seconds(hours * 3600), now).spokenText(); };
    QCOMPARE(since(0.5), QStringLiteral("30 min, since 11:30\u202fAM"));
    QCOMPARE(since(77), QStringLiteral("3 d 5 h, since Wed 7:00\u202fAM"));
    QCOMPARE(since(24 * 20), QStringLiteral("20 d 0 h, since Nov 1"));
  }

  void aSilentOutputLooksMuted() {
    QCOMPARE(volumeTile(calendar, SoundLevel{.volume = 0.64}).symbol, QStringLiteral("speaker.wave.2"));
    QCOMPARE(volumeTile(calendar, SoundLevel{.volume = 0.004}).symbol, QStringLiteral("speaker.slash"));
    const TileReading muted = volumeTile(calendar, SoundLevel{.volume = 1.5, .isMuted = true});
    QCOMPARE(muted.value + u'|' + muted.tip, QStringLiteral("Muted|Muted, 150 %"));
    QCOMPARE(*muted.percent, 100.0);
    QVERIFY(!muted.isOn);
  }

  void aLongAddressMayBreakInASmallTile() {
    const TileReading tile = addressTile(known(std::vector<NetworkAddress>{{.interface = "eth0", .text = "10.0.0.7"}}));
    QCOMPARE(tile.value, QStringLiteral("10.0.0.7"));
    QCOMPARE(tile.shortMessage, QStringLiteral("10.\u200b0.\u200b0.\u200b7"));
  }

  void aQuietNetworkIsDrawnLow() {
    const TileReading tile = networkTile(calendar, NetworkRates{1'200'000, 3'000}, {{500, 0}, {1'200'000, 3'000}});
    QCOMPARE(tile.spokenText(), QStringLiteral("up 3 KB/s, down 1.2 MB/s"));
    QCOMPARE(tile.ceiling, 1'200'000.0);
    QCOMPARE(networkTile(calendar, NetworkRates{}, {NetworkRates{}}).ceiling, 10'000.0);
  }
};

}  // namespace ambrel

QTEST_APPLESS_MAIN(ambrel::TelemetryTextTests)
#include "TelemetryTextTests.moc"
