#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

#include "core/base/Text.h"
#include "platform/linux/developer/GitReader.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using std::chrono::seconds;

// Repositories as Git itself makes them.
class GitReaderTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static const TemporaryFolder home;
    home.write(".gitconfig",
               "[user]\nname=U\nemail=u@example.org\n[init]\ndefaultBranch=main\n[protocol \"file\"]\nallow=always\n");
    for (const auto& [name, value] : {std::pair("HOME", home.path().string()),
                                      {"GIT_CONFIG_NOSYSTEM", "1"},
                                      {"XDG_CONFIG_HOME", (home / "none").string()}})
      setenv(name, value.c_str(), 1);
  }
  // In the folder below the test's own. A merge that stops with a conflict fails.
  bool run(const std::string& commands, const std::string& folder = "repo") {
    const std::string inFolder = "cd " + shellQuoted((root_ / folder).string()) + " && { " + commands + "; } >>" +
                                 shellQuoted((root_ / "log").string()) + " 2>&1";
    return std::system(inFolder.c_str()) == 0;
  }
  void makeRepository() {
    std::filesystem::create_directory(root_ / "repo");
    ASSERT_TRUE(
        run("git init && echo one >a && mkdir -p src/deep && echo two >src/deep/b && git add . && "
            "git commit -m first"));
  }
  ToolAnswer<GitReading> answer(const std::string& folder = "repo") {
    return readRepository(root_ / folder, seconds(60));
  }
  GitReading read(const std::string& folder = "repo") {
    auto found = answer(folder);
    EXPECT_TRUE(std::holds_alternative<GitReading>(found)) << folder;
    return std::holds_alternative<GitReading>(found) ? std::get<GitReading>(std::move(found)) : GitReading();
  }
  std::optional<ToolFailure::Reason> failure(const std::string& folder) {
    const auto found = answer(folder);
    const auto* failed = std::get_if<ToolFailure>(&found);
    return failed ? std::optional(failed->reason) : std::nullopt;
  }

  TemporaryFolder root_;
};

TEST_F(GitReaderTest, CountsWhatGitStatusCounts) {
  makeRepository();
  EXPECT_EQ(read().state.changes, GitState::Changes());
  ASSERT_TRUE(run("git clone . ../clone && git commit --allow-empty -m second"));
  ASSERT_TRUE(
      run("git fetch && git commit --allow-empty -m ours && git commit --allow-empty -m ours-too && "
          "echo kept >>a && git stash && echo new >c && git add c && echo changed >>a && mkdir x && "
          "echo 1 >x/1 && echo 2 >x/2 && echo '*.log' >.gitignore && echo . >noise.log && git rm -q src/deep/b",
          "clone"));
  const GitState state = read("clone/x").state;
  EXPECT_EQ(state.branch, "main");
  EXPECT_EQ(state.upstream, (GitState::Upstream{.name = "origin/main", .ahead = 2, .behind = 1}));
  EXPECT_EQ(state.changes, (GitState::Changes{.staged = 2, .changed = 1, .untracked = 2}));
  EXPECT_EQ(state.stashes, 1u);
  EXPECT_EQ(state.top, root_ / "clone");
}

TEST_F(GitReaderTest, SaysWhatIsUnderWay) {
  makeRepository();
  ASSERT_TRUE(
      run("git checkout -b side && echo side >a && git commit -am side && git commit --allow-empty -m more && "
          "git checkout main && echo main >a && git commit -am main"));
  EXPECT_FALSE(run("git merge side"));
  GitState state = read().state;
  EXPECT_EQ(state.operation, GitState::Operation::merge);
  EXPECT_EQ(state.changes, (GitState::Changes{.conflicts = 1}));
  EXPECT_FALSE(run("git merge --abort && git checkout side && git rebase --empty=keep main"));
  state = read().state;
  EXPECT_EQ(state.operation, GitState::Operation::rebase);
  EXPECT_EQ(state.branch, "side");
  EXPECT_EQ(state.step, 1);
  EXPECT_GE(state.steps, 1);
}

