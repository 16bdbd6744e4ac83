#pragma once
// Window types by the toolkit, the compositor by its selection (_NET_WM_CM_Sn).

#include "platform/WindowStyle.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11WindowManager.h"

namespace ambrel {

class X11WindowStyle : public WindowStyle {
 public:
  // Without a connection windows are only given their flags.
  explicit X11WindowStyle(X11Connection* connection);

  void prepare(QWindow& window, WindowRole role) override;
  void place(QWindow& window, const QRect& frame) override;
  void setTakesKeys(QWindow& window, bool takesKeys) override;
  void activate(QWindow& window, std::function<void(bool isActive)> done = {}) override;
  void giveBack(QWindow& window) override;
  bool placesWindows() const override { return true; }
  bool isCompositing() const override { return isCompositing_; }
  void setCompositingHandler(std::function<void(bool isCompositing)> handler) override;
  void setRoundedMask(QWindow& window, double x, double y, double width, double height, double radius) override;
  void setInputRect(QWindow& window, double x, double y, double width, double height) override;
  void setShadowMargin(QWindow& window, double margin) override;
  bool isFramed(const QWindow& window) const override;
  bool isPressed() const override;
  void endMove(QWindow& window) override;

 private:
  bool askForCompositor() const;
  void refresh();

  X11Connection* connection_;
  X11WindowManager manager_;
  xcb_atom_t selection_ = XCB_ATOM_NONE;
  int firstEvent_ = 0;  // of XFixes
  bool isCompositing_ = false;
  std::function<void(bool)> handler_;
  X11Watch watch_;
};

}  // namespace ambrel
