#include "app/disk/DiskProgress.h"

#include <QCoreApplication>

#include "app/disk/DiskTexts.h"

namespace ambrel {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("ambrel::DiskProgress", text); }

}  // namespace

DiskProgress scanProgress(const ScanNews::Snapshot& news, const QString& source, const Calendar& calendar) {
  return {
      .title = tr("Scanning"),
      .detail = tr("%1 · %2 files · %3")
                    .arg(source, shownCount(calendar, news.progress.files), shownSize(calendar, news.progress.bytes)),
      .figure = shownShare(news.share),
      .percent = news.share * 100};
}

DiskProgress compareProgress(const CompareProgress& compared, const Calendar& calendar) {
  const QString title = tr("Looking for what can go");
  if (compared.expected <= 0) return {.title = title, .detail = {}, .figure = {}, .percent = 0};
  const double share = static_cast<double>(compared.bytes) / static_cast<double>(compared.expected);
  return {.title = title,
          .detail =
              tr("%1 of %2 compared").arg(shownSize(calendar, compared.bytes), shownSize(calendar, compared.expected)),
          .figure = shownShare(share),
          .percent = share * 100};
}

}  // namespace ambrel
