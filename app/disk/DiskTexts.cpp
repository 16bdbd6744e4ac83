#include "app/disk/DiskTexts.h"

#include <algorithm>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

// Marks that change the reading direction, which would show "cod.exe" as "exe.doc".
bool turnsDirection(QChar c) {
  const char16_t code = c.unicode();
  return code == 0x061c || code == 0x200e || code == 0x200f || (code >= 0x202a && code <= 0x202e) ||
         (code >= 0x2066 && code <= 0x2069);
}

}  // namespace

QString pathID(std::string_view path) { return QString::fromLatin1(path.data(), static_cast<qsizetype>(path.size())); }

std::string pathOf(const QString& id) { return id.toLatin1().toStdString(); }

QString shownName(std::string_view name) {
  QString shown = toQString(repairedUTF8(name));
  for (QChar& c : shown) {
    if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) c = u' ';
    if (turnsDirection(c)) c = QChar::ReplacementCharacter;
  }
  return shown;
}

QString shownPath(std::string_view path, std::string_view home) {
  if (path == home) return QStringLiteral("~");
  if (home.size() > 1 && isWithin(path, home)) return u'~' + shownName(path.substr(home.size()));
  return shownName(path);
}

QString spokenWords(QStringList words) {
  words.removeAll(QString());
  return words.join(QStringLiteral(", "));
}

QString shownSize(const Calendar& calendar, std::int64_t bytes) { return toQString(fileSize(calendar, bytes)); }

QString shownAge(const Calendar& calendar, Instant instant, Instant now) {
  return toQString(relativeAge(calendar, instant, now));
}

QString shownCount(const Calendar& calendar, std::int64_t count) {
  return toQString(decimal(calendar, static_cast<double>(count), 0));
}

QString shownShare(double share) {
  const int percent = share >= 1 ? 100 : std::clamp(static_cast<int>(share * 100), 0, 99);
  return QString::number(percent) + QStringLiteral(" %");
}

}  // namespace ambrel
