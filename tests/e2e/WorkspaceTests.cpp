// Real terminals under a real window manager, with programs of our own in the place of the agents.

#include <QStandardPaths>

#include "platform/linux/X11Workspace.h"
#include "tests/Matchers.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

using Identifiers = std::vector<std::string>;

const std::string claude = "com.anthropic.claudefordesktop";
const std::string codex = "com.openai.codex";

class WorkspaceOnX11 : public X11Test {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(X11Test::SetUp());
    ASSERT_TRUE(folder_.isValid());
    // A program that is nothing but its name, and a script as an interpreter runs it.
    ASSERT_TRUE(QFile::copy("/bin/sleep", file("claude")));
    writeFile(file("codex"), "#!/bin/bash\nread line\n", true);
    QDir(folder_.path()).mkpath("share/applications");
    writeFile(file("share/applications/test.Terminal.desktop"),
              "[Desktop Entry]\nType=Application\nName=T\nExec=xterm\nStartupWMClass=XTerm\n");
    ProgramFolders folders;
    folders.data = {folder_.filePath("share").toStdString()};
    folders.commands = {"/usr/bin", "/bin"};
    workspace_ = std::make_unique<X11Workspace>(connection_.get(), "/proc", folders);
  }

  QString file(const QString& name) const { return folder_.filePath(name); }
  bool isInFront(const Identifiers& identifiers) const {
    return waitFor([&] { return workspace_->frontmost() == identifiers; });
  }

  QTemporaryDir folder_;
  std::unique_ptr<X11Workspace> workspace_;
};

TEST_F(WorkspaceOnX11, ATerminalIsTheAgentThatRunsInIt) {
  EXPECT_TRUE(isInFront({}));
  EXPECT_FALSE(workspace_->isRunning(claude));
  EXPECT_FALSE(workspace_->activate(claude));
  int changes = 0;
  workspace_->setFrontmostHandler([&] { ++changes; });

  const Client first("xterm", {"-e", file("claude"), "60"});
  EXPECT_TRUE(isInFront({"test.Terminal", claude}));
  EXPECT_TRUE(waitFor([&] { return changes >= 1; }));
  const Client second("xterm", {"-e", file("codex")});
  EXPECT_TRUE(isInFront({"test.Terminal", codex}));
  const Client plain("xterm", {"-title", "plain", "-e", "sleep", "60"});
  EXPECT_TRUE(isInFront({"test.Terminal"}));
  EXPECT_TRUE(workspace_->isRunning(claude));
  EXPECT_TRUE(workspace_->isRunning(codex));
  EXPECT_FALSE(workspace_->isRunning("com.google.antigravity"));

  // Bringing an agent forward raises its own terminal, over and over.
  for (const std::string& agent : {claude, codex, claude}) {
    const int before = changes;
    EXPECT_TRUE(workspace_->activate(agent));
    EXPECT_TRUE(isInFront({"test.Terminal", agent}));
    EXPECT_TRUE(waitFor([&] { return changes > before; }));
  }
  const auto stack = connection_->numbers(connection_->root(), connection_->atom("_NET_CLIENT_LIST_STACKING"));
  const auto active = connection_->numbers(connection_->root(), connection_->atom("_NET_ACTIVE_WINDOW"));
  EXPECT_EQ(stack.back(), active.front()) << "not on top";
}

TEST_F(WorkspaceOnX11, InTmuxTheAgentsOfThePanesOnTheScreenAreInFront) {
  if (QStandardPaths::findExecutable("tmux").isEmpty()) GTEST_SKIP() << "no tmux";
  const QString socket = file("a b,c");
  const auto tmux = [&](QStringList arguments) { return run("tmux", QStringList{"-S", socket} + arguments).status; };
  const auto isShown = [&](const Identifiers& agents) {
    return waitFor([&] { return workspace_->agentsInFront() == agents; });
  };
  const Client terminal("xterm", {"-e", "tmux", "-S", socket, "-f", "/dev/null", "new-session", file("claude"), "600"});
  EXPECT_TRUE(isShown({claude}));
  // What is in a pane does not make the terminal that program's window.
  EXPECT_EQ(workspace_->frontmost(), Identifiers{"test.Terminal"});
  ASSERT_EQ(tmux({"split-window", file("codex")}), 0);
  EXPECT_TRUE(isShown({claude, codex})) << "both panes are on the screen";
  ASSERT_EQ(tmux({"resize-pane", "-Z"}), 0);
  EXPECT_TRUE(isShown({codex})) << "a zoomed pane hides the other";
  ASSERT_EQ(tmux({"new-window", "sleep", "600"}), 0);
  EXPECT_TRUE(isShown({}));
  ASSERT_EQ(tmux({"last-window"}), 0);
  EXPECT_TRUE(isShown({codex}));
  const Client plain("xterm", {"-e", "sleep", "60"});
  EXPECT_TRUE(isShown({})) << "another window is in front";
  tmux({"kill-server"});
}