TEST_F(GitReaderTest, KnowsRepositoriesOfEveryShape) {
  makeRepository();
  ASSERT_TRUE(
      run("git worktree add ../tree -b feature/x && git clone --bare . ../bare.git && "
          "git submodule add ./ part && git commit -am part && git checkout --detach && mkdir ../empty && "
          "git init ../unborn && git branch gone && git -C ../tree branch -u gone && git branch -D gone"));
  EXPECT_EQ(read().state.branch, "") << "detached";
  EXPECT_EQ(read().state.commit.size(), 7u);
  ASSERT_TRUE(run("echo new >part/new", "repo"));
  EXPECT_EQ(read().state.changes, GitState::Changes()) << "what is changed within a submodule is its own";
  EXPECT_EQ(read("repo/part").state.changes->untracked, 1u);
  const GitReading tree = read("tree");
  EXPECT_EQ(tree.state.branch, "feature/x");
  EXPECT_EQ(tree.state.upstream, (GitState::Upstream{.name = "gone", .isGone = true}));
  const std::vector<WatchedFolder> watched{{root_ / "repo/.git/worktrees/tree"},
                                           {root_ / "repo/.git"},
                                           {root_ / "repo/.git/refs", 5},
                                           {root_ / "tree"},
                                           {root_ / "tree/src"},
                                           {root_ / "tree/src/deep"}};
  EXPECT_EQ(tree.folders, watched) << "a working tree's own HEAD, and the branches of all";
  EXPECT_TRUE(read("bare.git").state.isBare);
  EXPECT_FALSE(read("bare.git").state.changes);
  const GitState unborn = read("unborn").state;
  EXPECT_EQ(unborn.branch + unborn.commit, "main");
  EXPECT_EQ(failure("empty"), ToolFailure::Reason::missing);
  EXPECT_EQ(failure("nowhere"), ToolFailure::Reason::missing);
  ASSERT_TRUE(run("echo garbage >.git/index"));
  EXPECT_EQ(failure("repo"), ToolFailure::Reason::failed);
}

TEST_F(GitReaderTest, DoesNotTrustAnotherUsersRepository) {
  if (getuid() != 0) GTEST_SKIP() << "only root can give files away";
  makeRepository();
  ASSERT_TRUE(run("chown -R 12345 ."));
  EXPECT_EQ(failure("repo"), ToolFailure::Reason::noAccess);
}

TEST_F(GitReaderTest, RunsNothingThatARepositoryNames) {
  makeRepository();
  const std::string mark = shellQuoted((root_ / "ran").string());
  ASSERT_TRUE(run("printf '#!/bin/sh\\ntouch '" + shellQuoted(mark) +
                  "'\\ncat\\n' >../run && chmod +x ../run && "
                  "echo '* filter=evil' >.gitattributes && git add . && git commit -m filtered && "
                  "git config filter.evil.clean ../run && git config filter.evil.process ../run && "
                  "git config core.fsmonitor \"$PWD/../run\" && git config core.sshCommand ../run && "
                  "cp ../run .git/hooks/post-index-change && echo tow >src/deep/b && touch a"));
  EXPECT_EQ(read().state.changes->changed, 1u);
  EXPECT_FALSE(std::filesystem::exists(root_ / "ran"));
  run("git status");
  EXPECT_TRUE(std::filesystem::exists(root_ / "ran")) << "Git itself runs them";
}

TEST_F(GitReaderTest, StopsCountingWhenTheTimeIsOver) {
  makeRepository();
  const auto found = readRepository(root_ / "repo", std::chrono::milliseconds(-1));
  const auto& state = std::get<GitReading>(found).state;
  EXPECT_FALSE(state.changes);
  EXPECT_EQ(state.branch, "main");
}

}  // namespace
}  // namespace ambrel
