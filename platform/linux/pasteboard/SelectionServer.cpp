#include "platform/linux/pasteboard/SelectionServer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "platform/linux/pasteboard/ServedForms.h"

namespace ambrel {
namespace {

constexpr std::size_t mostPieceSize = 256u << 10;
constexpr std::size_t mostTransfers = 16;
constexpr std::size_t mostPairs = 64;
constexpr std::chrono::seconds transferPatience{10};

}  // namespace

SelectionServer::SelectionServer(SelectionConnection& connection) : connection_(connection) {
  const std::size_t mostRequest = std::size_t{xcb_get_maximum_request_length(connection.xcb())} * 4;
  constexpr std::size_t requestHead = 64;
  pieceSize_ = std::min(mostPieceSize, mostRequest - requestHead);
}

void SelectionServer::offer(std::vector<Representation> representations, bool isRestoring) {
  pending_ = std::move(representations);
  isRestoring_ = isRestoring;
  // A selection is taken at a server time, which a property change reports.
  xcb_change_property(connection_.xcb(), XCB_PROP_MODE_APPEND, connection_.window(), connection_.atoms().clock,
                      XCB_ATOM_INTEGER, 32, 0, nullptr);
}

void SelectionServer::acquire(xcb_timestamp_t time) {
  const auto offer = makeOffer(time);
  pending_.reset();
  const xcb_atom_t clipboard = connection_.atoms().clipboard;
  // Between the look and the taking nobody else may take it.
  if (isRestoring_) xcb_grab_server(connection_.xcb());
  hasYielded_ = isRestoring_ && connection_.owner(clipboard) != XCB_WINDOW_NONE;
  if (hasYielded_) {
    xcb_ungrab_server(connection_.xcb());
    return;
  }
  if (!offer) clearTime_ = time;
  xcb_set_selection_owner(connection_.xcb(), offer ? connection_.window() : xcb_window_t{XCB_WINDOW_NONE}, clipboard,
                          time);
  if (isRestoring_) xcb_ungrab_server(connection_.xcb());
  offer_ = offer && connection_.owner(clipboard) == connection_.window() ? offer : nullptr;
}

std::shared_ptr<const SelectionServer::Offer> SelectionServer::makeOffer(xcb_timestamp_t time) const {
  if (pending_->empty()) return nullptr;
  const SelectionAtoms& atoms = connection_.atoms();
  auto offer = std::make_shared<Offer>();
  offer->since = time;
  offer->targets = {atoms.targets, atoms.multiple, atoms.timestamp, atoms.saveTargets};
  for (ServedForm& form : servedForms(*pending_)) {
    const xcb_atom_t target = connection_.atom(form.target);
    offer->targets.push_back(target);
    offer->dataByTarget.emplace(target,
                                std::make_shared<const Data>(Data{connection_.atom(form.type), std::move(form.bytes)}));
  }
  return offer;
}

void SelectionServer::handle(const xcb_selection_request_event_t& event, SteadyTime now) {
  xcb_selection_notify_event_t reply{};
  reply.response_type = XCB_SELECTION_NOTIFY;
  reply.time = event.time;
  reply.requestor = event.requestor;
  reply.selection = event.selection;
  reply.target = event.target;
  // Clients older than the conventions name no property and mean one of the target's name.
  const xcb_atom_t property = event.property == XCB_ATOM_NONE ? event.target : event.property;
  const bool isOurs = offer_ && event.selection == connection_.atoms().clipboard &&
                      event.requestor != connection_.window() &&
                      (event.time == XCB_CURRENT_TIME || event.time >= offer_->since);
  if (isOurs && answer(event.requestor, event.target, property, now)) reply.property = property;
  // Events on the wire have 32 bytes, whatever the structure has.
  std::array<char, 32> wire{};
  std::memcpy(wire.data(), &reply, sizeof reply);
  xcb_send_event(connection_.xcb(), 0, event.requestor, XCB_EVENT_MASK_NO_EVENT, wire.data());
}

bool SelectionServer::answer(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property, SteadyTime now) {
  const SelectionAtoms& atoms = connection_.atoms();
  xcb_connection_t* const xcb = connection_.xcb();
  if (target == atoms.multiple) return answerMultiple(requestor, property, now);
  if (target == atoms.targets) {
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(offer_->targets.size()), offer_->targets.data());
    return true;
  }
  if (target == atoms.timestamp) {
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, requestor, property, XCB_ATOM_INTEGER, 32, 1, &offer_->since);
    return true;
  }
  if (target == atoms.saveTargets) {
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, requestor, property, atoms.null, 32, 0, nullptr);
    return true;
  }
  const auto found = offer_->dataByTarget.find(target);
  if (found == offer_->dataByTarget.end()) return false;
  const auto& data = found->second;
  if (data->bytes->size() > pieceSize_) {
    beginTransfer(requestor, property, data, now);
    return true;
  }
  xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, requestor, property, data->type, 8,
                      static_cast<std::uint32_t>(data->bytes->size()), data->bytes->data());
  return true;
}

