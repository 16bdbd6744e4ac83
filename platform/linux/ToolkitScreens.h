#pragma once
// The screens that the toolkit knows. What is free of each is for the window system to say.

#include <QObject>
#include <string>

#include "core/workspace/Struts.h"
#include "platform/Screens.h"

class QScreen;

namespace ambrel {

class ToolkitScreens : public QObject, public Screens {
 public:
  std::vector<ScreenInfo> list() const override { return list_; }
  double mainHeight() const override;
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

 protected:
  ToolkitScreens();
  // To be called at the end of the constructor of what is made of this.
  void begin() { list_ = read(); }
  // Reads again soon, and calls the handler when something is different then.
  void plan();

  // Before the screens are read one by one; false when the toolkit's are stand-ins and none is connected.
  virtual bool look(const QList<QScreen*>& screens) = 0;
  // What others keep of its edges, in points. May add what else is known.
  virtual Insets reservedOn(const QScreen& screen, ScreenInfo& info) = 0;

 private:
  void follow(QScreen* screen);
  void refresh();
  std::vector<ScreenInfo> read();

  std::vector<ScreenInfo> list_;
  bool isPlanned_ = false;
  std::function<void()> handler_;
};

// Whether a connector of this name belongs to a panel of the computer itself.
bool isBuiltinConnector(const std::string& name);

}  // namespace ambrel
