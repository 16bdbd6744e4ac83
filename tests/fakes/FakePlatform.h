#pragma once
// Stand-ins for the seam: they record what was asked of them, and the test plays the desktop.

#include <QRect>
#include <QWindow>
#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/DesktopTheme.h"
#include "platform/HotKeys.h"
#include "platform/Notifications.h"
#include "platform/Pointer.h"
#include "platform/ScreenCapture.h"
#include "platform/Screens.h"
#include "platform/SessionService.h"
#include "platform/WindowStyle.h"
#include "platform/Workspace.h"
#include "tests/fakes/Told.h"

namespace ambrel {

class FakePointer : public PointerMonitor {
 public:
  std::optional<Point> location() const override {
    ++looks;
    return at;
  }
  bool isPressed() const override { return pressed; }
  bool wakeOnMove(std::function<void()> onMove) override {
    if (!canWake) return false;
    ++arms;
    waiting_ = std::move(onMove);
    return true;
  }
  void setPressHandler(std::function<void()> onPress) override { this->onPress = std::move(onPress); }
  void setStrips(std::vector<Rect> strips) override { this->strips = std::move(strips); }
  void stopWaiting() override { waiting_ = nullptr; }

  bool isWaiting() const { return waiting_ != nullptr; }
  // The user moves the mouse.
  void move(Point to) {
    at = to;
    if (auto onMove = std::exchange(waiting_, nullptr)) onMove();
  }

  std::optional<Point> at = Point{};
  bool canWake = true;
  bool pressed = false;
  std::function<void()> onPress;
  std::vector<Rect> strips;
  int arms = 0;
  mutable int looks = 0;

 private:
  std::function<void()> waiting_;
};

class FakeScreens : public Told<Screens> {
 public:
  std::vector<ScreenInfo> list() const override { return screens; }
  double mainHeight() const override { return screens.empty() ? 0 : screens.front().frame.height; }

  void change(std::vector<ScreenInfo> to) {
    Told::change([&] { screens = std::move(to); });
  }

  std::vector<ScreenInfo> screens{{"FAKE-1", {0, 0, 1600, 900}, {0, 0, 1600, 900}, false}};
};

class FakeScreenCapture : public ScreenCapture {
 public:
  void capture(std::function<void(ScreenPicture)> done) override { done(next); }

  ScreenPicture next;
};

class FakeWorkspace : public Workspace {
 public:
  std::vector<std::string> frontmost() const override { return inFront; }
  std::vector<std::string> agentsInFront() const override { return inFront; }
  void setFrontmostHandler(std::function<void()> handler) override { handler_ = std::move(handler); }
  bool isRunning(std::string_view bundleID) const override { return running.contains(bundleID); }
  bool activate(std::string_view bundleID) override {
    if (!isRunning(bundleID)) return false;
    activated.emplace_back(bundleID);
    return true;
  }
  bool activateProcess(int pid) override {
    if (!processesWithWindows.contains(pid)) return false;
    activatedProcesses.push_back(pid);
    return true;
  }
  std::string nameOf(std::string_view bundleID) const override {
    const auto found = names.find(bundleID);
    return found == names.end() ? std::string(bundleID) : found->second;
  }
  std::string iconOf(std::string_view bundleID) const override {
    const auto found = icons.find(bundleID);
    return found == icons.end() ? std::string() : found->second;
  }
  void activateLast() override { ++givenBack; }
  bool open(std::string_view bundleID) override {
    if (!installed.contains(bundleID)) return false;
    opened.emplace_back(bundleID);
    return true;
  }

  void bringToFront(std::vector<std::string> ids) {
    inFront = std::move(ids);
    if (handler_) handler_();
  }

  std::vector<std::string> inFront;
  std::map<std::string, std::string, std::less<>> names, icons;
  std::set<std::string, std::less<>> running;
  std::set<std::string, std::less<>> installed;
  std::vector<std::string> activated;
  std::set<int> processesWithWindows;
  std::vector<int> activatedProcesses;
  std::vector<std::string> opened;
  int givenBack = 0;

 private:
  std::function<void()> handler_;
};

// Answers as the test says, by `answers`.
class FakeKeyKeeper : public KeyKeeper {
 public:
  std::string desktop() const override { return name; }
  void ask(std::vector<OfferedKey> keys) override {
    asked = std::move(keys);
    answers(asked.empty() ? Answer::none : Answer::waiting);
  }
  Answer answer() const override { return answered; }
  std::string trigger(const std::string& id) const override {
    const auto found = triggers.find(id);
    return found == triggers.end() ? std::string() : found->second;
  }
  bool canConfigure() const override { return false; }
  void configure() override {}
  void setChangeHandler(std::function<void()> changed) override { handler = std::move(changed); }
  void answers(Answer answer) {
    answered = answer;
    if (handler) handler();
  }

  std::string name;
  std::vector<OfferedKey> asked;
  std::map<std::string, std::string> triggers;
  Answer answered = Answer::none;
  std::function<void()> handler;
};

class FakeHotKeys : public HotKeys {
 public:
  HotKeyResult add(const KeyCombination& combination, std::function<void()> action) override {
    if (desktop) return HotKeyResult::notAvailable;
    const auto has = [&](const auto& key) { return key.first == combination; };
    if (std::ranges::find(takenByOthers, combination) != takenByOthers.end() || std::ranges::any_of(keys, has))
      return HotKeyResult::taken;
    keys.emplace_back(combination, std::move(action));
    return HotKeyResult::registered;
  }

