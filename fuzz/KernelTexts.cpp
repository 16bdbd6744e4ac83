// The kernel's texts hold names that others choose: of processes, of volumes, of batteries.

#include "core/telemetry/KernelTexts.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/base/Text.h"
#include "core/telemetry/PowerSupplies.h"
#include "core/telemetry/ThermalSensors.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace ambrel;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto process = parseProcessTimes(text)) wholeName(process->name, text);
  for (const Mount& mount : externalMounts(parseMountinfo(text)))
    if (!isValidUTF8(volumeName(mount))) __builtin_trap();
  if (const auto supply = parsePowerSupply(text, "Battery", "")) {
    const PowerReading reading = powerReading({*supply, *supply});
    if (reading.percent && (*reading.percent < 0 || *reading.percent > 100)) __builtin_trap();
    PowerText::stateLine(reading);
    const auto health = batteryHealth({*supply}).health;
    if (health && health->maximumCapacity && (*health->maximumCapacity < 0 || *health->maximumCapacity > 100))
      __builtin_trap();
  }
  pressureReading(parseMeminfo(text).value_or(MemoryReading{}), parsePressure(text));
  parseProcStat(text);
  parseNetDev(text);
  parseDiskstats(text);
  defaultInterface(text, text);
  parseWireless(text);
  parseMillidegrees(text);
  return 0;
}
