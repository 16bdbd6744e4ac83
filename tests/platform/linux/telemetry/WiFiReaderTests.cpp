#include <linux/genetlink.h>
#include <linux/nl80211.h>

#include "tests/platform/linux/telemetry/TelemetryFixture.h"

namespace ambrel {
namespace {

using netlink::append;
using netlink::Reply;
using Replies = std::optional<std::vector<Reply>>;

std::string byte(int value) { return std::string(1, static_cast<char>(value)); }

template <typename... Attributes>
std::string parts(Attributes... list) {
  std::string bytes;
  (append(bytes, list.first, list.second), ...);
  return bytes;
}
using Text = std::pair<std::uint16_t, std::string>;
using Number = std::pair<std::uint16_t, std::uint32_t>;

// The kernel's wireless interface with one connected adapter, 3, and what the test changes of it.
struct Wireless {
  static constexpr std::uint16_t family = 28;

  Replies answer(const netlink::Request& request) {
    if (request.family == GENL_ID_CTRL)
      return std::vector{Reply{1, parts(Text{CTRL_ATTR_FAMILY_NAME, "nl80211"},
                                        Text{CTRL_ATTR_FAMILY_ID, std::string{static_cast<char>(family), 0}})}};
    if (request.family != family || !request.isDump) return std::nullopt;
    switch (request.command) {
      case NL80211_CMD_GET_INTERFACE:
        return interfaces;
      case NL80211_CMD_GET_STATION:
        return stations;
      case NL80211_CMD_GET_SURVEY:
        return survey;
      case NL80211_CMD_GET_SCAN:
        ++scans;
        return scan;
    }
    return std::nullopt;
  }

  Replies interfaces = {
      {Reply{7, parts(Number{NL80211_ATTR_IFINDEX, 9}, Number{NL80211_ATTR_IFTYPE, NL80211_IFTYPE_AP})},
       Reply{7, parts(Number{NL80211_ATTR_IFINDEX, 3}, Number{NL80211_ATTR_IFTYPE, NL80211_IFTYPE_STATION},
                      Text{NL80211_ATTR_SSID, "Caf\xc3\xa9"})}}};
  Replies stations = {{Reply{
      19, parts(Text{NL80211_ATTR_STA_INFO,
                     parts(Text{NL80211_STA_INFO_SIGNAL, byte(-60)}, Text{NL80211_STA_INFO_SIGNAL_AVG, byte(-58)},
                           Text{NL80211_STA_INFO_TX_BITRATE, parts(Text{NL80211_RATE_INFO_BITRATE, "\x10\x01"},
                                                                   Number{NL80211_RATE_INFO_BITRATE32, 8667})})})}}};
  Replies survey = {
      {Reply{50, parts(Text{NL80211_ATTR_SURVEY_INFO, parts(Text{NL80211_SURVEY_INFO_NOISE, byte(-80)})})},
       Reply{50, parts(Text{NL80211_ATTR_SURVEY_INFO, parts(Text{NL80211_SURVEY_INFO_IN_USE, ""},
                                                            Text{NL80211_SURVEY_INFO_NOISE, byte(-95)})})}}};
  Replies scan;
  int scans = 0;
};

class WiFi : public testing::Test {
 protected:
  WiFi() {
    machine_.answer = [this](const netlink::Request& request) { return wireless_.answer(request); };
  }
  std::optional<WiFiReading> read() { return machine_.telemetry.wifi(); }

  Wireless wireless_;
  Machine machine_{"laptop"};
};

const WiFiReading connected{.isOn = true, .rssi = -58, .noise = -95, .networkName = "Café", .megabitsPerSecond = 866.7};

TEST_F(WiFi, TellsTheConnection) {
  EXPECT_EQ(read(), connected);
  EXPECT_EQ(wireless_.scans, 0);
  wireless_.interfaces = {
      {Reply{7, parts(Number{NL80211_ATTR_IFINDEX, 3}, Number{NL80211_ATTR_IFTYPE, NL80211_IFTYPE_STATION},
                      Text{NL80211_ATTR_SSID, "a\xff"})}}};
  EXPECT_EQ(read()->networkName, "a\xef\xbf\xbd") << "a name may be any bytes";
}

TEST_F(WiFi, TakesTheNameFromTheLastScanWhereTheKernelKeepsItBack) {
  wireless_.interfaces = {
      {Reply{7, parts(Number{NL80211_ATTR_IFINDEX, 3}, Number{NL80211_ATTR_IFTYPE, NL80211_IFTYPE_STATION})}}};
  const auto network = [](std::string elements, std::uint32_t status) {
    return Reply{34, parts(Text{NL80211_ATTR_BSS, parts(Text{NL80211_BSS_INFORMATION_ELEMENTS, std::move(elements)},
                                                        Number{NL80211_BSS_STATUS, status})})};
  };
  const std::string rates("\x01\x02\x82\x84", 4);
  const std::string name("\0\x04", 2);
  wireless_.scan = {
      {Reply{34, parts(Text{NL80211_ATTR_BSS, parts(Text{NL80211_BSS_INFORMATION_ELEMENTS, name + "Next"})})},
       network(rates + name + "Home", NL80211_BSS_STATUS_ASSOCIATED)}};
  EXPECT_EQ(read()->networkName, "Home");
  wireless_.scan = {{network(std::string("\0\0", 2), NL80211_BSS_STATUS_ASSOCIATED)}};
  EXPECT_EQ(read()->networkName, std::nullopt) << "hidden";
  wireless_.scan = {{network(std::string("\0\x20", 2) + "cut", NL80211_BSS_STATUS_ASSOCIATED)}};
  EXPECT_EQ(read()->networkName, std::nullopt) << "damaged";
  EXPECT_EQ(read()->rssi, -58);
}

TEST_F(WiFi, WithoutAConnectionIsOn) {
  wireless_.stations = std::vector<Reply>();
  EXPECT_EQ(read(), WiFiReading{.isOn = true});
  wireless_.stations = std::nullopt;
  EXPECT_EQ(read(), WiFiReading{.isOn = true});
  machine_.tree.write("sys/class/rfkill/rfkill1/hard", "1\n");
  machine_.answer = [](const netlink::Request&) -> Replies {
    return ADD_FAILURE() << "switched off it is not asked", std::nullopt;
  };
  EXPECT_EQ(read(), WiFiReading{.isOn = false});
}

TEST_F(WiFi, DriversThatTellLessGiveLess) {
  wireless_.survey = std::nullopt;
  wireless_.stations = {{Reply{
      19, parts(Text{NL80211_ATTR_STA_INFO,
                     parts(Text{NL80211_STA_INFO_SIGNAL, byte(-60)},
                           Text{NL80211_STA_INFO_TX_BITRATE, parts(Text{NL80211_RATE_INFO_BITRATE, "\x1c\x02"})})})}}};
  EXPECT_EQ(read(), (WiFiReading{.isOn = true, .rssi = -60, .networkName = "Café", .megabitsPerSecond = 54}));
}

TEST_F(WiFi, ComesAndGoesWithItsHardware) {
  machine_.tree.remove("sys/class/ieee80211");
  EXPECT_EQ(read(), connected) << "the interface still says so";
  machine_.tree.remove("sys/class/net/wlp4s0");
  EXPECT_EQ(read(), std::nullopt);
}

}  // namespace
}  // namespace ambrel