bool SelectionServer::answerMultiple(xcb_window_t requestor, xcb_atom_t property, SteadyTime now) {
  xcb_connection_t* const xcb = connection_.xcb();
  const XReply<xcb_get_property_reply_t> list(xcb_get_property_reply(
      xcb, xcb_get_property(xcb, 0, requestor, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 2 * mostPairs), nullptr));
  if (!list || list->format != 32) return false;
  std::vector<xcb_atom_t> pairs(static_cast<std::size_t>(xcb_get_property_value_length(list.get())) /
                                sizeof(xcb_atom_t));
  if (pairs.size() < 2) return false;
  std::memcpy(pairs.data(), xcb_get_property_value(list.get()), pairs.size() * sizeof(xcb_atom_t));
  for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
    const bool isNested = pairs[i] == connection_.atoms().multiple;
    if (isNested || !answer(requestor, pairs[i], pairs[i + 1], now)) pairs[i + 1] = XCB_ATOM_NONE;
  }
  xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, requestor, property, connection_.atoms().atomPair, 32,
                      static_cast<std::uint32_t>(pairs.size()), pairs.data());
  return true;
}

void SelectionServer::beginTransfer(xcb_window_t requestor, xcb_atom_t property, std::shared_ptr<const Data> data,
                                    SteadyTime now) {
  // A second request for the same property replaces the first.
  for (auto one = transfers_.begin(); one != transfers_.end();)
    one = one->requestor == requestor && one->property == property ? endTransfer(one) : std::next(one);
  if (transfers_.size() >= mostTransfers) endTransfer(transfers_.begin());
  xcb_connection_t* const xcb = connection_.xcb();
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(xcb, requestor, XCB_CW_EVENT_MASK, &events);
  const auto size = static_cast<std::uint32_t>(data->bytes->size());
  xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, requestor, property, connection_.atoms().incr, 32, 1, &size);
  transfers_.push_back({requestor, property, std::move(data), 0, now + transferPatience});
}

std::list<SelectionServer::Transfer>::iterator SelectionServer::endTransfer(std::list<Transfer>::iterator transfer) {
  const xcb_window_t requestor = transfer->requestor;
  const auto next = transfers_.erase(transfer);
  if (std::ranges::find(transfers_, requestor, &Transfer::requestor) == transfers_.end()) {
    const std::uint32_t none = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(connection_.xcb(), requestor, XCB_CW_EVENT_MASK, &none);
  }
  return next;
}

void SelectionServer::handle(const xcb_selection_clear_event_t& event) {
  if (event.selection == connection_.atoms().clipboard && offer_ && event.time >= offer_->since) offer_.reset();
}

void SelectionServer::handle(const xcb_property_notify_event_t& event, SteadyTime now) {
  if (event.window == connection_.window()) {
    if (event.atom == connection_.atoms().clock && pending_) acquire(event.time);
    return;
  }
  if (event.state != XCB_PROPERTY_DELETE) return;
  const auto transfer = std::ranges::find_if(
      transfers_, [&](const Transfer& one) { return one.requestor == event.window && one.property == event.atom; });
  if (transfer == transfers_.end()) return;
  const std::string_view rest = std::string_view(*transfer->data->bytes).substr(transfer->sent);
  const std::string_view piece = rest.substr(0, pieceSize_);
  // A piece without bytes ends the transfer.
  xcb_change_property(connection_.xcb(), XCB_PROP_MODE_REPLACE, transfer->requestor, transfer->property,
                      transfer->data->type, 8, static_cast<std::uint32_t>(piece.size()), piece.data());
  transfer->sent += piece.size();
  transfer->deadline = now + transferPatience;
  if (piece.empty()) endTransfer(transfer);
}

void SelectionServer::handle(const xcb_destroy_notify_event_t& event) {
  std::erase_if(transfers_, [&](const Transfer& one) { return one.requestor == event.window; });
}

std::optional<SteadyTime> SelectionServer::deadline() const {
  if (transfers_.empty()) return std::nullopt;
  return std::ranges::min(transfers_, {}, &Transfer::deadline).deadline;
}

void SelectionServer::checkDeadline(SteadyTime now) {
  for (auto one = transfers_.begin(); one != transfers_.end();)
    one = now >= one->deadline ? endTransfer(one) : std::next(one);
}

bool SelectionServer::askManagerToSave() {
  const SelectionAtoms& atoms = connection_.atoms();
  if (!offer_ || connection_.owner(atoms.clipboardManager) == XCB_WINDOW_NONE) return false;
  xcb_delete_property(connection_.xcb(), connection_.window(), atoms.saveTargets);
  xcb_convert_selection(connection_.xcb(), connection_.window(), atoms.clipboardManager, atoms.saveTargets,
                        atoms.saveTargets, offer_->since);
  return true;
}

}  // namespace ambrel
