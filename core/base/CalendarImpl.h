#pragma once
#include <unicode/basictz.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "core/base/Calendar.h"

namespace ambrel {

struct Calendar::Impl {
  std::string zoneName;
  std::string localeName;
  icu::Locale locale;
  std::unique_ptr<icu::BasicTimeZone> zone;
  // Formats by skeleton: making one costs as much as a thousand uses.
  mutable std::mutex mutex;
  mutable std::map<std::string, std::unique_ptr<icu::SimpleDateFormat>> formats;
};

}  // namespace ambrel
