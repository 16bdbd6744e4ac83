#pragma once
// The clipboard's model on a desktop that the test plays: other applications, time, and when slow work gets done.

#include <QAbstractItemModelTester>
#include <memory>

#include "app/clipboard/ClipboardModel.h"
#include "app/model/AppSettings.h"
#include "core/base/Files.h"
#include "core/clipboard/ClipboardFolder.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/DelayedSteps.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {

// The smallest bytes that are taken for a PNG of this size; the last byte tells pictures apart.
inline std::string pngBytes(char mark, int width = 2, int height = 3) {
  std::string bytes("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\0\0\0\0\0", 24);
  bytes[19] = static_cast<char>(width);
  bytes[23] = static_cast<char>(height);
  return bytes + mark;
}

struct ClipboardDesk {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  FakePasteboard pasteboard;
  FakeWorkspace workspace;
  HeldWork held, heldFiles;
  Instant now = *parseISO8601("2026-11-21T09:00:00Z");
  DelayedSteps steps{now};
  std::unique_ptr<ClipboardModel> model;
  std::unique_ptr<QAbstractItemModelTester> tester;

  // Started and loaded, unless told otherwise.
  explicit ClipboardDesk(bool isStarted = true) {
    if (isStarted) start();
  }
  void make() {
    model = std::make_unique<ClipboardModel>(settings, path(), Calendar("UTC", "en_US"),
                                             ClipboardModel::Seams{.pasteboard = pasteboard,
                                                                   .workspace = workspace,
                                                                   .background = held.background(),
                                                                   .fileBackground = heldFiles.background(),
                                                                   .later = steps.later(),
                                                                   .now = [this] { return now; }});
    tester = std::make_unique<QAbstractItemModelTester>(model->items(),
                                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
  }
  void start() {
    make();
    model->start();
    work();
  }
  void end() {
    tester.reset();
    model.reset();
  }
  // The program ends and is started again.
  void restart() {
    end();
    held.waiting.clear();
    steps.clear();
    start();
  }
  // All that waits off the main thread gets done.
  void work() {
    while (!held.waiting.empty()) held.letGo();
  }
  void pass(Seconds span) {
    now = advanced(now, span);
    steps.runDue();
  }
  void copy(const std::string& text) {
    pasteboard.copy(text);
    work();
  }
  // Copied, and not yet worked on.
  void putPicture(std::string bytes, const std::string& type = "image/png") {
    pasteboard.put({.filePaths = {}, .picture = Representation{type, std::move(bytes)}, .text = {}}, {type});
    pasteboard.answer();
  }
  void copyPicture(std::string bytes, const std::string& type = "image/png") {
    putPicture(std::move(bytes), type);
    work();
  }

  std::filesystem::path path() const { return folder / "Clipboard"; }
  // The library as it is on the disk.
  ClipboardLibrary stored() const { return readLibrary(path()); }
  int pictureCount() const {
    std::error_code ignored;
    int count = 0;
    for (std::filesystem::directory_iterator file(path() / "Images", ignored), end; !ignored && file != end; ++file)
      ++count;
    return count;
  }
  std::vector<std::string> texts() const {
    std::vector<std::string> list;
    for (const ClipItem& item : model->library().items) list.push_back(item.text.value_or("(picture)"));
    return list;
  }
  const ClipItem& item(std::size_t position) const { return model->library().items.at(position); }
  QString id(std::size_t position) const { return QString::fromStdString(item(position).id.text()); }
  // What the card at that place shows.
  ClipFace face(int row) const { return model->items()->faceOf(model->items()->idAt(row)); }
  std::optional<std::string> currentText() const {
    const auto& current = model->currentItemID();
    return current ? model->item(*current)->text : std::nullopt;
  }
};

}  // namespace ambrel
