#pragma once
// DataControl over one of the two protocols. They are the same but for their names.

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <list>
#include <unistd.h>
#include <wayland-client-protocol.h>

#include "platform/wayland/DataControl.h"

// Declares a structure with the names of the protocol whose interfaces begin with `prefix`.
#define AMBREL_DATA_CONTROL_NAMES(Name, prefix)                                     \
  struct Name {                                                                     \
    using Manager = prefix##_manager_v1;                                            \
    using Device = prefix##_device_v1;                                              \
    using Source = prefix##_source_v1;                                              \
    using Offer = prefix##_offer_v1;                                                \
    using DeviceListener = prefix##_device_v1_listener;                             \
    using SourceListener = prefix##_source_v1_listener;                             \
    using OfferListener = prefix##_offer_v1_listener;                               \
    static constexpr const wl_interface& interface = prefix##_manager_v1_interface; \
    static constexpr auto destroyManager = prefix##_manager_v1_destroy;             \
    static constexpr auto makeDevice = prefix##_manager_v1_get_data_device;         \
    static constexpr auto makeSource = prefix##_manager_v1_create_data_source;      \
    static constexpr auto destroyDevice = prefix##_device_v1_destroy;               \
    static constexpr auto select = prefix##_device_v1_set_selection;                \
    static constexpr auto listenToDevice = prefix##_device_v1_add_listener;         \
    static constexpr auto destroySource = prefix##_source_v1_destroy;               \
    static constexpr auto addType = prefix##_source_v1_offer;                       \
    static constexpr auto listenToSource = prefix##_source_v1_add_listener;         \
    static constexpr auto destroyOffer = prefix##_offer_v1_destroy;                 \
    static constexpr auto receive = prefix##_offer_v1_receive;                      \
    static constexpr auto listenToOffer = prefix##_offer_v1_add_listener;           \
  }

namespace ambrel {

template <typename Names>
class DataControlOver final : public DataControl {
 public:
  static std::unique_ptr<DataControl> open(WaylandConnection& connection) {
    auto* const manager = static_cast<typename Names::Manager*>(connection.bind(Names::interface, 1));
    if (manager == nullptr) return nullptr;
    auto* const seat = static_cast<wl_seat*>(connection.bind(wl_seat_interface, 1));
    if (seat == nullptr) {
      Names::destroyManager(manager);
      return nullptr;
    }
    return std::unique_ptr<DataControl>(new DataControlOver(manager, seat));
  }

  ~DataControlOver() override {
    for (const Own& own : own_) Names::destroySource(own.source);
    for (const Announced& one : announced_) Names::destroyOffer(one.offer);
    if (device_ != nullptr) Names::destroyDevice(device_);
    Names::destroyManager(manager_);
    wl_seat_destroy(seat_);
  }

  const std::vector<std::string>* types() const override { return selected_ ? &selected_->types : nullptr; }

  FileDescriptor receive(const std::string& type) override {
    std::array<int, 2> ends{-1, -1};
    if (!selected_ || pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return {};
    FileDescriptor reading(ends[0]);
    const FileDescriptor writing(ends[1]);
    // The owner may rely on writing as it does to its other files.
    fcntl(writing.get(), F_SETFL, 0);
    // A large copy then takes fewer turns. It may be refused.
    fcntl(writing.get(), F_SETPIPE_SZ, 1 << 20);
    Names::receive(selected_->offer, type.c_str(), writing.get());
    return reading;
  }

  void offer(const std::vector<std::string>& types, Asked asked) override {
    if (device_ == nullptr) return;
    current_ = &own_.emplace_back(Own{this, Names::makeSource(manager_), std::move(asked)});
    static constexpr typename Names::SourceListener listener{
        .send = [](void* own, auto*, const char* type,
                   int descriptor) { static_cast<Own*>(own)->asked(type, FileDescriptor(descriptor)); },
        .cancelled = [](void* own, auto*) { static_cast<Own*>(own)->control->cancelled(*static_cast<Own*>(own)); },
    };
    Names::listenToSource(current_->source, &listener, current_);
    for (const std::string& type : types) Names::addType(current_->source, type.c_str());
    Names::select(device_, current_->source);
  }

  void clear() override {
    current_ = nullptr;
    if (device_ != nullptr) Names::select(device_, nullptr);
  }

  bool isOwner() const override { return current_ != nullptr; }

 private:
  // A hundred types are ordinary for an office program.
  static constexpr std::size_t mostTypes = 1024;

  // What a program offers.
  struct Announced {
    typename Names::Offer* offer;
    std::vector<std::string> types;
  };
  // What we offer, until the compositor says that it is over.
  struct Own {
    DataControlOver* control;
    typename Names::Source* source;
    Asked asked;
  };

  DataControlOver(typename Names::Manager* manager, wl_seat* seat)
      : manager_(manager), seat_(seat), device_(Names::makeDevice(manager, seat)) {
    static constexpr typename Names::DeviceListener listener{
        .data_offer = [](void* self, auto*, auto* offer) { of(self).announced(offer); },
        .selection = [](void* self, auto*, auto* offer) { of(self).selected(offer); },
        .finished = [](void* self, auto*) { of(self).finished(); },
        // What is marked with the mouse is no copy.
        .primary_selection = [](void* self, auto*, auto* offer) { of(self).drop(offer); },
    };
    Names::listenToDevice(device_, &listener, this);
  }

  static DataControlOver& of(void* self) { return *static_cast<DataControlOver*>(self); }

  void announced(typename Names::Offer* offer) {
    Announced& made = announced_.emplace_back(Announced{offer, {}});
    static constexpr typename Names::OfferListener listener{.offer = [](void* data, auto*, const char* type) {
      auto& types = static_cast<Announced*>(data)->types;
      if (types.size() < mostTypes) types.emplace_back(type);
    }};
    Names::listenToOffer(offer, &listener, &made);
  }

  void selected(typename Names::Offer* offer) {
    if (selected_) drop(selected_->offer);
    const auto found = std::ranges::find(announced_, offer, &Announced::offer);
    selected_ = found == announced_.end() ? nullptr : &*found;
    if (selectionChanged) selectionChanged();
  }

  void drop(typename Names::Offer* offer) {
    if (selected_ && selected_->offer == offer) selected_ = nullptr;
    if (std::erase_if(announced_, [&](const Announced& one) { return one.offer == offer; }) > 0)
      Names::destroyOffer(offer);
  }

  void cancelled(Own& own) {
    if (current_ == &own) current_ = nullptr;
    Names::destroySource(own.source);
    own_.remove_if([&](const Own& one) { return &one == &own; });
  }

  // The seat has gone: there is nothing to copy with any more.
  void finished() {
    Names::destroyDevice(device_);
    device_ = nullptr;
  }

  typename Names::Manager* manager_;
  wl_seat* seat_;
  typename Names::Device* device_;
  std::list<Announced> announced_;
  std::list<Own> own_;
  Announced* selected_ = nullptr;
  Own* current_ = nullptr;
};

}  // namespace ambrel
