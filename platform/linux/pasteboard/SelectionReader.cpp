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
    : connection_(connection), patience_(patience), drain_(connection) {
  for (int i = 0; i < propertyCount; ++i)
    properties_.push_back(connection.atom("AMBREL_SELECTION_" + std::to_string(i)));
}

void SelectionReader::start(xcb_timestamp_t time, ReadingWish wish, SteadyTime now,
                            std::function<void(PasteboardOutcome)> done) {
  cancel();
  time_ = time;
  wish_ = wish;
  done_ = std::move(done);
  lost_.reset();
  hasAskedTwice_ = false;
  wholeDeadline_ = now + patience_.whole;
  step_ = Step::targets;
  convert(connection_.atoms().targets, patience_.targets, now);
}

void SelectionReader::cancel() {
  leave();
  step_ = Step::idle;
  done_ = nullptr;
  pieces_ = {};
  types_.clear();
  fetched_.clear();
}

// What is under way comes to its end without us.
void SelectionReader::leave() {
  if (step_ == Step::targets || step_ == Step::data)
    drain_.followRequest(property_, target_, requestTime_);
  else if (step_ == Step::pieces || step_ == Step::excess)
    drain_.followPieces(property_);
}

void SelectionReader::ownerIsGone() {
  if (!isReading()) return;
  if (step_ == Step::targets)
    lost_ = LostCopy{};
  else
    fetched_.push_back({.type = type_, .bytes = {}, .isLate = true});
  step_ = Step::idle;
  finish();
}

std::optional<SteadyTime> SelectionReader::deadline() const {
  if (!isReading()) return std::nullopt;
  return std::min(stepDeadline_, wholeDeadline_);
}

void SelectionReader::checkDeadline(SteadyTime now) {
  if (!isReading() || now < std::min(stepDeadline_, wholeDeadline_)) return;
  const bool isWaiting = step_ == Step::targets || step_ == Step::data;
  if (isWaiting && !hasAskedTwice_ && now < wholeDeadline_) return askAgain(now);
  if (step_ == Step::targets) {
    lost_ = LostCopy{};
    return finish();
  }
  leave();
  if (step_ == Step::excess) return fetched({.type = type_, .bytes = {}, .excess = excess_}, now);
  fetched({.type = type_, .bytes = {}, .isLate = true}, now);
}

void SelectionReader::askAgain(SteadyTime now) {
  leave();
  hasAskedTwice_ = true;
  convert(target_, patience_.again, now);
}

void SelectionReader::convert(xcb_atom_t target, std::chrono::milliseconds patience, SteadyTime now) {
  target_ = target;
  requestTime_ = time_;
  const auto isFree = [&](xcb_atom_t property) { return !drain_.uses(property); };
  std::ranges::rotate(properties_, properties_.begin() + 1);
  const auto free = std::ranges::find_if(properties_, isFree);
  property_ = free == properties_.end() ? drain_.releaseOldest() : *free;
  stepDeadline_ = now + patience;
  xcb_delete_property(connection_.xcb(), connection_.window(), property_);
  xcb_convert_selection(connection_.xcb(), connection_.window(), connection_.atoms().clipboard, target_, property_,
                        requestTime_);
}

void SelectionReader::handle(const xcb_selection_notify_event_t& event, SteadyTime now) {
  if (event.selection != connection_.atoms().clipboard || drain_.handle(event)) return;
  if (event.target != target_ || (event.property != property_ && event.property != XCB_ATOM_NONE)) return;
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
  if (list.type == connection_.atoms().incr) {
    // Nobody offers so much that its list has to come in pieces.
    step_ = Step::pieces;
    return finish();
  }
  if (list.format != 32 || list.isTooLarge) {
    step_ = Step::idle;
    return finish();
  }
  std::vector<xcb_atom_t> atoms(std::min(list.bytes.size() / sizeof(xcb_atom_t), mostTypes));
  if (!atoms.empty()) std::memcpy(atoms.data(), list.bytes.data(), atoms.size() * sizeof(xcb_atom_t));
  types_ = connection_.names(atoms);
  fetchNext(now);
}

void SelectionReader::takeData(const xcb_selection_notify_event_t& event, SteadyTime now) {
  if (event.property == XCB_ATOM_NONE) return fetched({.type = type_, .bytes = {}}, now);
  auto data = connection_.takeProperty(property_, wish_.limits.of(type_));
  if (data.type == connection_.atoms().incr) {
    // Taking the property has told the owner to begin. The size that it announces is not relied on.
    pieces_.clear();
    step_ = Step::pieces;
    stepDeadline_ = now + patience_.data;
    return;
  }
  if (data.isTooLarge) return fetched({.type = type_, .bytes = {}, .excess = data.size}, now);
  if (data.format != 8) return fetched({.type = type_, .bytes = {}}, now);
  fetched({.type = type_, .bytes = std::move(data.bytes)}, now);
}

void SelectionReader::handle(const xcb_property_notify_event_t& event, SteadyTime now) {
  if (event.window != connection_.window() || drain_.handle(event)) return;
  if (event.atom != property_ || event.state != XCB_PROPERTY_NEW_VALUE) return;
  if (step_ == Step::pieces)
    takePiece(now);
  else if (step_ == Step::excess)
    countPiece(now);
}

void SelectionReader::takePiece(SteadyTime now) {
  auto piece = connection_.takeProperty(property_, wish_.limits.of(type_) - pieces_.size());
  // Two pieces may have been taken at once; the second message then finds nothing.
  if (piece.type == XCB_ATOM_NONE) return;
  if (piece.isTooLarge) {
    excess_ = pieces_.size() + piece.size;
    pieces_ = {};
    step_ = Step::excess;
    stepDeadline_ = now + patience_.excess;
    return;
  }
  if (piece.format != 8 && !piece.bytes.empty()) {
    leave();
    return fetched({.type = type_, .bytes = {}}, now);
  }
  if (piece.bytes.empty()) return fetched({.type = type_, .bytes = std::exchange(pieces_, {})}, now);
  pieces_ += piece.bytes;
  stepDeadline_ = now + patience_.piece;
}

void SelectionReader::countPiece(SteadyTime now) {
  const auto piece = connection_.dropProperty(property_);
  if (piece.type == XCB_ATOM_NONE) return;
  excess_ += piece.size;
  if (piece.size == 0) fetched({.type = type_, .bytes = {}, .excess = excess_}, now);
}

void SelectionReader::fetched(Fetched attempt, SteadyTime now) {
  pieces_ = {};
  fetched_.push_back(std::move(attempt));
  fetchNext(now);
}

void SelectionReader::fetchNext(SteadyTime now) {
  auto type = now < wholeDeadline_ ? nextType(types_, fetched_, wish_.wantsPicture) : std::nullopt;
  step_ = Step::idle;
  if (!type) return finish();
  type_ = std::move(*type);
  hasAskedTwice_ = false;
  step_ = Step::data;
  convert(connection_.atom(type_), patience_.data, now);
}

void SelectionReader::finish() {
  PasteboardOutcome outcome{std::move(types_), contentsOf(std::move(fetched_))};
  if (lost_) outcome.contents.lost = lost_;
  const auto done = std::move(done_);
  cancel();
  if (done) done(std::move(outcome));
}

}  // namespace ambrel
