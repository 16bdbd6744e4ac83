#pragma once
// Lets several watch one pointer, each as if it were alone.

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Pointer.h"

namespace ambrel {

// Outlives the monitors that it gave out.
class PointerRelay {
 public:
  explicit PointerRelay(PointerMonitor& pointer) : pointer_(pointer) {}
  ~PointerRelay() { pointer_.stopWaiting(); }
  PointerRelay(const PointerRelay&) = delete;
  PointerRelay& operator=(const PointerRelay&) = delete;

  std::unique_ptr<PointerMonitor> monitor() {
    auto port = std::make_unique<Port>(*this);
    ports_.push_back(port.get());
    return port;
  }

 private:
  class Port : public PointerMonitor {
   public:
    explicit Port(PointerRelay& relay) : relay_(relay) {}
    ~Port() override {
      std::erase(relay_.ports_, this);
      relay_.update();
      relay_.updateStrips();
    }
    std::optional<Point> location() const override { return relay_.pointer_.location(); }
    bool isPressed() const override { return relay_.pointer_.isPressed(); }
    bool wakeOnMove(std::function<void()> onMove) override {
      this->onMove = std::move(onMove);
      return relay_.update();
    }
    // There is one for all.
    void setPressHandler(std::function<void()> onPress) override {
      relay_.pointer_.setPressHandler(std::move(onPress));
    }
    void setStrips(std::vector<Rect> strips) override {
      this->strips = std::move(strips);
      relay_.updateStrips();
    }
    void stopWaiting() override {
      onMove = nullptr;
      relay_.update();
    }

    std::function<void()> onMove;
    std::vector<Rect> strips;

   private:
    PointerRelay& relay_;
  };

  bool update() {
    bool isWanted = false;
    for (const Port* port : ports_) isWanted = isWanted || port->onMove;
    if (isWanted) return pointer_.wakeOnMove([this] { moved(); });
    pointer_.stopWaiting();
    return true;
  }
  void updateStrips() {
    std::vector<Rect> all;
    for (const Port* port : ports_) all.insert(all.end(), port->strips.begin(), port->strips.end());
    pointer_.setStrips(std::move(all));
  }
  void moved() {
    // Whoever is called may ask again.
    std::vector<std::function<void()>> waiting;
    for (Port* port : ports_)
      if (port->onMove) waiting.push_back(std::exchange(port->onMove, nullptr));
    for (const auto& onMove : waiting) onMove();
  }

  PointerMonitor& pointer_;
  std::vector<Port*> ports_;
};

}  // namespace ambrel
