#include "app/disk/DiskFaces.h"

#include <QCoreApplication>
#include <algorithm>

#include "app/base/StoredValue.h"
#include "app/disk/DiskTexts.h"
#include "core/base/PlatformWords.h"

namespace ambrel {
namespace {

constexpr std::size_t namedFolders = 12;

QString tr(const char* text) { return QCoreApplication::translate("ambrel::DiskFace", text); }

}  // namespace

DiskFace diskFace(const DiskStatus& status, const std::string& home, const Calendar& calendar) {
  DiskFace face{.isGuarded = status.phase == DiskPhase::access,
                .isScanning = status.phase == DiskPhase::scanning,
                .isAnalyzing = status.isAnalyzing,
                .isDone = status.phase == DiskPhase::done,
                .message = status.message,
                .headline = status.headline,
                .summary = status.summary};
  if (!status.skipped.empty()) {
    std::vector<std::string> folders = status.skipped;
    std::sort(folders.begin(), folders.end());
    QStringList lines;
    for (std::size_t i = 0; i < std::min(folders.size(), namedFolders); ++i) lines << shownPath(folders[i], home);
    if (folders.size() > namedFolders) lines << QStringLiteral("…");
    face.skippedFolders = lines.join(u'\n');
    face.skippedText = toQString("%1 protected folders were skipped. {fullDiskAccess} lets Buddy read them."_local)
                           .arg(shownCount(calendar, static_cast<std::int64_t>(folders.size())));
  }
  if (!status.knowsAccess)
    face.unknownText =
        tr("This volume does not note when files are opened. Large files that nobody uses cannot be told from others "
           "here.");
  return face;
}

DiskProgress scanProgress(const ScanNews::Snapshot& news, const QString& source, const Calendar& calendar) {
  return {
      .title = tr("Scanning"),
      .detail = tr("%1 · %2 files · %3")
                    .arg(source, shownCount(calendar, news.progress.files), shownSize(calendar, news.progress.bytes)),
      .figure = shownShare(news.share),
      .percent = news.share * 100};
}

DiskProgress compareProgress(const CompareProgress& compared, const Calendar& calendar) {
  DiskProgress progress{.title = tr("Looking for what can go")};
  if (compared.expected <= 0) return progress;
  const double share = static_cast<double>(compared.bytes) / static_cast<double>(compared.expected);
  progress.detail =
      tr("%1 of %2 compared").arg(shownSize(calendar, compared.bytes), shownSize(calendar, compared.expected));
  progress.figure = shownShare(share);
  progress.percent = share * 100;
  return progress;
}

DiskAnswer diskAnswer(const DiskInquiry& inquiry, const std::string& home, const Calendar& calendar) {
  if (!inquiry.item) return {};
  const DiskItem& item = *inquiry.item;
  return {.isOpen = true,
          .isAnswering = inquiry.isAnswering,
          .takesQuestions = inquiry.takesQuestions,
          .itemID = pathID(item.id()),
          .name = shownName(item.name()),
          .detail = tr("%1 · %2").arg(shownSize(calendar, item.size()), shownPath(item.url(), home)),
          .question = inquiry.question,
          .answer = inquiry.answer};
}

}  // namespace ambrel
