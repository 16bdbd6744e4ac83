#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

using testing::AllOf;
using testing::HasSubstr;

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

}  // namespace
}  // namespace ambrel
