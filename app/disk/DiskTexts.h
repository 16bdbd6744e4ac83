#pragma once
// How paths, names and figures of the disk are shown. Paths travel to QML and back as ids that lose no byte.

#include <QString>
#include <string>
#include <string_view>

#include "core/base/Calendar.h"
#include "core/disk/DiskItem.h"

namespace ambrel {

// One character for each byte: what a path is known by in QML. Not for reading.
QString pathID(std::string_view path);
std::string pathOf(const QString& id);

// For reading, on one line: bytes that are no text, line breaks and what turns the reading direction are replaced.
QString shownName(std::string_view name);
// With "~" for the home.
QString shownPath(std::string_view path, std::string_view home);

QString shownSize(const Calendar& calendar, std::int64_t bytes);
QString shownAge(const Calendar& calendar, Instant instant, Instant now);
// "182,440", in the locale's own grouping.
QString shownCount(const Calendar& calendar, std::int64_t count);
// "71 %" of a share between 0 and 1; 100 only when it is all.
QString shownShare(double share);

}  // namespace ambrel
