#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/doctor.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Updates, AProgramIsOfThePackageThatHoldsItsFile) {
  TemporaryFolder dpkg;
  dpkg.write("info/tilebay.list", "/.\n/usr/bin\n/usr/bin/tilebay\n");
  dpkg.write("status",
             "Package: tilebay-data\nVersion: 9\n\n"
             "Package: tilebay\nStatus: install ok installed\nVersion: 0.2.0-1\nDescription: bar\n Version: 7\n\n"
             "Package: zsh\nVersion: 5.9\n");
  EXPECT_EQ(packageOf("/usr/bin/tilebay", "tilebay", dpkg.path()), (InstalledPackage{"tilebay", "0.2.0-1"}));
  EXPECT_EQ(packageOf("/home/mira/build/tilebay", "tilebay", dpkg.path()), std::nullopt);
  EXPECT_EQ(packageOf("/usr/bin/tilebay", "tilebay", dpkg / "no"), std::nullopt);
}

TEST(Updates, TheAnswerIsWhatAptKnows) {
  const auto policy = [](const std::string& installed, const std::string& candidate, const std::string& source) {
    return parseAptPolicy("tilebay:\n  Installed: " + installed + "\n  Candidate: " + candidate +
                          "\n  Version table:\n *** " + candidate + " 500\n        " + source +
                          "\n        100 /var/lib/dpkg/status\n");
  };
  const std::string archive = "500 https://deb.example.org bookworm/main amd64 Packages";
  const InstalledPackage package{"tilebay", "0.1.0-1"};
  const std::tuple<std::optional<InstalledPackage>, std::optional<AptPolicy>, std::string, std::string> cases[] = {
      {{}, policy("(none)", "0.2.0", archive), "Tilebay 0.1.0, built from source", "No package holds this program"},
      {package, policy("0.1.0-1", "0.2.0-1", archive), "Tilebay 0.2.0-1 is available", "sudo apt install tilebay"},
      {package, policy("0.1.0-1", "0.1.0-1", archive), "Tilebay 0.1.0-1 is the newest that apt knows", "apt update"},
      {package, policy("0.1.0-1", "0.1.0-1", ""), "Tilebay 0.1.0-1", "Installed from a file"},
      {package, parseAptPolicy("N: Unable to locate package tilebay\n"), "Tilebay 0.1.0-1", "apt did not say"},
      // Upgraded while it ran.
      {InstalledPackage{"tilebay", "0.1.01"}, policy("0.1.01", "0.1.01", archive), "Tilebay 0.1.01 is installed",
       "0.1.0 still runs"},
  };
  for (const auto& [installed, known, title, detail] : cases) {
    const UpdateAnswer answer = updateAnswer("0.1.0", installed, known);
    EXPECT_EQ(answer.title, title);
    EXPECT_THAT(answer.detail, HasSubstr(detail));
  }
}

class Doctor : public testing::Test {
 protected:
  Doctor() {
    facts_.version = "0.1.0";
    facts_.root = machine_.path();
    facts_.fonts = machine_ / "fonts";
    facts_.places = {.home = machine_ / "home", .data = machine_ / "home/data", .tool = "/usr/bin/tilebayctl"};
    facts_.defaultsFile = machine_ / "home/defaults.json";
    facts_.engines.emplace();
  }
  DoctorRow row(const std::string& what) const {
    for (const DoctorRow& each : diagnose(facts_))
      if (each.what == what) return each;
    ADD_FAILURE() << "no row " << what;
    return {};
  }
  DoctorState state(const std::string& what) const { return row(what).state; }

  TemporaryFolder machine_;
  DoctorFacts facts_;
};

TEST_F(Doctor, WhatABareMachineLacksComesWithAdvice) {
  for (const char* what : {"Session", "Tray", "Session bus", "System bus", "Sound", "Containers", "Font Material Icons",
                           "Calculator", "Language model"}) {
    EXPECT_EQ(state(what), DoctorState::missing) << what;
    EXPECT_NE(row(what).advice, "") << what;
  }
  // Who does not use a tool need not do anything.
  EXPECT_EQ(row("Cursor"), (DoctorRow{"Cursor", DoctorState::missing,
                                      "no sessions in ~/.config/Cursor/User/globalStorage/state.vscdb", ""}));
}

