#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

using testing::MatchesRegex;

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

  EXPECT_EQ(tool({"jsonFormatter"}, "[1,]"),
            (CommandResult{1, "", "tilebayctl: Line 1, column 4: a comma comes before the ]\n"}));
  EXPECT_THAT(tool({"hsah"}, "").error, HasSubstr("did you mean 'hash'?"));
  EXPECT_THAT(tool({"hash", "--with", "sha265"}, "").error, HasSubstr("did you mean 'sha256'?"));
  EXPECT_EQ(tool({"password", "--length", "3"}, "").status, 2);
}

TEST(ToolCommand, WorksOutExpressionsAndEnds) {
  const TemporaryFolder folder;
  const auto calculate = [&](const std::string& expression, const char* locale = "en_US.UTF-8") {
    folder.write("input", expression);
    return runCommand({"tool", "calculator"}, {std::string("LC_ALL=") + locale, "HOME=" + folder.path().string()},
                      (folder / "input").string());
  };
  for (const auto& [expression, value] :
       std::initializer_list<std::pair<const char*, const char*>>{{"0.1 + 0.2", "0.3"},
                                                                  {"1,234 + 1", "1235"},
                                                                  {"max(1,200)", "200"},
                                                                  {"18 % of 50", "9"},
                                                                  {"5 mi to km", "8.04672 km"},
                                                                  {"(-40) °C to °F", "−40 °F"},
                                                                  {"123456789 * 987654321", "121932631112635269"}})
    EXPECT_EQ(calculate(expression).out, value + std::string("\n")) << expression;
  EXPECT_EQ(calculate("1.234,5 * 2", "de_DE.UTF-8").out, "2469\n");
  EXPECT_EQ(calculate("1 / 8", "de_DE.UTF-8").out, "0,125\n");

  // What cannot be read, has no value, takes too long or too much, or would reach beyond the expression.
  folder.write("secret", "1");
  for (const std::string& expression :
       {std::string("2 +"), std::string("1/0"), std::string("nonsense"), std::string("1e9!"),
        std::string("identity(100000)"), std::string(3000, '9'), std::string("\xFF"), std::string("command(\"id\")"),
        "load(\"" + (folder / "secret").string() + "\")", "export(1; \"" + (folder / "written").string() + "\")"}) {
    const CommandResult result = calculate(expression);
    EXPECT_EQ(result, (CommandResult{1, "", result.error})) << expression;
    EXPECT_THAT(result.error, MatchesRegex("tilebayctl: [^\n]+\n")) << expression;
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "written"));
}

}  // namespace
}  // namespace ambrel
