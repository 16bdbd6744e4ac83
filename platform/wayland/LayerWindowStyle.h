#pragma once
// The bar, its panels and its messages on a layer of the compositor's; the program's own windows as others have theirs.

#include "platform/wayland/LayerWindow.h"

namespace ambrel {

class LayerWindowStyle : public WindowStyle {
 public:
  explicit LayerWindowStyle(OriginOf originOf) : originOf_(std::move(originOf)) {}

  void prepare(QWindow& window, WindowRole role) override;
  void place(QWindow& window, const QRect& frame) override;
  void setTakesKeys(QWindow& window, bool takesKeys) override;
  void activate(QWindow& window, std::function<void(bool isActive)> done = {}) override;
  void giveBack(QWindow& window) override;
  bool placesWindows() const override { return false; }
  bool isCompositing() const override { return true; }
  void setCompositingHandler(std::function<void(bool isCompositing)>) override {}
  void setRoundedMask(QWindow&, double, double, double, double, double) override {}
  void setInputRect(QWindow& window, double x, double y, double width, double height) override;
  void setShadowMargin(QWindow&, double) override {}
  bool isFramed(const QWindow&) const override { return false; }
  // The compositor ends by itself what it moves.
  bool isPressed() const override { return false; }
  void endMove(QWindow&) override {}

 private:
  OriginOf originOf_;
};

}  // namespace ambrel
