// Real windows under a real compositor.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/X11Workspace.h"
#include "platform/wayland/WaylandWorkspace.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WorkspaceOnWayland : public testing::Test {
 protected:
  void SetUp() override {
    workspace_ = withWaylandWindows(qgetenv("WAYLAND_DISPLAY").toStdString(),
                                    std::make_unique<X11Workspace>(nullptr, "/proc", ProgramFolders{}), {});
    workspace_->setFrontmostHandler([this] { ++changes_; });
  }

  static Client terminal(const QString& application, const QStringList& command = {"sleep", "60"}) {
    return Client("foot", QStringList{"--config=/dev/null", "--app-id=" + application} + command);
  }
  bool isInFront(const std::string& program) const {
    return waitFor([&] { return workspace_->frontmost() == std::vector{program}; });
  }

  std::unique_ptr<Workspace> workspace_;
  int changes_ = 0;
};

TEST_F(WorkspaceOnWayland, AProgramComesForwardAndIsToldOf) {
  EXPECT_THAT(workspace_->frontmost(), IsEmpty());
  EXPECT_FALSE(workspace_->activate("test.one"));
  const Client one = terminal("test.one");
  ASSERT_TRUE(isInFront("test.one"));
  {
    const Client two = terminal("Claude");
    ASSERT_TRUE(isInFront("com.anthropic.claudefordesktop")) << "an agent's own program";
    EXPECT_THAT(workspace_->agentsInFront(), ElementsAre("com.anthropic.claudefordesktop"));
    const int before = changes_;
    EXPECT_TRUE(workspace_->activate("test.one"));
    ASSERT_TRUE(isInFront("test.one"));
    EXPECT_GT(changes_, before);
    EXPECT_THAT(workspace_->agentsInFront(), IsEmpty());
    EXPECT_TRUE(workspace_->isRunning("com.anthropic.claudefordesktop"));
  }
  EXPECT_TRUE(waitFor([&] { return !workspace_->isRunning("com.anthropic.claudefordesktop"); }));
}

TEST_F(WorkspaceOnWayland, AWindowOfOursIsPassedOverAndGivesTheFrontBack) {
  const Client other = terminal("test.one");
  ASSERT_TRUE(isInFront("test.one"));
  const int before = changes_;
  const Client ours = terminal("tilebay");
  ASSERT_TRUE(waitFor([&] { return changes_ > before; }));
  ASSERT_TRUE(isInFront("test.one"));
  workspace_->activateLast();
  EXPECT_TRUE(waitFor([&] { return changes_ > before + 1; }));
}

using WorkspaceOnKWin = WorkspaceOnWayland;

TEST_F(WorkspaceOnKWin, KnowsTheAgentInATerminal) {
  const Client agent = terminal("foot", {"bash", "-c", "exec -a claude sleep 60"});
  ASSERT_TRUE(waitFor([&] { return !workspace_->agentsInFront().empty(); }));
  EXPECT_THAT(workspace_->agentsInFront(), ElementsAre("com.anthropic.claudefordesktop"));
  const Client other = terminal("test.one");
  ASSERT_TRUE(isInFront("test.one"));
  EXPECT_TRUE(workspace_->activateProcess(agent.pid()));
  EXPECT_TRUE(waitFor([&] { return workspace_->frontmost().front() == "foot"; }));
}

}  // namespace
}  // namespace ambrel
