#include <array>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <regex>

#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(DoctorCommand, SaysWhatIsMissingInAHomeWithoutADesktop) {
  TemporaryFolder home;
  const std::vector<std::string> environment{"HOME=" + home.path().string(), "DBUS_SESSION_BUS_ADDRESS=disabled:"};
  const auto result = runCommand({"doctor", "--json"}, environment);
  EXPECT_EQ(result.status, 0) << result.error;
  const auto rows = parseJSON(result.out);
  ASSERT_TRUE(rows && rows->is_array());
  std::map<std::string, JSON> byName;
  for (const JSON& row : *rows) byName[row.at("what")] = row;
  EXPECT_EQ(byName["Session"].at("state"), "missing");
  EXPECT_EQ(byName["Session bus"].at("state"), "missing");
  EXPECT_TRUE(byName["Tray"].contains("advice"));
  EXPECT_FALSE(byName["Tilebay"].contains("advice"));
  EXPECT_THAT(runCommand({"doctor"}, environment).out,
              AllOf(HasSubstr("\nWhat can be done:\n"), HasSubstr("\n  Tray: ")));
}

// What bash offers behind these words, by the real shell.
std::string offered(const std::string& program, const std::string& words) {
  const std::string script = std::string("source <('") + AMBREL_TILEBAYCTL + "' completions bash " + program +
                             "); COMP_WORDS=(" + program + " " + words + "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _" +
                             program + "; echo ${COMPREPLY[@]}";
  const std::string command = "bash -c '" + std::regex_replace(script, std::regex("'"), "'\\''") + "'";
  FILE* shell = popen(command.c_str(), "r");
  if (!shell) throw std::runtime_error("no shell");
  std::string out;
  std::array<char, 4096> part{};
  while (const std::size_t count = fread(part.data(), 1, part.size(), shell)) out.append(part.data(), count);
  pclose(shell);
  return out;
}

TEST(Completions, OfferWhatMayFollow) {
  EXPECT_THAT(offered("tilebayctl", "''"),
              AllOf(HasSubstr("agents"), HasSubstr("doctor"), Not(HasSubstr("completions"))));
  EXPECT_EQ(offered("tilebayctl", "--json agents --w"), "--watch\n");
  EXPECT_EQ(offered("tilebayctl", "settings set dockE"), "dockEdge\n");
  EXPECT_EQ(offered("tilebayctl", "agents connect c"), "claudeCode codex\n");
  EXPECT_EQ(offered("tilebay", "--custom"), "--customize\n");
}

}  // namespace
}  // namespace ambrel
