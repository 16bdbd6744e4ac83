// Settings of any bytes: what is JSON is taken, keeps its meaning through installing and removing, and is printed in a
// form that prints as itself.

#include <string>
#include <string_view>

#include "core/base/JSON.h"
#include "core/usage/ClaudeStatusLine.h"

using namespace ambrel;

namespace {

void expect(bool holds) {
  if (!holds) __builtin_trap();
}

std::optional<ForeignJSON> parsed(std::string_view text) {
  try {
    return ForeignJSON::parse(text);
  } catch (const DecodingError&) {
    return std::nullopt;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto settings = parsed(bytes);
  const auto other = parseJSON(bytes);
  // The other parser takes a byte-order mark, and ends at a NUL.
  const bool isOdd = bytes.starts_with("\xEF\xBB\xBF") || bytes.find('\0') != bytes.npos;
  expect(settings || !other || isOdd);
  if (!settings) return 0;

  const std::string printed = settings->pretty();
  expect(ForeignJSON::parse(printed).pretty() == printed);
  if (other) expect(parseJSON(printed) == other);
  if (!settings->isObject()) return 0;

  const std::filesystem::path script = "/data/claude-statusline.sh";
  const auto installed = ClaudeStatusLine::install(*settings, script);
  expect(ClaudeStatusLine::isConnected(installed.settings, script));
  const ForeignJSON removed = ClaudeStatusLine::remove(installed.settings, script, installed.earlierCommand);
  expect(!ClaudeStatusLine::isConnected(removed, script));
  ForeignJSON before = *settings, after = removed;
  before.remove("statusLine");
  after.remove("statusLine");
  expect(before == after);
  return 0;
}