  KeyKeeper* keeper() const override { return desktop.get(); }

  void remove(const KeyCombination& combination) override {
    std::erase_if(keys, [&](const auto& key) { return key.first == combination; });
  }

  // False when nobody has registered the combination.
  bool press(const KeyCombination& combination) {
    for (const auto& [registered, action] : keys) {
      if (registered == combination) {
        // A copy: it may remove the combination.
        const auto run = action;
        run();
        return true;
      }
    }
    return false;
  }

  std::vector<KeyCombination> takenByOthers;
  std::unique_ptr<FakeKeyKeeper> desktop;  // that keeps them all; null: none
  std::vector<std::pair<KeyCombination, std::function<void()>>> keys;
};

class FakeNotifications : public Notifications {
 public:
  void requestAuthorization(std::function<void(bool)> done) override {
    ++requests;
    if (done) done(isAvailable);
  }
  void post(const Notification& notification) override { posted.push_back(notification); }
  void withdraw(std::string_view identifier) override { withdrawn.emplace_back(identifier); }
  void setActivationHandler(std::function<void(const std::string&)> handler) override {
    activation_ = std::move(handler);
  }
  void setAvailabilityHandler(std::function<void(bool)> handler) override { availability_ = std::move(handler); }

  void setActionHandler(std::function<void(const std::string&, const std::string&)> handler) override {
    action_ = std::move(handler);
  }

  void setDismissalHandler(std::function<void(const std::string&)> handler) override {
    dismissal_ = std::move(handler);
  }

  void dismiss(const std::string& identifier) {
    if (dismissal_) dismissal_(identifier);
  }
  void press(const std::string& identifier, const std::string& action) {
    if (action_) action_(identifier, action);
  }
  void click(const std::string& identifier) {
    if (activation_) activation_(identifier);
  }
  void becomeAvailable(bool is) {
    isAvailable = is;
    if (availability_) availability_(is);
  }
  // The identifiers of what was posted.
  std::vector<std::string> told() const {
    std::vector<std::string> identifiers;
    for (const Notification& each : posted) identifiers.push_back(each.identifier);
    return identifiers;
  }

  bool isAvailable = true;
  int requests = 0;
  std::vector<Notification> posted;
  std::vector<std::string> withdrawn;

 private:
  std::function<void(const std::string&)> activation_, dismissal_;
  std::function<void(const std::string&, const std::string&)> action_;
  std::function<void(bool)> availability_;
};

class FakeWindowStyle : public WindowStyle {
 public:
  void prepare(QWindow& window, WindowRole role) override { prepared.emplace_back(&window, role); }
  void place(QWindow& window, const QRect& frame) override { window.setGeometry(frame); }
  void setTakesKeys(QWindow& window, bool takesKeys) override {
    window.setFlag(Qt::WindowDoesNotAcceptFocus, !takesKeys);
    window.setProperty("_q_showWithoutActivating", !takesKeys);
  }
  void activate(QWindow& window, std::function<void(bool)> done) override {
    setTakesKeys(window, grantsKeys);
    if (grantsKeys) window.requestActivate();
    if (done) done(grantsKeys);
  }
  void giveBack(QWindow& window) override { givenBack.push_back(&window); }
  bool placesWindows() const override { return placing; }
  bool isCompositing() const override { return compositing; }
  void setCompositingHandler(std::function<void(bool)> handler) override { handler_ = std::move(handler); }
  void setRoundedMask(QWindow&, double x, double y, double width, double height, double radius) override {
    masks.push_back({Rect{x, y, width, height}, radius});
  }

  void setInputRect(QWindow&, double x, double y, double width, double height) override {
    inputs.push_back({x, y, width, height});
  }
  void setShadowMargin(QWindow&, double margin) override { margins.push_back(margin); }
  bool isFramed(const QWindow&) const override { return false; }
  bool isPressed() const override { return false; }
  void endMove(QWindow&) override {}

  void changeCompositing(bool is) {
    compositing = is;
    if (handler_) handler_(is);
  }

  bool placing = true;
  bool compositing = true;
  bool grantsKeys = true;
  std::vector<QWindow*> givenBack;
  std::vector<std::pair<QWindow*, WindowRole>> prepared;
  std::vector<std::pair<Rect, double>> masks;
  std::vector<Rect> inputs;
  std::vector<double> margins;

 private:
  std::function<void(bool)> handler_;
};

class FakeDesktopTheme : public Told<DesktopTheme> {
 public:
  std::string name() const override { return theme; }
  void change(std::string to) {
    Told::change([&] { theme = std::move(to); });
  }

  std::string theme;
};

class FakeSessionService : public SessionService {
 public:
  SessionRole start(const std::optional<Wish>& wish) override {
    started.push_back(wish);
    return role;
  }
  void setWishHandler(std::function<void(const Wish&)> handler) override { handler_ = std::move(handler); }

  void ask(const Wish& wish) {
    if (handler_) handler_(wish);
  }

  SessionRole role = SessionRole::owner;
  std::vector<std::optional<Wish>> started;

 private:
  std::function<void(const Wish&)> handler_;
};

}  // namespace ambrel
