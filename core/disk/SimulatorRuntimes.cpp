#include <fmt/format.h>

#include "core/base/JSON.h"
#include "core/disk/DiskAnalyzer.h"

namespace ambrel {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The run of digits at the front, without leading zeros; it is taken off.
std::string_view takeNumber(std::string_view& text) {
  std::size_t length = 0;
  while (length < text.size() && isDigit(text[length])) ++length;
  std::string_view number = text.substr(0, length);
  text.remove_prefix(length);
  while (number.size() > 1 && number.front() == '0') number.remove_prefix(1);
  return number;
}

}  // namespace

int compareNumerically(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    if (isDigit(a.front()) && isDigit(b.front())) {
      const std::string_view x = takeNumber(a), y = takeNumber(b);
      if (x.size() != y.size()) return x.size() < y.size() ? -1 : 1;
      if (const int order = x.compare(y); order != 0) return order;
      continue;
    }
    if (a.front() != b.front())
      return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front()) ? -1 : 1;
    a.remove_prefix(1);
    b.remove_prefix(1);
  }
  if (a.empty() && b.empty()) return 0;
  return a.empty() ? -1 : 1;
}

std::vector<SimulatorRuntime> DiskAnalyzer::parseRuntimes(std::string_view text) {
  std::vector<SimulatorRuntime> runtimes;
  const auto document = parseJSON(text);
  if (!document || !document->is_object()) return runtimes;
  for (const JSON& record : *document) {
    auto identifier = stringField(record, "identifier");
    auto version = stringField(record, "version");
    if (!identifier || !version) continue;
    const auto lastUsed = stringField(record, "lastUsedAt");
    auto path = stringField(record, "runtimeBundlePath");
    if (!path) path = stringField(record, "path");
    runtimes.push_back({.identifier = std::move(*identifier),
                        .platform = stringField(record, "platformIdentifier").value_or(""),
                        .version = std::move(*version),
                        .bytes = integerField(record, "sizeBytes").value_or(0),
                        .lastUsed = lastUsed ? parseISO8601(*lastUsed) : std::nullopt,
                        .isDeletable = boolField(record, "deletable").value_or(false),
                        .path = path.value_or("")});
  }
  return runtimes;
}

}  // namespace ambrel
