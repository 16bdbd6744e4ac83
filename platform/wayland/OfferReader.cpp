#include "platform/wayland/OfferReader.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace ambrel {
namespace {

constexpr std::size_t bufferSize = 256u << 10;
constexpr std::size_t mostRests = 16;
// An owner whose copy never ends is left alone at some point.
constexpr std::uint64_t mostTaken = 4ull << 30;

}  // namespace

OfferReader::OfferReader(Receive receive, SelectionPatience patience)
    : receive_(std::move(receive)), patience_(patience), buffer_(bufferSize, '\0') {}

void OfferReader::start(std::vector<std::string> types, ReadingWish wish, SteadyTime now,
                        std::function<void(PasteboardOutcome)> done) {
  cancel();
  types_ = std::move(types);
  wish_ = wish;
  done_ = std::move(done);
  wholeDeadline_ = now + patience_.whole;
  fetchNext(now);
}

void OfferReader::cancel() {
  leave();
  done_ = nullptr;
  bytes_ = {};
  excess_ = 0;
  types_.clear();
  fetched_.clear();
}

void OfferReader::leave() {
  if (!pipe_) return;
  if (rests_.size() >= mostRests) rests_.erase(rests_.begin());
  rests_.push_back({std::move(pipe_)});
}

void OfferReader::addTo(std::vector<pollfd>& files) const {
  if (pipe_) files.push_back({pipe_.get(), POLLIN, 0});
  for (const Rest& rest : rests_) files.push_back({rest.pipe.get(), POLLIN, 0});
}

void OfferReader::handle(int descriptor, SteadyTime now) {
  const bool isWanted = pipe_ && pipe_.get() == descriptor;
  const auto rest = std::ranges::find(rests_, descriptor, [](const Rest& one) { return one.pipe.get(); });
  if (!isWanted && rest == rests_.end()) return;
  const ssize_t count = ::read(descriptor, buffer_.data(), buffer_.size());
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (isWanted) return count > 0 ? take(static_cast<std::size_t>(count), now) : ended(now);
  if (count > 0) rest->taken += static_cast<std::uint64_t>(count);
  if (count <= 0 || rest->taken > mostTaken) rests_.erase(rest);
}

void OfferReader::take(std::size_t count, SteadyTime now) {
  if (excess_ > 0) {
    excess_ += count;
    return;
  }
  bytes_.append(buffer_, 0, count);
  stepDeadline_ = now + patience_.piece;
  if (bytes_.size() <= wish_.limits.of(type_)) return;
  excess_ = bytes_.size();
  bytes_ = {};
  stepDeadline_ = now + patience_.excess;
}

void OfferReader::ended(SteadyTime now) {
  pipe_.reset();
  if (excess_ > 0) return fetched({.type = type_, .bytes = {}, .excess = excess_}, now);
  // Without a byte the owner has refused: it has no other way to say so.
  if (bytes_.empty()) return fetched({.type = type_, .bytes = {}}, now);
  fetched({.type = type_, .bytes = std::move(bytes_)}, now);
}

std::optional<SteadyTime> OfferReader::deadline() const {
  if (!isReading()) return std::nullopt;
  return std::min(stepDeadline_, wholeDeadline_);
}

void OfferReader::checkDeadline(SteadyTime now) {
  if (!isReading() || now < std::min(stepDeadline_, wholeDeadline_)) return;
  const bool hasBegun = !bytes_.empty() || excess_ > 0;
  leave();
  if (!hasBegun && !hasAskedTwice_ && now < wholeDeadline_) {
    hasAskedTwice_ = true;
    return ask(patience_.again, now);
  }
  if (excess_ > 0) return fetched({.type = type_, .bytes = {}, .excess = excess_}, now);
  fetched({.type = type_, .bytes = {}, .isLate = true}, now);
}

void OfferReader::ask(std::chrono::milliseconds patience, SteadyTime now) {
  stepDeadline_ = now + patience;
  pipe_ = receive_(type_);
  if (!pipe_) fetched({.type = type_, .bytes = {}, .isLate = true}, now);
}

void OfferReader::fetched(Fetched attempt, SteadyTime now) {
  bytes_ = {};
  excess_ = 0;
  fetched_.push_back(std::move(attempt));
  fetchNext(now);
}

void OfferReader::fetchNext(SteadyTime now) {
  auto type = now < wholeDeadline_ ? nextType(types_, fetched_, wish_.wantsPicture) : std::nullopt;
  if (!type) return finish();
  type_ = std::move(*type);
  hasAskedTwice_ = false;
  ask(patience_.data, now);
}

void OfferReader::finish() {
  PasteboardOutcome outcome{std::move(types_), contentsOf(std::move(fetched_))};
  const auto done = std::move(done_);
  cancel();
  if (done) done(std::move(outcome));
}

}  // namespace ambrel
