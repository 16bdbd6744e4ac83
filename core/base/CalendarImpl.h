#pragma once
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <unicode/basictz.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>
#include <utility>

#include "core/base/Calendar.h"

namespace ambrel {

struct Calendar::Impl {
  std::string zoneName;
  std::string localeName;
  icu::Locale locale;
  std::unique_ptr<icu::BasicTimeZone> zone;
  // Formats by skeleton, and those of numbers by kind and variant: making one costs as much as a thousand uses.
  mutable std::mutex mutex;
  mutable std::map<std::string, std::unique_ptr<icu::SimpleDateFormat>> formats;
  mutable std::unique_ptr<icu::RelativeDateTimeFormatter> ages;
  enum class NumberKind { age, compact, size, briefSize, decimal };
  mutable std::map<std::pair<NumberKind, int>, icu::number::LocalizedNumberFormatter> numbers;
};

}  // namespace ambrel
