#include "app/time/TimeConverter.h"

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/time/TimeConversion.h"

namespace ambrel {
namespace {

QString unitText(UnixUnit unit) {
  switch (unit) {
    case UnixUnit::seconds:
      return QObject::tr("Read as seconds since 1970");
    case UnixUnit::milliseconds:
      return QObject::tr("Read as milliseconds since 1970");
    case UnixUnit::microseconds:
      return QObject::tr("Read as microseconds since 1970");
    case UnixUnit::nanoseconds:
      return QObject::tr("Read as nanoseconds since 1970");
  }
  return {};
}

}  // namespace

TimeConverter::TimeConverter(TimeSeams seams, QObject* parent) : QObject(parent), seams_(std::move(seams)) {}

void TimeConverter::convert(const QString& text) {
  const Calendar calendar = seams_.calendar();
  const bool isNow = text.trimmed().isEmpty();
  const auto read = isNow ? std::optional(ReadTime{std::chrono::floor<std::chrono::seconds>(seams_.now()), {}})
                          : readTime(text.toStdString(), calendar);
  isProblem_ = !read;
  std::vector<ConversionRow> rows;
  if (read) {
    const auto add = [&](const char* id, const QString& title, const std::string& value) {
      rows.push_back({.id = QString::fromLatin1(id), .title = title, .value = toQString(value)});
    };
    const auto sinceEpoch = read->instant.time_since_epoch();
    const auto count = [&]<typename Unit>(Unit) {
      return std::to_string(std::chrono::floor<Unit>(sinceEpoch).count());
    };
    add("seconds", tr("Seconds"), count(std::chrono::seconds()));
    add("milliseconds", tr("Milliseconds"), count(std::chrono::milliseconds()));
    add("local", tr("Local time"), formattedDate(calendar, read->instant, "yMMMdEEEjmmss"));
    add("utc", tr("UTC, ISO 8601"), iso8601(read->instant));
    note_ = isNow ? tr("Now") : read->unit ? unitText(*read->unit) : tr("Read as a date");
  } else {
    note_ = tr("Neither a number nor a date like 2026-11-22 14:30");
  }
  rows_.setRows(rows);
  Q_EMIT converted();
}

}  // namespace ambrel
