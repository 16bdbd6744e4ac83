#include "core/base/JSON.h"
#include "tests/Matchers.h"
#include "tests/core/disk/Tree.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

const std::string now = "2026-06-01T00:00:00Z";

class DiskCommand : public testing::Test {
 protected:
  DiskCommand() {
    tree.fill("home/Downloads/old.zip", 200'000);
    tree.fill("home/Downloads/new.zip", 100'000);
    tree.fill("home/.npm/_cacache/a/b", 300'000);
    tree.fill("home/notes/tiny", 10);
    tree.date("home/Downloads/old.zip", test::daysBefore(test::someDay, 40));
    tree.date("home/Downloads/new.zip", test::daysBefore(test::someDay, 4));
  }
  CommandResult run(std::vector<std::string> more, const std::string& path) {
    std::vector<std::string> words{"disk", path, "--home", tree / "home", "--now", now, "--min-item-size", "50000"};
    words.insert(words.end(), more.begin(), more.end());
    return runCommand(words, {"LC_ALL=en_US.UTF-8"});
  }
  JSON json(std::vector<std::string> more = {}) {
    more.push_back("--json");
    return parseJSON(printed(run(more, tree / "home"))).value_or(JSON());
  }
  test::Tree tree;
};

TEST_F(DiskCommand, PrintsTreeAndFindingsAsJSON) {
  const JSON document = json();
  const JSON& root = document["root"];
  EXPECT_EQ(root["path"], tree / "home");
  EXPECT_EQ(root["kind"], "folder");
  EXPECT_EQ(root["fileCount"], 4);
  EXPECT_FALSE(root.contains("accessed"));
  ASSERT_EQ(root["children"].size(), 3u);
  EXPECT_EQ(root["children"][2]["kind"], "smallItems");
  EXPECT_EQ(root["children"][2]["children"], JSON::array());
  // Two levels below the root.
  EXPECT_TRUE(root["children"][0]["children"][0].contains("name"));
  EXPECT_EQ(document["skipped"], JSON::array());
  ASSERT_EQ(document["findings"].size(), 2u);
  EXPECT_EQ(document["findings"][0]["rule"], "developerCaches");
  const JSON& item = document["findings"][1]["items"][0];
  EXPECT_EQ(item, (JSON{{"path", tree / "home/Downloads/old.zip"},
                        {"title", "old.zip"},
                        {"bytes", test::Tree::allocated(tree / "home/Downloads/old.zip")},
                        {"modified", "2026-04-22T00:00:00Z"},
                        {"contentsOnly", false},
                        {"keeping", JSON::array()}}));
  EXPECT_EQ(document["headline"], "Mostly Developer junk and Old downloads");
  EXPECT_THAT(document["summary"].get<std::string>(), StartsWith("home uses "));
}

TEST_F(DiskCommand, TakesDepthAndThresholdsAndChangesNothing) {
  const auto listing = [&] {
    std::set<std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.path())) all.insert(entry.path());
    return all;
  };
  const auto before = listing();
  const JSON document = json({"--depth", "0", "--set", "installerDays=3", "--set", "duplicateMinBytes=1"});
  EXPECT_FALSE(document["root"].contains("children"));
  EXPECT_EQ(document["root"]["fileCount"], 4);
  EXPECT_EQ(document["findings"][1]["items"].size(), 2u);
  EXPECT_THAT(document["findings"][1]["reason"].get<std::string>(), HasSubstr("more than 3 days ago"));
  EXPECT_EQ(listing(), before);
}

TEST_F(DiskCommand, SpeaksToPeople) {
  EXPECT_THAT(printed(run({}, tree / "home")),
              AllOf(HasSubstr("Old installers in Downloads 1 item"), HasSubstr("  Downloads\n"),
                    HasSubstr("Buddy found "), Not(HasSubstr("\x1b"))));
}

TEST_F(DiskCommand, SaysWhatCannotBeDone) {
  const auto missing = run({}, tree / "missing");
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.error, HasSubstr("cannot read " + (tree / "missing") + ": No such file or directory"));
  EXPECT_EQ(run({}, tree.write("file", "x")).status, 1);
  for (const char* bad : {"installerDays", "installerDays=soon", "nothing=1", "hashWindow=1.5", "largeFileDays=nan"})
    EXPECT_EQ(run({"--set", bad}, tree / "home").status, 2) << bad;
  for (const char* bad : {"-1", "x"}) EXPECT_EQ(run({"--depth", bad}, tree / "home").status, 2) << bad;
  EXPECT_EQ(runCommand({"disk"}).status, 2);
}

}  // namespace
}  // namespace ambrel
