#include <vector>

#include "core/workspace/Wish.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

CommandLine parse(std::vector<std::string> arguments) { return parseCommandLine(arguments); }

TEST(CommandLine, EachOptionIsItsWish) {
  const std::vector<std::pair<std::vector<std::string>, Wish>> cases{
      {{"--reveal"}, wish::Reveal{}},
      {{"--toggle-clipboard"}, wish::ToggleClipboard{}},
      {{"--toggle-agents"}, wish::ToggleAgents{}},
      {{"--toggle-assistant"}, wish::ToggleAssistant{}},
      {{"--capture-notes"}, wish::CaptureNotes{}},
      {{"--copy-pinned", "3"}, wish::CopyPinned{3}},
      {{"--copy-pinned=9"}, wish::CopyPinned{9}},
      {{"--ask", "what is new?"}, wish::Ask{"what is new?"}},
      {{"--ask=a=b"}, wish::Ask{"a=b"}},
      {{"--ask", "--reveal"}, wish::Ask{"--reveal"}},
      {{"--ask", "caf\xe9"}, wish::Ask{"caf\uFFFD"}},
      {{"--open-disk-doctor"}, wish::OpenDiskDoctor{}},
      {{"--settings"}, wish::Settings{}},
      {{"--customize"}, wish::Customize{}},
      {{"--quit"}, wish::Quit{}},
  };
  for (const auto& [arguments, expected] : cases) {
    const CommandLine line = parse(arguments);
    EXPECT_EQ(line.error, "") << arguments.front();
    EXPECT_EQ(line.wish, expected) << arguments.front();
    EXPECT_THAT(commandLineHelp(), HasSubstr(arguments.front().substr(0, arguments.front().find('='))));
  }
}

TEST(CommandLine, MistakesAreNamed) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
      {{"--revael"}, "unknown option \"--revael\""},
      {{"reveal"}, "unknown argument \"reveal\""},
      {{""}, "unknown argument \"\""},
      {{"--reveal=now"}, "--reveal takes no value"},
      {{"--copy-pinned"}, "--copy-pinned needs a number"},
      {{"--copy-pinned", "0"}, "not \"0\""},
      {{"--copy-pinned", "10"}, "not \"10\""},
      {{"--copy-pinned="}, "not \"\""},
      {{"--ask"}, "--ask needs a text"},
      {{"--ask", "  "}, "--ask needs a text"},
      {{"--reveal", "--quit"}, "--quit comes second"},
      {{"--json"}, "--json needs --doctor"},
  };
  for (const auto& [arguments, expected] : cases) {
    const CommandLine line = parse(arguments);
    EXPECT_THAT(line.error, HasSubstr(expected));
    EXPECT_FALSE(line.wish) << expected;
  }
  EXPECT_EQ(parse({}), CommandLine{});
  EXPECT_TRUE(parse({"--help"}).showsHelp && parse({"-h"}).showsHelp && parse({"--version"}).showsVersion);
}

}  // namespace
}  // namespace ambrel
