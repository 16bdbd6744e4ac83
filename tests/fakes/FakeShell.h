#pragma once
// The program around an area, as the test plays it.

#include <QStringList>

#include "app/base/Area.h"

namespace ambrel {

class FakeShell : public Shell {
 public:
  void showToast(const QString& title, const QString& /*detail*/, const QString& /*symbol*/) override {
    toasts << title;
  }
  void copyText(const QString& text) override { copied << text; }
  bool isOnBar(DockWidget widget) const override { return onBar.contains(widget); }
  bool isInAnyProfile(DockWidget widget) const override { return onBar.contains(widget); }
  void activate(DockWidget widget) override { activated.push_back(widget); }

  std::set<DockWidget> onBar;
  QStringList toasts, copied;
  std::vector<DockWidget> activated;
};

}  // namespace ambrel
