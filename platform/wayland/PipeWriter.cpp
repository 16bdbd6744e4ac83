#include "platform/wayland/PipeWriter.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace ambrel {
namespace {

constexpr std::size_t mostTransfers = 16;
constexpr std::chrono::seconds transferPatience{10};

}  // namespace

void PipeWriter::add(std::shared_ptr<const std::string> bytes, FileDescriptor to, SteadyTime now) {
  fcntl(to.get(), F_SETFL, O_NONBLOCK);
  if (transfers_.size() >= mostTransfers) transfers_.pop_front();
  transfers_.push_back({std::move(to), std::move(bytes), now + transferPatience});
}

void PipeWriter::addTo(std::vector<pollfd>& files) const {
  for (const Transfer& one : transfers_) files.push_back({one.to.get(), POLLOUT, 0});
}

void PipeWriter::handle(int descriptor, SteadyTime now) {
  const auto transfer = std::ranges::find(transfers_, descriptor, [](const Transfer& one) { return one.to.get(); });
  if (transfer == transfers_.end()) return;
  const std::string_view rest = std::string_view(*transfer->bytes).substr(transfer->sent);
  const ssize_t count = ::write(descriptor, rest.data(), rest.size());
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count > 0) transfer->sent += static_cast<std::size_t>(count);
  transfer->deadline = now + transferPatience;
  if (count < 0 || transfer->sent == transfer->bytes->size()) transfers_.erase(transfer);
}

std::optional<SteadyTime> PipeWriter::deadline() const {
  const auto first = std::ranges::min_element(transfers_, {}, &Transfer::deadline);
  return first == transfers_.end() ? std::nullopt : std::optional(first->deadline);
}

void PipeWriter::checkDeadline(SteadyTime now) {
  transfers_.remove_if([now](const Transfer& one) { return now >= one.deadline; });
}

}  // namespace ambrel
