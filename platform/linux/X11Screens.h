#pragma once
// Screens from the toolkit, reserved edges from the struts of other programs' windows. Works without X11 too; the
// toolkit's own reckoning of the visible frame is used then.

#include <QObject>
#include <cstdint>

#include "platform/Screens.h"
#include "platform/linux/X11Connection.h"

class QScreen;

namespace ambrel {

class X11Screens : public QObject, public Screens {
 public:
  explicit X11Screens(X11Connection* connection);

  std::vector<ScreenInfo> list() const override { return list_; }
  double mainHeight() const override;
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

 private:
  void follow(QScreen* screen);
  void plan();
  void refresh();
  std::vector<ScreenInfo> read() const;

  X11Connection* connection_;
  std::vector<ScreenInfo> list_;
  bool isPlanned_ = false;
  std::function<void()> handler_;
  X11Watch watch_;
};

// Whether a connector of this name belongs to a panel of the computer itself.
bool isBuiltinConnector(const std::string& name);

}  // namespace ambrel
