#pragma once
// Display texts for paths, names and figures. QML identifies paths by ids that preserve every byte.

#include <QStringList>
#include <string>
#include <string_view>

#include "core/base/Calendar.h"
#include "core/disk/DiskItem.h"

namespace ambrel {

// One character for each byte. Not for display.
QString pathID(std::string_view path);
std::string pathOf(const QString& id);

// For display on one line: replaces invalid UTF-8, line breaks and marks that change the reading direction.
QString shownName(std::string_view name);
// With "~" for the home.
QString shownPath(std::string_view path, std::string_view home);

// A row's text for screen readers: the parts that are not empty, joined by commas.
QString spokenWords(QStringList words);

QString shownSize(const Calendar& calendar, std::int64_t bytes);
QString shownAge(const Calendar& calendar, Instant instant, Instant now);
// "182,440", with the locale's grouping.
QString shownCount(const Calendar& calendar, std::int64_t count);
// "71 %" for 0.71; "100 %" only for 1.
QString shownShare(double share);

}  // namespace ambrel