TEST_F(WorkspaceOnX11, TheFrontGoesBackToWhoHadIt) {
  const Client other("xterm", {"-e", file("claude"), "60"});
  ASSERT_TRUE(isInFront({"test.Terminal", claude}));
  const Client ours("xterm", {"-class", "Cursor", "-e", "sleep", "60"});
  ASSERT_TRUE(isInFront({"com.todesktop.230313mzl4w4u92"}));
  X11Workspace workspace(connection_.get(), "/proc", {}, ours.pid());
  workspace.activateLast();
  EXPECT_TRUE(isInFront({"com.todesktop.230313mzl4w4u92"})) << "nobody is known to have had it";
  int changes = 0;
  workspace.setFrontmostHandler([&] { ++changes; });
  const Identifiers terminal{"xterm", claude};
  for (const Identifiers& next : {Identifiers{"test.Terminal", claude}, {"com.todesktop.230313mzl4w4u92"}}) {
    const int before = changes;
    ASSERT_TRUE(workspace_->activate(next.back()));
    // The window manager may tell first that nobody is in front.
    ASSERT_TRUE(isInFront(next) && waitFor([&] { return changes > before && workspace.frontmost() == terminal; }));
  }
  // What is copied while a panel of ours is open is not ours.
  EXPECT_EQ(workspace.frontmost(), terminal);
  workspace.activateLast();
  EXPECT_TRUE(isInFront({"test.Terminal", claude}));
}

TEST_F(WorkspaceOnX11, OpensThroughTheDesktopEntryWithoutAShell) {
  QDir(folder_.path()).mkpath("a b");
  writeFile(file("a b/start"),
            "#!/bin/bash\nprintf '%s\\n' \"$#\" \"$PWD\" \"$@\" >\"$0.tmp\"; mv \"$0.tmp\" \"$0.out\"\n", true);
  writeFile(file("share/applications/cursor.desktop"),
            "[Desktop Entry]\nType=Application\nName=The Editor\nPath=" + folder_.path().toUtf8() + "\nExec=\"" +
                file("a b/start").toUtf8() + "\" %F --name %c \"\\\\$HOME;x\" $(touch${IFS}x) `id`\n");
  EXPECT_TRUE(workspace_->open("com.todesktop.230313mzl4w4u92"));
  QFile out(file("a b/start.out"));
  ASSERT_TRUE(waitFor([&] { return out.exists(); }));
  ASSERT_TRUE(out.open(QIODevice::ReadOnly));
  EXPECT_EQ(out.readAll().toStdString(), "5\n" + QDir(folder_.path()).canonicalPath().toStdString() +
                                             "\n--name\nThe Editor\n$HOME;x\n$(touch${IFS}x)\n`id`\n");
  EXPECT_FALSE(workspace_->open(codex)) << "it is not installed";
  writeFile(file("share/applications/codex.desktop"),
            "[Desktop Entry]\nType=Application\nExec=" + file("gone").toUtf8() + "\n");
  EXPECT_FALSE(workspace_->open(codex)) << "its program is not there";
}

TEST_F(WorkspaceOnX11, AnAgentsCommandOpensInATerminal) {
  ProgramFolders folders;
  folders.commands = {folder_.path().toStdString(), "/usr/bin"};
  writeFile(file("x-terminal-emulator"), "#!/bin/bash\nexec xterm \"$@\"\n", true);
  X11Workspace workspace(connection_.get(), "/proc", folders);
  ASSERT_TRUE(workspace.open(codex));
  EXPECT_TRUE(waitFor([&] { return workspace.isRunning(codex); }));
  // It is not our child, so it is ended by its window.
  run("xdotool", {"search", "--class", "XTerm", "windowkill"});
  EXPECT_TRUE(waitFor([&] { return !workspace.isRunning(codex); }));
}

}  // namespace
}  // namespace ambrel
