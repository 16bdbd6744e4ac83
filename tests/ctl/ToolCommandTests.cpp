#include <gmock/gmock.h>

#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

using testing::HasSubstr;

TEST(ToolCommand, WorksFromStandardInputToStandardOutput) {
  const TemporaryFolder folder;
  const auto tool = [&](std::vector<std::string> arguments, const std::string& input) {
    folder.write("input", input);
    arguments.insert(arguments.begin(), "tool");
    return runCommand(arguments, {"LC_ALL=en_US.UTF-8", "HOME=" + folder.path().string()}, (folder / "input").string());
  };
  EXPECT_EQ(tool({"caseConverter", "--to", "snake"}, "userName\n").out, "user_name\n");
  // Bytes stay what they are: the final newline counts, and none is added to what is no text.
  EXPECT_EQ(tool({"base64"}, "\xFF\n").out, "/wo=\n");
  EXPECT_EQ(tool({"base64", "--to", "decode"}, "/wo=\n").out, "\xFF\n");
  EXPECT_EQ(tool({"password", "--length", "7", "--with", "digits"}, "").out.size(), 8u);
  EXPECT_EQ(tool({"hash", "--with", "md5", "--json"}, "").out.substr(0, 15), "{\"choice\":\"md5\"");

  const CommandResult fault = tool({"jsonFormatter"}, "[1,]");
  EXPECT_EQ(fault.status, 1);
  EXPECT_EQ(fault.out, "");
  EXPECT_EQ(fault.error, "tilebayctl: Line 1, column 4: a comma comes before the ]\n");
  EXPECT_THAT(tool({"hsah"}, "").error, HasSubstr("did you mean 'hash'?"));
  EXPECT_THAT(tool({"hash", "--with", "sha265"}, "").error, HasSubstr("did you mean 'sha256'?"));
  EXPECT_EQ(tool({"password", "--length", "3"}, "").status, 2);
}

}  // namespace
}  // namespace ambrel
