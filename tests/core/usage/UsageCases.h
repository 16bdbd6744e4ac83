#pragma once
// Single log lines from the data folder, and lines made up on the spot.

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <string>

#include "core/base/Files.h"
#include "core/usage.h"
#include "tests/Time.h"

namespace ambrel {

// Without the newline at its end.
inline std::string usageCase(const std::string& name) {
  auto bytes = readFile(std::filesystem::path(AMBREL_CASES) / "usage" / name);
  if (!bytes) throw std::runtime_error("no test data: " + name);
  if (bytes->ends_with('\n')) bytes->pop_back();
  return std::move(*bytes);
}

// A reply in a log, with its newline.
inline std::string replyLine(std::string_view date, std::int64_t tokens, std::string_view content = "") {
  return fmt::format(
      R"({{"type":"assistant","message":{{"content":"{}","usage":{{"output_tokens":{}}}}},"timestamp":"{}"}})"
      "\n",
      content, tokens, date);
}

}  // namespace ambrel
