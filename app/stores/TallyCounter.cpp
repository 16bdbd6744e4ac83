#include "app/stores/TallyCounter.h"

#include <algorithm>
#include <utility>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

constexpr const char* countKey = "tallyCount";
constexpr std::int64_t most = 1'000'000'000'000;

std::int64_t countIn(const UserDefaults& defaults) {
  return std::clamp<std::int64_t>(defaults.integer(countKey).value_or(0), 0, most);
}

}  // namespace

TallyCounter::TallyCounter(UserDefaults& defaults, PresentCalendar calendar, QObject* parent)
    : QObject(parent), defaults_(defaults), calendar_(std::move(calendar)) {
  reload();
}

void TallyCounter::reload() {
  const std::int64_t count = countIn(defaults_);
  TallyFace face;
  face.text = toQString(decimal(calendar_(), static_cast<double>(count), 0));
  face.brief = count < 10000 ? face.text : toQString(compactCount(calendar_(), count));
  face.isZero = count == 0;
  face.canUndo = beforeReset_ > 0;
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
}

void TallyCounter::set(std::int64_t count) {
  store(defaults_, countKey, DefaultsValue{std::clamp<std::int64_t>(count, 0, most)});
  reload();
}

void TallyCounter::add(int number) { set(countIn(defaults_) + number); }

void TallyCounter::reset() {
  if (const std::int64_t count = countIn(defaults_); count > 0) beforeReset_ = count;
  set(0);
}

void TallyCounter::undo() { set(countIn(defaults_) + std::exchange(beforeReset_, 0)); }

}  // namespace ambrel
