#include <gmock/gmock.h>

#include "tests/TemporaryFolder.h"
#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

const Instant noon = at("2026-11-21T12:00:00Z");
const CodexUsage::Window session{37.5, 300, at("2026-11-21T11:15:00Z")};
const CodexUsage::Window week{12, 10080, at("2026-11-26T00:00:00Z")};
const Instant asOf = at("2026-11-21T09:12:00.5Z");

TEST(CodexUsage, ReadsTheLimitsOfATokenCount) {
  const auto parsed = [](const std::string& name) {
    LineParser parser;
    const std::string line = usageCase("codex/" + name + ".json");
    return CodexUsage::parseLine(parser.parse(line).value());
  };
  const std::pair<const char*, CodexUsage::Limits> rows[] = {
      {"both", {session, week, asOf}},
      {"no-info", {session, week, asOf}},
      {"week-alone", {week, std::nullopt, asOf}},
      {"half-a-week", {session, std::nullopt, asOf}},
      {"fractions", {{0, 300, at("2026-11-21T11:15:00.25Z")}, std::nullopt, asOf}}};
  for (const auto& [name, limits] : rows) EXPECT_EQ(parsed(name), limits) << name;
  for (const char* name :
       {"relative-reset", "text-percent", "no-limits", "no-date", "response-item", "other-event", "flat"})
    EXPECT_EQ(parsed(name), std::nullopt) << name;
}

class CodexUsageLatest : public testing::Test {
 protected:
  static std::string entry(int percent) {
    return fmt::format(
        R"({{"timestamp":"2026-11-21T09:12:00.500Z","type":"event_msg","payload":{{"type":"token_count",)"
        R"("rate_limits":{{"primary":{{"used_percent":{},"window_minutes":300,"resets_at":1795259700}}}}}}}})"
        "\n",
        percent);
  }
  static std::string path(std::string_view name) { return ".codex/sessions/2026/11/" + std::string(name); }
  std::optional<double> latest() {
    const auto once = CodexUsage::latest(home.path(), noon);
    const auto limits = reader.latest(home.path(), noon);
    EXPECT_EQ(once, limits);
    return limits ? std::optional(limits->session.usedPercent) : std::nullopt;
  }

  TemporaryFolder home;
  CodexUsage::Reader reader;
};

TEST_F(CodexUsageLatest, IsTheLastEntryOfTheNewestFileThatHasOne) {
  EXPECT_EQ(latest(), std::nullopt);
  home.write(path("20/a.jsonl"), entry(10), advanced(noon, Seconds(-500)));
  home.write(path("21/b.jsonl"), entry(20) + entry(30) + "{\"type\":\"event_msg\"}\n" + entry(40).substr(0, 60),
             advanced(noon, Seconds(-400)));
  home.write(path("21/c.jsonl"), "{}\n", advanced(noon, Seconds(-300)));
  EXPECT_EQ(latest(), 30);
  home.write(path("20/a.jsonl"), entry(10) + entry(11), advanced(noon, Seconds(-200)));
  EXPECT_EQ(latest(), 11);
  std::filesystem::remove(home / path("20/a.jsonl"));
  EXPECT_EQ(latest(), 30);
}

TEST_F(CodexUsageLatest, LooksBackSevenDaysAndHalfAMebibyte) {
  home.write(path("14/a.jsonl"), entry(10), advanced(noon, Seconds(-604800)));
  EXPECT_EQ(latest(), std::nullopt);
  TemporaryFolder::setModified(home / path("14/a.jsonl"), advanced(noon, Seconds(-604799)));
  EXPECT_EQ(latest(), 10);
  const std::string rest = "{\"data\":\"" + std::string((512 << 10) - 12, 'x') + "\"}\n";
  home.write(path("21/b.jsonl"), entry(20) + rest, noon);
  EXPECT_EQ(latest(), 10);
  // One byte more than is read: the line that it is cut from does not count, the next one does.
  home.write(path("21/b.jsonl"), "{}\n" + entry(20) + rest.substr(0, 9) + rest.substr(11 + entry(20).size()), noon);
  EXPECT_EQ(latest(), 20);
}

TEST_F(CodexUsageLatest, OpensNoFileThatHasNotChanged) {
  home.write(path("21/a.jsonl"), entry(10), noon);
  EXPECT_EQ(reader.latest(home.path(), noon)->session.usedPercent, 10);
  home.write(path("21/a.jsonl"), entry(11), noon);
  EXPECT_EQ(reader.latest(home.path(), noon)->session.usedPercent, 10);
  TemporaryFolder::setModified(home / path("21/a.jsonl"), noon, 1);
  EXPECT_EQ(reader.latest(home.path(), noon)->session.usedPercent, 11);
}

}  // namespace
}  // namespace ambrel
