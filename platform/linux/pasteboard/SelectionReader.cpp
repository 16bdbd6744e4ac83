#include "platform/linux/pasteboard/SelectionReader.h"

#include <algorithm>
#include <cstring>

namespace ambrel {
namespace {

constexpr int propertyCount = 16;
// A hundred types are ordinary for an office program.
constexpr std::size_t mostTypes = 1024;

}  // namespace

SelectionReader::SelectionReader(SelectionConnection& connection, SelectionPatience patience)
    : connection_(connection), patience_(patience) {
  for (int i = 0; i < propertyCount; ++i)
    properties_.push_back(connection.atom("AMBREL_SELECTION_" + std::to_string(i)));
}

void SelectionReader::start(xcb_timestamp_t time, bool wantsPicture, SteadyTime now,
                            std::function<void(Outcome)> done) {
  cancel();
  time_ = time;
  wantsPicture_ = wantsPicture;
  done_ = std::move(done);
  hasAskedTwice_ = false;
  wholeDeadline_ = now + patience_.whole;
  step_ = Step::targets;
  convert(connection_.atoms().targets, patience_.targets, now);
}

void SelectionReader::cancel() {
  if (step_ != Step::idle) xcb_delete_property(connection_.xcb(), connection_.window(), property_);
  step_ = Step::idle;
  done_ = nullptr;
  pieces_ = {};
  types_.clear();
  fetched_.clear();
}

void SelectionReader::ownerIsGone() {
  if (isReading()) finish();
}

std::optional<SteadyTime> SelectionReader::deadline() const {
  if (!isReading()) return std::nullopt;
  return std::min(stepDeadline_, wholeDeadline_);
}

void SelectionReader::checkDeadline(SteadyTime now) {
  if (!isReading()) return;
  if (now >= wholeDeadline_) return finish();
  if (now < stepDeadline_) return;
  // An owner that does not even say what it has is not asked further.
  if (step_ == Step::targets) return finish();
  fetched(std::nullopt, now);
}

void SelectionReader::convert(xcb_atom_t target, std::chrono::milliseconds patience, SteadyTime now) {
  target_ = target;
  property_ = properties_[turn_++ % properties_.size()];
  stepDeadline_ = now + patience;
  xcb_delete_property(connection_.xcb(), connection_.window(), property_);
  xcb_convert_selection(connection_.xcb(), connection_.window(), connection_.atoms().clipboard, target_, property_,
                        time_);
}

void SelectionReader::handle(const xcb_selection_notify_event_t& event, SteadyTime now) {
  const bool isAwaited = event.selection == connection_.atoms().clipboard && event.target == target_ &&
                         (event.property == property_ || event.property == XCB_ATOM_NONE);
  if (!isAwaited) return;
  if (step_ == Step::targets)
    takeTargets(event, now);
  else if (step_ == Step::data)
    takeData(event, now);
}

void SelectionReader::takeTargets(const xcb_selection_notify_event_t& event, SteadyTime now) {
  if (event.property == XCB_ATOM_NONE) {
    // Some owners refuse while they are still busy with the copy itself.
    if (!std::exchange(hasAskedTwice_, true)) return convert(target_, patience_.targets, now);
    types_ = {"UTF8_STRING", "STRING"};
    return fetchNext(now);
  }
  const auto list = connection_.takeProperty(property_, mostTypes * sizeof(xcb_atom_t) * 4);
  if (list.format != 32 || list.isTooLarge) return finish();
  std::vector<xcb_atom_t> atoms(std::min(list.bytes.size() / sizeof(xcb_atom_t), mostTypes));
  if (!atoms.empty()) std::memcpy(atoms.data(), list.bytes.data(), atoms.size() * sizeof(xcb_atom_t));
  types_ = connection_.names(atoms);
  fetchNext(now);
}

void SelectionReader::takeData(const xcb_selection_notify_event_t& event, SteadyTime now) {
  if (event.property == XCB_ATOM_NONE) return fetched(std::nullopt, now);
  auto data = connection_.takeProperty(property_, limitOf(type_));
  if (data.type == connection_.atoms().incr) {
    // Taking the property has told the owner to begin. The size that it announces is not relied on.
    pieces_.clear();
    step_ = Step::pieces;
    stepDeadline_ = now + patience_.data;
    return;
  }
  if (data.format != 8 || data.isTooLarge) return fetched(std::nullopt, now);
  fetched(std::move(data.bytes), now);
}

void SelectionReader::handle(const xcb_property_notify_event_t& event, SteadyTime now) {
  if (step_ != Step::pieces || event.atom != property_ || event.state != XCB_PROPERTY_NEW_VALUE) return;
  const std::size_t limit = limitOf(type_);
  auto piece = connection_.takeProperty(property_, limit - pieces_.size());
  // Two pieces may have been taken at once; the second message then finds nothing.
  if (piece.type == XCB_ATOM_NONE) return;
  if (piece.isTooLarge || (piece.format != 8 && !piece.bytes.empty())) return fetched(std::nullopt, now);
  if (piece.bytes.empty()) return fetched(std::exchange(pieces_, {}), now);
  pieces_ += piece.bytes;
  stepDeadline_ = now + patience_.piece;
}

void SelectionReader::fetched(std::optional<std::string> bytes, SteadyTime now) {
  pieces_ = {};
  fetched_.push_back({type_, std::move(bytes)});
  fetchNext(now);
}

void SelectionReader::fetchNext(SteadyTime now) {
  auto type = nextType(types_, fetched_, wantsPicture_);
  if (!type) return finish();
  type_ = std::move(*type);
  step_ = Step::data;
  convert(connection_.atom(type_), patience_.data, now);
}

void SelectionReader::finish() {
  Outcome outcome{std::move(types_), contentsOf(std::move(fetched_))};
  const auto done = std::move(done_);
  cancel();
  if (done) done(std::move(outcome));
}

}  // namespace ambrel
