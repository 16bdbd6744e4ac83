#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/linux/DesktopLauncher.h"
#include "platform/linux/InstalledPrograms.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

class InstalledProgramsTest : public testing::Test {
 protected:
  InstalledProgramsTest() {
    folders_.data = {path("own"), path("shared")};
    folders_.commands = {path("bin"), path("more")};
  }

  std::filesystem::path path(const QString& name) const { return folder_.filePath(name).toStdString(); }
  void write(const QString& name, const QByteArray& text, bool isProgram = false) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(folder_.filePath(name)).path()));
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    if (isProgram) file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  static QByteArray entry(const QByteArray& exec, const QByteArray& more = {}) {
    return "[Desktop Entry]\nType=Application\nExec=" + exec + "\n" + more;
  }

  QByteArray said() const {
    QFile file(folder_.filePath("said"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder_;
  ProgramFolders folders_;
};

TEST_F(InstalledProgramsTest, TheFirstFolderWinsAndMayHide) {
  InstalledPrograms programs(folders_);
  EXPECT_TRUE(programs.entries().empty()) << "what is installed later is seen";
  write("own/applications/editor.desktop", entry("own-editor"));
  write("shared/applications/editor.desktop", entry("shared-editor"));
  write("own/applications/game.desktop", "[Desktop Entry]\nHidden=true\n");
  write("shared/applications/game.desktop", entry("game"));
  write("shared/applications/kde/about.desktop", entry("about"));
  write("shared/applications/notes.txt", entry("notes"));
  write("own/applications/a.desktop", entry("a", "TryExec=there\n"));
  write("own/applications/b.desktop", entry("b", "TryExec=gone\n"));
  write("bin/there", "", true);
  ASSERT_TRUE(programs.find("editor"));
  EXPECT_TRUE(programs.find("a"));
  EXPECT_FALSE(programs.find("b"));
  EXPECT_EQ(programs.find("editor")->entry.exec, "own-editor");
  EXPECT_EQ(programs.find("editor")->file, path("own/applications/editor.desktop"));
  EXPECT_FALSE(programs.find("game"));
  EXPECT_TRUE(programs.find("kde-about"));
  EXPECT_FALSE(programs.find("notes"));
}

TEST_F(InstalledProgramsTest, CommandsAreExecutableFilesOnThePath) {
  write("bin/plain", "text");
  write("more/plain", "#!/bin/sh\n", true);
  QDir(folder_.path()).mkpath("bin/folder");
  const InstalledPrograms programs(folders_);
  EXPECT_EQ(programs.command("plain"), path("more/plain"));
  EXPECT_EQ(programs.command(path("more/plain").string()), path("more/plain"));
  EXPECT_FALSE(programs.command(path("bin/plain").string()));
  EXPECT_FALSE(programs.command("folder"));
  EXPECT_FALSE(programs.command("../more/plain")) << "a path has to be a whole one";
  EXPECT_FALSE(programs.command(""));
}

TEST_F(InstalledProgramsTest, TerminalsAreAskedInTheirOwnWay) {
  const InstalledPrograms programs(folders_);
  EXPECT_TRUE(programs.inTerminal({"claude"}).empty());
  write("bin/gnome-terminal", "", true);
  EXPECT_THAT(programs.inTerminal({"claude", "a b"}),
              ElementsAre(path("bin/gnome-terminal").string(), "--", "claude", "a b"));
  write("bin/x-terminal-emulator", "", true);
  EXPECT_THAT(programs.inTerminal({"claude"}), ElementsAre(path("bin/x-terminal-emulator").string(), "-e", "claude"));
}

TEST_F(InstalledProgramsTest, ShortcutsRunWithoutAShell) {
  write("shared/applications/org.example.Editor.desktop",
        "[Desktop Entry]\nType=Application\nName=Editor\nExec=editor\nDBusActivatable=true\nActions=new;\n"
        "[Desktop Action new]\nName=New; $(touch x)\nExec=editor --new \"%c; $(touch x)\"\n");
  write("shared/applications/hidden.desktop", entry("editor", "Name=Hidden\nNoDisplay=true\n"));
  write("bin/editor", "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + folder_.filePath("said").toUtf8() + "'\n", true);
  write("plain.txt", "text");
  // Without a bus, a program is started by its command.
  DesktopLauncher launcher(folders_, QDBusConnection(QStringLiteral("none")));
  const auto offered = launcher.offered();
  ASSERT_EQ(offered.size(), 2u);
  EXPECT_EQ(offered[1], (Shortcut{"org.example.Editor/new", "New; $(touch x)", "Editor", ""}));
  EXPECT_TRUE(launcher.run("org.example.Editor/new"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return said() == "--new\nEditor; $(touch x)\n"; }, 10000)) << said().toStdString();
  EXPECT_TRUE(launcher.find(path("bin/editor").string()));
  for (const auto& none : {std::string("org.example.Editor/old"), std::string("gone"), path("plain.txt").string(),
                           path("bin").string(), std::string()}) {
    EXPECT_FALSE(launcher.find(none)) << none;
    EXPECT_FALSE(launcher.run(none)) << none;
  }
}

}  // namespace
}  // namespace ambrel
