// Whatever the simulator tool prints, the rule about its runtimes lists none that is the newest of its platform.

#include <map>

#include "core/disk.h"
#include "fuzz/Require.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Calendar calendar("UTC", "en_US");
  static const DiskTree nothing = makeTree(DiskFolderBuilder("/nowhere", distantPast, 0).build(DiskItem::Kind::folder));
  const Instant now = *parseISO8601("2026-11-21T09:00:00Z");
  const auto runtimes = DiskAnalyzer::parseRuntimes({reinterpret_cast<const char*>(data), size});
  for (const SimulatorRuntime& a : runtimes)
    for (const SimulatorRuntime& b : runtimes) {
      const int order = compareNumerically(a.version, b.version), back = compareNumerically(b.version, a.version);
      require((order < 0) == (back > 0) && (order == 0) == (back == 0));
    }
  for (const DiskFinding& finding : DiskAnalyzer{}.analyze(*nothing, "/nowhere", runtimes, now, calendar)) {
    require(finding.rule == FindingRule::oldSimulatorRuntimes && finding.items.size() < runtimes.size());
    for (const CleanupItem& item : finding.items) require(item.bytes > 0 && !item.title.empty());
  }
  return 0;
}
