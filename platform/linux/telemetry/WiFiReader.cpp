#include "platform/linux/telemetry/WiFiReader.h"

#include <algorithm>
#include <linux/genetlink.h>
#include <linux/nl80211.h>

#include "core/base/Text.h"
#include "core/telemetry/KernelTexts.h"
#include "platform/linux/telemetry/SmallFiles.h"

namespace ambrel {
namespace {

using netlink::append;
using netlink::Attribute;
using netlink::attributes;
using netlink::find;

// A signed byte of dBm; anything else than a negative one is unknown.
std::optional<int> decibels(const Attribute* attribute) {
  const auto byte = attribute ? attribute->u8() : std::nullopt;
  if (!byte) return std::nullopt;
  const int value = static_cast<std::int8_t>(*byte);
  return value < 0 ? std::optional(value) : std::nullopt;
}

// Kilobits come in hundreds; newer kernels tell them in 32 bits.
double megabits(const Attribute* rate) {
  if (!rate) return 0;
  const auto parts = attributes(rate->bytes);
  if (const Attribute* wide = find(parts, NL80211_RATE_INFO_BITRATE32)) return wide->u32().value_or(0) / 10.0;
  const Attribute* narrow = find(parts, NL80211_RATE_INFO_BITRATE);
  return narrow ? narrow->u16().value_or(0) / 10.0 : 0;
}

// The name among the elements that a network announces itself with: number, length, bytes.
std::optional<std::string> nameAmong(std::string_view elements) {
  while (elements.size() >= 2) {
    const auto number = static_cast<std::uint8_t>(elements[0]), length = static_cast<std::uint8_t>(elements[1]);
    if (elements.size() < 2u + length) break;
    if (number == 0) return std::string(elements.substr(2, length));
    elements.remove_prefix(2u + length);
  }
  return std::nullopt;
}

// A hidden network's name is empty or all NUL.
std::optional<std::string> shownName(std::optional<std::string> name) {
  if (!name || name->find_first_not_of('\0') == std::string::npos) return std::nullopt;
  return repairedUTF8(*name);
}

}  // namespace

bool WiFiReader::hasHardware() const {
  if (!namesIn(root_ / "sys/class/ieee80211").empty()) return true;
  const auto interfaces = root_ / "sys/class/net";
  return std::ranges::any_of(namesIn(interfaces), [&](const std::string& name) {
    return isThere(interfaces / name / "phy80211") || isThere(interfaces / name / "wireless");
  });
}

bool WiFiReader::isOn() const {
  const auto switches = root_ / "sys/class/rfkill";
  bool hasSwitch = false;
  for (const std::string& name : namesIn(switches, "rfkill")) {
    if (readWord(switches / name / "type") != "wlan") continue;
    hasSwitch = true;
    if (readWord(switches / name / "soft") != "1" && readWord(switches / name / "hard") != "1") return true;
  }
  return !hasSwitch;
}

std::optional<std::vector<netlink::Reply>> WiFiReader::ask(std::uint8_t command,
                                                           std::optional<std::uint32_t> interface) {
  if (!family_) {
    netlink::Request question{.family = GENL_ID_CTRL, .command = CTRL_CMD_GETFAMILY};
    append(question.attributes, CTRL_ATTR_FAMILY_NAME, std::string_view(NL80211_GENL_NAME, sizeof NL80211_GENL_NAME));
    const auto answer = exchange_(question);
    if (!answer || answer->empty()) return std::nullopt;
    const auto parts = attributes(answer->front().attributes);
    const Attribute* id = find(parts, CTRL_ATTR_FAMILY_ID);
    family_ = id ? id->u16() : std::nullopt;
    if (!family_) return std::nullopt;
  }
  netlink::Request request{.family = *family_, .command = command, .isDump = true};
  if (interface) append(request.attributes, NL80211_ATTR_IFINDEX, *interface);
  return exchange_(request);
}

void WiFiReader::readStation(std::uint32_t interface, WiFiReading& reading) {
  const auto stations = ask(NL80211_CMD_GET_STATION, interface);
  // A client has one: the access point that it is connected to.
  if (!stations || stations->empty()) return;
  const auto parts = attributes(stations->front().attributes);
  const Attribute* info = find(parts, NL80211_ATTR_STA_INFO);
  if (!info) return;
  const auto figures = attributes(info->bytes);
  auto signal = decibels(find(figures, NL80211_STA_INFO_SIGNAL_AVG));
  if (!signal) signal = decibels(find(figures, NL80211_STA_INFO_SIGNAL));
  reading.rssi = signal.value_or(0);
  reading.megabitsPerSecond = megabits(find(figures, NL80211_STA_INFO_TX_BITRATE));
}

std::optional<int> WiFiReader::noiseOf(std::uint32_t interface) {
  const auto channels = ask(NL80211_CMD_GET_SURVEY, interface);
  if (!channels) return std::nullopt;
  for (const netlink::Reply& channel : *channels) {
    const auto parts = attributes(channel.attributes);
    const Attribute* info = find(parts, NL80211_ATTR_SURVEY_INFO);
    if (!info) continue;
    const auto figures = attributes(info->bytes);
    if (find(figures, NL80211_SURVEY_INFO_IN_USE)) return decibels(find(figures, NL80211_SURVEY_INFO_NOISE));
  }
  return std::nullopt;
}

// From the last scan; for kernels that do not tell it with the interface.
std::optional<std::string> WiFiReader::networkOf(std::uint32_t interface) {
  const auto networks = ask(NL80211_CMD_GET_SCAN, interface);
  if (!networks) return std::nullopt;
  for (const netlink::Reply& network : *networks) {
    const auto parts = attributes(network.attributes);
    const Attribute* bss = find(parts, NL80211_ATTR_BSS);
    if (!bss) continue;
    const auto figures = attributes(bss->bytes);
    const Attribute* status = find(figures, NL80211_BSS_STATUS);
    const Attribute* elements = find(figures, NL80211_BSS_INFORMATION_ELEMENTS);
    if (status && elements && status->u32() == NL80211_BSS_STATUS_ASSOCIATED) return nameAmong(elements->bytes);
  }
  return std::nullopt;
}

bool WiFiReader::readConnection(WiFiReading& reading) {
  const auto interfaces = ask(NL80211_CMD_GET_INTERFACE);
  if (!interfaces) return false;
  for (const netlink::Reply& interface : *interfaces) {
    const auto parts = attributes(interface.attributes);
    const Attribute *type = find(parts, NL80211_ATTR_IFTYPE), *index = find(parts, NL80211_ATTR_IFINDEX);
    if (!type || type->u32() != NL80211_IFTYPE_STATION || !index || !index->u32()) continue;
    WiFiReading connection{.isOn = true};
    readStation(*index->u32(), connection);
    // With several adapters the stronger connection counts.
    if (!connection.isConnected() || (reading.isConnected() && connection.rssi <= reading.rssi)) continue;
    const Attribute* name = find(parts, NL80211_ATTR_SSID);
    connection.networkName = shownName(name ? std::optional(std::string(name->bytes)) : networkOf(*index->u32()));
    connection.noise = noiseOf(*index->u32());
    reading = connection;
  }
  return true;
}

std::optional<WiFiReading> WiFiReader::read() {
  if (!hasHardware()) return std::nullopt;
  WiFiReading reading{.isOn = isOn()};
  if (!reading.isOn || readConnection(reading)) return reading;
  for (const WirelessLine& line : parseWireless(readText(root_ / "proc/net/wireless").value_or(""))) {
    if (reading.isConnected() && line.signal <= reading.rssi) continue;
    reading.rssi = line.signal;
    reading.noise = line.noise;
  }
  return reading;
}

}  // namespace ambrel