TEST_F(Doctor, EveryServiceIsLookedForOnItsBus) {
  facts_.sessionBus = facts_.systemBus = DoctorFacts::Bus{};
  EXPECT_EQ(state("Notifications"), DoctorState::missing);
  facts_.sessionBus->startable = {"org.freedesktop.Notifications"};
  facts_.sessionBus->owned = {"org.bluez", "dev.qorvin.ambrel"};
  EXPECT_EQ(row("Notifications").detail, "starts when it is asked");
  EXPECT_EQ(state("BlueZ"), DoctorState::missing);
  EXPECT_EQ(state("Running bar"), DoctorState::found);
  facts_.systemBus->owned = {"org.bluez"};
  EXPECT_EQ(row("BlueZ").detail, "runs");
}

TEST_F(Doctor, WaylandIsALimitAndADeadServerIsNone) {
  facts_.display = ":7";
  EXPECT_EQ(state("Session"), DoctorState::missing);
  facts_.x11 = DoctorFacts::X11{.windowManager = "Openbox"};
  EXPECT_EQ(state("Session"), DoctorState::found);
  EXPECT_EQ(row("Window manager").detail, "Openbox");
  EXPECT_EQ(state("Compositor"), DoctorState::missing);
  EXPECT_EQ(state("Tray"), DoctorState::missing);
  facts_.x11->hasTray = true;
  EXPECT_EQ(state("Tray"), DoctorState::found);
  facts_.sessionType = "wayland";
  facts_.compositor = {"wl_seat"};
  EXPECT_THAT(row("Session").detail, HasSubstr("gives no program a place"));
  EXPECT_EQ(state("Copies"), DoctorState::limited);
  facts_.compositor->insert({"zwlr_layer_shell_v1", "ext_data_control_manager_v1"});
  EXPECT_THAT(row("Session").detail, HasSubstr("without LayerShellQt"));
  EXPECT_EQ(state("Copies"), DoctorState::found);
  facts_.canUseLayerShell = true;
  facts_.display.clear();
  EXPECT_EQ(state("Session"), DoctorState::found);
}

TEST_F(Doctor, FilesTellOfAgentsFontsServersAndMistakes) {
  machine_.write("home/.claude/projects/-x/a.jsonl", "");
  machine_.write("usr/share/fonts/truetype/md/MaterialIcons-Regular.ttf", "");
  machine_.write("usr/share/fonts/truetype/md/InterestingNotes.txt", "");
  machine_.write("home/defaults.json", "{\"dockEdge\": ");
  const std::string listener = "   0: 0100007F:2CAA 00000000:0000 0A 00000000:00000000 00:00000000 00000000\n";
  machine_.write("proc/net/tcp", "   0: 0100007F:2CAA 0100007F:9000 01 00000000:00000000\n");
  EXPECT_EQ(state("Language model"), DoctorState::missing);
  machine_.write("proc/net/tcp", listener);
  EXPECT_THAT(row("Language model").detail, HasSubstr("11434"));
  EXPECT_THAT(row("Claude Code").detail, StartsWith("~/.claude/projects, not connected"));
  EXPECT_THAT(row("Claude Code").advice, StartsWith("tilebayctl agents connect claudeCode"));
  EXPECT_EQ(state("Font Material Icons"), DoctorState::found);
  EXPECT_EQ(state("Font Inter"), DoctorState::missing);
  EXPECT_EQ(row("Settings").detail, "~/defaults.json is no JSON");
  HookConnection(AgentKind::claudeCode, facts_.places).connect();
  EXPECT_THAT(row("Claude Code").detail, HasSubstr(", connected"));
}

}  // namespace
}  // namespace ambrel
