#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <gtest/gtest.h>

#include "app/clipboard/ClipboardModel.h"
#include "app/clipboard/QuietClipboard.h"
#include "app/model/AppSettings.h"
#include "core/base/Files.h"
#include "platform/linux/pasteboard/X11Pasteboard.h"
#include "tests/Pictures.h"
#include "tests/TemporaryFolder.h"
#include "tests/e2e/Desktop.h"
#include "tests/e2e/pasteboard/SelectionClients.h"
#include "tests/fakes/FakePlatform.h"

namespace ambrel {
namespace {

Offer whole(std::string bytes) { return {.manner = Manner::whole, .bytes = std::move(bytes)}; }

// The history over the X server's clipboard, and real programs that copy and paste.
class ClipboardOnX11 : public testing::Test {
 protected:
  void SetUp() override {
    pasteboard = openX11Pasteboard("", [](auto task) {
      QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task), Qt::QueuedConnection);
    });
    ASSERT_TRUE(pasteboard);
    model = std::make_unique<ClipboardModel>(
        settings, folder / "Clipboard", Calendar("UTC", "en_US"),
        ClipboardModel::Seams{.pasteboard = *pasteboard,
                              .workspace = workspace,
                              .background = makeBackground(context),
                              .fileBackground = makeDetachedBackground(context),
                              .later = [](Seconds, const std::function<void()>&) {},
                              .now = [] { return instantFromUnixSeconds(1'795'262'400); }});
    QObject::connect(model.get(), &ClipboardModel::libraryChanged, &context, [&] { isLoaded = true; });
    model->start();
    ASSERT_TRUE(waitFor([&] { return isLoaded; }));
  }

  // Copied by xclip, which goes on offering it until somebody else copies.
  std::unique_ptr<Client> xclip(const QString& file, const QString& type = QStringLiteral("UTF8_STRING")) {
    return std::make_unique<Client>(QStringLiteral("xclip"),
                                    QStringList{"-quiet", "-selection", "clipboard", "-t", type, "-i", file});
  }
  std::string pasted(const QString& type = QStringLiteral("UTF8_STRING")) {
    return run(QStringLiteral("xclip"), {"-selection", "clipboard", "-t", type, "-o"}).output;
  }
  bool arrives(int count) {
    return waitFor([&] { return model->count() == count; });
  }
  const ClipItem& newest() const { return model->library().items.front(); }
  QString file(const std::string& name, const std::string& bytes) const {
    return QString::fromStdString(folder.write(name, bytes));
  }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  FakeWorkspace workspace;
  std::unique_ptr<Pasteboard> pasteboard;
  std::unique_ptr<ClipboardModel> model;
  bool isLoaded = false;
  QObject context;
};

TEST_F(ClipboardOnX11, KeepsWhatProgramsCopy) {
  const auto text = xclip(file("text", "Meeting moved\n"));
  ASSERT_TRUE(arrives(1));
  EXPECT_EQ(newest().text, "Meeting moved\n");
  const auto link = xclip(file("link", "https://example.org/"));
  ASSERT_TRUE(arrives(2));
  EXPECT_EQ(newest().kind, ClipKind::link);
  const auto files = xclip(file("uris", "file:///tmp/a%20b.pdf\r\nfile:///tmp/c\r\n"), "text/uri-list");
  ASSERT_TRUE(arrives(3));
  EXPECT_EQ(newest().text, "/tmp/a b.pdf\n/tmp/c");
}

TEST_F(ClipboardOnX11, KeepsAPictureInTheFormatThatItNeeds) {
  const QString png = QString::fromStdString(folder / "shot.png"), bmp = QString::fromStdString(folder / "shot.bmp");
  ASSERT_TRUE(plainPicture(320, 200, Qt::darkRed).save(png));
  ASSERT_TRUE(plainPicture(320, 200, Qt::darkCyan).save(bmp));
  const auto first = xclip(png, "image/png");
  ASSERT_TRUE(arrives(1));
  EXPECT_EQ(readFile(folder / "Clipboard/Images" / *newest().imageFileName), readFile(png.toStdString()));
  const auto second = xclip(bmp, "image/bmp");
  ASSERT_TRUE(arrives(2));
  const auto converted = readFile(folder / "Clipboard/Images" / *newest().imageFileName);
  ASSERT_TRUE(converted);
  EXPECT_EQ(pngSize(*converted), (PictureSize{320, 200}));
}

TEST_F(ClipboardOnX11, ATextThatIsTooLargeHasACardAndCanStillBePasted) {
  const std::string text(50'000'000, 'x');
  const auto client = xclip(file("huge", text));
  ASSERT_TRUE(waitFor([&] { return model->items()->rowCount() == 1; }));
  EXPECT_EQ(model->count(), 0);
  EXPECT_TRUE(pasted() == text);
}

TEST_F(ClipboardOnX11, WhatIsPickedCanBePastedAndIsNoNewCopy) {
  const auto first = xclip(file("a", "first"));
  ASSERT_TRUE(arrives(1));
  const auto second = xclip(file("b", "second"));
  ASSERT_TRUE(arrives(2));
  model->copy(ClipItem(model->library().items.back()));
  EXPECT_TRUE(waitFor([&] { return pasted() == "first"; }));
  model->poll();
  EXPECT_EQ(model->count(), 2);
  EXPECT_EQ(newest().text, "second");
}

TEST_F(ClipboardOnX11, ATextFieldAsksNobodyUntilTheUserPastes) {
  keepCopiesFromTextFields();
  QQmlEngine engine;
  engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
  QQmlComponent component(&engine);
  component.setData(
      "import QtQuick\nimport Ambrel.Kit\nWindow { visible: true; Field { focus: true }\n"
      "TextEdit { text: 'words'; readOnly: true } }",
      {});
  const std::unique_ptr<QObject> window(component.create());
  ASSERT_TRUE(window) << component.errorString().toStdString();
  OwnerClient hangs({{"UTF8_STRING", {.manner = Manner::silent}}});
  hangs.targetsManner = Manner::silent;
  hangs.copy();
  ASSERT_TRUE(waitFor([&] { return hangs.timesAskedForTargets() > 0; }));
  OwnerClient next({{"UTF8_STRING", whole("next")}});
  next.copy();
  ASSERT_TRUE(arrives(1));
  EXPECT_EQ(hangs.timesAskedForTargets(), 1);
  EXPECT_EQ(hangs.asked(), std::vector<std::string>{});
  EXPECT_EQ(next.timesAskedForTargets(), 1);
  EXPECT_EQ(next.asked(), std::vector<std::string>{"UTF8_STRING"});
}

TEST_F(ClipboardOnX11, TheLastCopyOutlivesItsProgram) {
  auto client = xclip(file("a", "still here"));
  ASSERT_TRUE(arrives(1));
  client->stop();
  ASSERT_TRUE(waitFor([&] { return pasted() == "still here"; }));
  EXPECT_EQ(model->count(), 1);
}

}  // namespace
}  // namespace ambrel
