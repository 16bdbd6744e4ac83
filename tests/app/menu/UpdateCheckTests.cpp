#include <QtTest>

#include "app/menu/UpdateCheck.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {

class UpdateCheckTests : public QObject {
  Q_OBJECT

  TemporaryFolder folder_;

  // A system on which Tilebay 0.1.0 is installed, and whose apt is this script.
  UpdateCheck::Places with(const std::string& script) {
    folder_.write("dpkg/info/tilebay.list", "/usr/bin/tilebay\n");
    folder_.write("dpkg/status", "Package: tilebay\nVersion: 0.1.0\n");
    const auto apt = folder_.write("apt-cache", "#!/bin/sh\n" + script);
    std::filesystem::permissions(apt, std::filesystem::perms::owner_all);
    return {.program = "/usr/bin/tilebay", .dpkg = folder_ / "dpkg", .apt = apt.string()};
  }
  static QString titleOf(UpdateCheck::Places places) {
    UpdateCheck check("0.1.0", std::move(places));
    QStringList titles;
    const auto add = [&](const UpdateAnswer& answer) { titles << QString::fromStdString(answer.title); };
    check.check(add);
    check.check(add);  // the first one has not been answered
    [&] { QTRY_VERIFY(!titles.isEmpty()); }();
    return titles.join(' ');
  }

 private Q_SLOTS:
  void aptIsAskedInAFormThatCanBeRead() {
    QCOMPARE(titleOf(with("[ \"$LC_ALL $*\" = 'C policy tilebay' ] || exit 1\n"
                          "echo '  Installed: 0.1.0'; echo '  Candidate: 0.2.0'\n")),
             QStringLiteral("Tilebay 0.2.0 is available"));
  }
  void aptThatFailsOrIsNotThereIsNoNews() {
    QCOMPARE(titleOf(with("echo '  Candidate: 0.2.0'; exit 100\n")), QStringLiteral("Tilebay 0.1.0"));
    UpdateCheck::Places places = with("");
    places.apt = folder_ / "no";
    QCOMPARE(titleOf(places), QStringLiteral("Tilebay 0.1.0"));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::UpdateCheckTests)
#include "UpdateCheckTests.moc"
