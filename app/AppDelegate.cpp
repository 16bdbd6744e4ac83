#include "app/AppDelegate.h"

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <utility>

#include "app/agents/ProgramIcons.h"
#include "app/base/Background.h"
#include "app/base/ItemMaker.h"
#include "app/base/Log.h"
#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "app/clipboard/ClipPictures.h"
#include "app/clipboard/QuietClipboard.h"
#include "app/kit/KeyboardFocus.h"
#include "app/kit/Theme.h"
#include "app/model/SettingValue.h"
#include "core/base/Overloaded.h"
#include "core/base/StoredFile.h"

namespace ambrel {
namespace {

std::vector<DisplaySnapshot> displaysOf(const Screens& screens) {
  std::vector<DisplaySnapshot> displays;
  for (const ScreenInfo& screen : screens.list()) displays.push_back({screen.name, screen.isBuiltin});
  return displays;
}

std::set<DockWidget> widgetsOf(const Profile* profile) {
  std::set<DockWidget> widgets;
  if (!profile) return widgets;
  for (const DockItem& item : profile->items)
    if (const auto widget = fromName<DockWidget>(item.widget.value_or(""))) widgets.insert(*widget);
  return widgets;
}

Theme::Choice themeChoice(ThemeChoice choice) {
  switch (choice) {
    case ThemeChoice::system:
      return Theme::Choice::System;
    case ThemeChoice::dark:
      return Theme::Choice::Dark;
    case ThemeChoice::light:
      return Theme::Choice::Light;
  }
  return Theme::Choice::System;
}

QString idOf(DockWidget widget) { return toQString(nameOf(widget)); }

}  // namespace

// The order of construction is that of the members: the toast first, then the migration, before anything reads the
// defaults or the files, then settings, profiles and areas. The windows come with the launch.
AppDelegate::AppDelegate(Surroundings surroundings, Desktop desktop, QObject* parent)
    : QObject(parent),
      surroundings_(std::move(surroundings)),
      desktop_(desktop),
      toast_(later()),
      stored_(surroundings_),
      settings_(defaults_),
      model_(surroundings_.dataFolder / "profiles.json", defaults_, license_,
             [this] { return displaysOf(desktop_.screens); }),
      due_(desktop_.wallClock),
      services_{.surroundings = surroundings_,
                .desktop = desktop_,
                .defaults = defaults_,
                .settings = settings_,
                .license = license_,
                .model = model_,
                .engine = engine_,
                .due = due_,
                .toast = toast_,
                .shell = *this,
                .context = *this,
                .later = later()},
      areas_(services_),
      context_(model_, settings_) {
  prepareTheme();
  keepCopiesFromTextFields();
  SettingValue::lend(engine_, settings_);
  keep({&settings_, &model_, &license_, &context_});
  engine_.addImageProvider(QLatin1String(ProgramIcons::id), new ProgramIcons);
  engine_.addImageProvider(QString::fromLatin1(ClipPictures::id),
                           new ClipPictures(areas_.clipboard.clipboard()->picturesFolder()));
  for (Area* area : areas_) context_.addArea(*area);
}

// Windows end before the engine that drives them, and so do the items that they have let go of: what the engine has for
// all of them, such as the theme, is gone after it.
AppDelegate::~AppDelegate() {
  toast_.end();
  bar_.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void AppDelegate::prepareTheme() {
  engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
  Theme& theme = themeOf(engine_);
  theme.follow(appearance_);
  const auto takeName = [this] { appearance_.setThemeName(QString::fromStdString(desktop_.theme.name())); };
  desktop_.theme.setChangeHandler(takeName);
  takeName();
  const auto takeChoices = [this, &theme] {
    theme.setChoice(themeChoice(settings_.theme()));
    theme.setAlwaysReducesMotion(settings_.reduceMotion());
  };
  connect(&settings_, &AppSettings::themeChanged, this, takeChoices);
  connect(&settings_, &AppSettings::reduceMotionChanged, this, takeChoices);
  takeChoices();
  // From the start, so that the first key counts.
  keyboardFocusOf(engine_);
}

DelayedStep AppDelegate::later() {
  return [this](Seconds delay, std::function<void()> step) {
    QTimer::singleShot(std::chrono::round<std::chrono::milliseconds>(delay), this, std::move(step));
  };
}

void AppDelegate::every(Seconds interval, std::function<void()> action) {
  auto* timer = new QTimer(this);
  timer->setTimerType(Qt::CoarseTimer);
  connect(timer, &QTimer::timeout, this, std::move(action));
  timer->start(std::chrono::round<std::chrono::milliseconds>(interval));
}

void AppDelegate::launch() {
  const Background background = makeBackground(*this);
  background(
      [data = surroundings_.dataFolder, choices = surroundings_.defaultsFile.parent_path()] {
        sweepLeftovers(data);
        sweepLeftovers(choices);
      },
      [] {});
  followLicense();
  followWidgets();
  for (Area* area : areas_) area->tick(surroundings_.now());
  bar_ = std::make_unique<BarWindows>(services_, areas_, context_);
  followProblems();
  followDeletion();
  registerKeys();
  startTimers();
  followZone();
  followDefaults();
  handleNotifications();
  addBuddyOnce();
  startProServices();
  areas_.calendars.calendar()->start();
  tray_ = std::make_unique<TrayMenu>(
      model_, settings_, *areas_.agents.agents(), license_, themeOf(engine_), desktop_.tray,
      [this](MenuCommand command, const std::optional<UUID>& profile) { carryOut(command, profile); });
  firstRun();
  // The start is over by then.
  later()(Seconds(30), [this] { forgetUnused(engine_); });
}

void AppDelegate::followLicense() {
  const auto follow = [this] {
    QStringList locked;
    for (const DockWidget widget : allCases<DockWidget>())
      if (const auto feature = requiredFeature(widget); feature && !license_.allows(*feature)) locked << idOf(widget);
    context_.setLockedWidgets(locked);
    areas_.notices().setAllowed(license_.allows(ProFeature::proactiveBuddy));
  };
  connect(&license_, &LicenseManager::changed, this, follow);
  follow();
  license_.onBecamePro = [this] { startProServices(); };
}

void AppDelegate::followWidgets() {
  connect(&model_, &AppModel::activeProfileChanged, this, &AppDelegate::widgetsChanged);
  connect(&context_, &WidgetContext::widgetsActiveChanged, this, &AppDelegate::widgetsChanged);
  widgetsChanged();
}

void AppDelegate::widgetsChanged() {
  const auto widgets = widgetsOf(model_.activeProfile());
  for (Area* area : areas_) area->widgetsChanged(widgets, context_.widgetsActive(), surroundings_.now());
}

void AppDelegate::followProblems() {
  connect(&areas_.notices(), &BuddyNoticeCenter::problemFound, this, &AppDelegate::warn);
  connect(areas_.agents.agents(), &AgentsModel::problemFound, this, &AppDelegate::warn);
  connect(&stored_, &StoredDefaults::problemFound, this, &AppDelegate::warn);
  connect(&model_, &AppModel::problemFound, this, &AppDelegate::warn);
}

void AppDelegate::followDeletion() {
  connect(areas_.panels.privacy(), &PrivacyModel::deletionAsked, this, [this](const QString& id) {
    // Hooks that are left in other programs' settings would call scripts that are gone.
    if (id.isEmpty())
      for (ConnectionModel* connection : std::initializer_list<ConnectionModel*>{
               areas_.agents.claudeHooks(), areas_.agents.codexHooks(), areas_.usage.statusLine()}) {
        if (!connection->mayBeMade()) continue;
        connection->remove();
        // The status line that the user had before is among the files.
        if (const QString problem = connection->problem(); !problem.isEmpty())
          return warn(tr("Nothing was deleted"), problem);
      }
    deletion_ = id.toStdString();
    QCoreApplication::exit();
  });
}

void AppDelegate::registerKeys() {
  std::vector<AreaKey> keys{{&setting::barKeys, [this] { bar_->dock().revealForKeyboard(); }, "--reveal"}};
  for (Area* area : areas_) std::ranges::move(area->keys(), std::back_inserter(keys));
  areas_.panels.globalKeys()->add(std::move(keys));
}

void AppDelegate::startTimers() {
  areas_.clipboard.clipboard()->start();
  every(ContextPeeker::interval, [this] { bar_->peeker().check(surroundings_.now()); });
  every(LiveModels::tickInterval, [this] {
    for (Area* area : areas_) area->tick(surroundings_.now());
  });
}

void AppDelegate::followDefaults() {
  connect(&stored_, &StoredDefaults::changed, this, [this](const std::set<std::string>& keys) {
    settings_.reload();
    for (Area* area : areas_) area->defaultsChanged(keys);
  });
  connect(&settings_, &AppSettings::chosen, this, [this](const std::string& key) {
    for (Area* area : areas_) area->defaultsChanged({key});
  });
  connect(&slotChoices_, &SlotChoices::changed, this, [this](const std::set<std::string>& keys) {
    for (Area* area : areas_) area->defaultsChanged(keys);
  });
  stored_.follow();
  model_.followFile();
}

void AppDelegate::followZone() {
  desktop_.timeZone.setChangeHandler([this] {
    surroundings_.calendar.replace(Calendar(desktop_.timeZone.name(), surroundings_.calendar().locale()));
    for (Area* area : areas_) area->zoneChanged(surroundings_.now());
    due_.zoneChanged();
  });
}

void AppDelegate::startProServices() {
  if (proServicesStarted_ || !license_.allows(ProFeature::agentTracking)) return;
  proServicesStarted_ = true;
  areas_.agents.agents()->refresh();
  every(AgentsModel::pollInterval, [this] { areas_.agents.agents()->poll(); });
  areas_.usage.usage()->start();
  if (settings_.agentNotifications()) desktop_.notifications.requestAuthorization({});
}

void AppDelegate::handleNotifications() {
  const auto answer = [this](const std::string& identifier, const std::string& action) {
    for (Area* area : areas_)
      if (area->answerNotification(identifier, action)) return;
  };
  desktop_.notifications.setActivationHandler([answer](const std::string& identifier) { answer(identifier, ""); });
  desktop_.notifications.setActionHandler(answer);
  desktop_.notifications.setDismissalHandler([this](const std::string& identifier) {
    for (Area* area : areas_) area->notificationDismissed(identifier);
  });
}

void AppDelegate::addBuddyOnce() {
  if (!license_.allows(ProFeature::proactiveBuddy) || defaults_.boolean("buddyAdded").value_or(false)) return;
  const std::vector<Profile> profiles = model_.profiles();
  for (const Profile& profile : profiles) {
    const std::optional<UUID> first = profile.items.empty() ? std::nullopt : std::optional(profile.items.front().id);
    // After the settings were lost, a profile without Buddy is the user's choice.
    if (!stored_.wereLost() && !profile.contains("buddy")) model_.addWidget("buddy", profile.id, first);
  }
  store(defaults_, "buddyAdded", true);
}

void AppDelegate::firstRun() {
  if (defaults_.boolean("welcomeDone").value_or(false)) return areas_.panels.globalKeys()->beginAsking();
  // Only what says so was lost, and the guide would cover the toast that tells of it.
  if (stored_.wereLost()) {
    store(defaults_, "welcomeDone", true);
    return areas_.panels.globalKeys()->beginAsking();
  }
  later()(Seconds(0.6), [this] { bar_->panels().open(bar_->welcomePanel()); });
}

void AppDelegate::warn(const QString& title, const QString& detail) {
  toast_.show(title, detail, QStringLiteral("exclamationmark.triangle"));
}

void AppDelegate::showToast(const QString& title, const QString& detail, const QString& symbol) {
  toast_.show(title, detail, symbol);
}

void AppDelegate::copyText(const QString& text) {
  if (text.trimmed().isEmpty()) return;
  areas_.clipboard.clipboard()->copyText(text);
  // More than a line is not seen, and a text of megabytes would take seconds to lay out.
  constexpr qsizetype mostShown = 200;
  toast_.show(tr("Copied"), text.left(mostShown), QStringLiteral("doc.on.doc"));
}

bool AppDelegate::isOnBar(DockWidget widget) const { return model_.isOnBar(idOf(widget)); }

bool AppDelegate::isInAnyProfile(DockWidget widget) const {
  return std::any_of(model_.profiles().begin(), model_.profiles().end(),
                     [widget](const Profile& profile) { return profile.contains(std::string(nameOf(widget))); });
}

void AppDelegate::activate(DockWidget widget) {
  if (const QString item = context_.itemOf(idOf(widget)); !item.isEmpty()) Q_EMIT context_.activationAsked(item);
}

void AppDelegate::carryOut(MenuCommand command, const std::optional<UUID>& profile) {
  switch (command) {
    case MenuCommand::pinProfile:
      if (!profile || license_.permits(ProFeature::profileSwitching)) model_.setPinnedProfileID(profile);
      break;
    case MenuCommand::toggleAgents:
      carryOut(wish::ToggleAgents{});
      break;
    case MenuCommand::customizeDock:
      bar_->panels().toggle(bar_->customizePanel());
      break;
    case MenuCommand::openWelcomeGuide:
      bar_->panels().open(bar_->welcomePanel());
      break;
    case MenuCommand::buyPro:
      context_.openPurchasePage();
      break;
    case MenuCommand::openSettings:
      carryOut(wish::Settings{});
      break;
    case MenuCommand::quit:
      carryOut(wish::Quit{});
      break;
    case MenuCommand::toggleClipboard:
      carryOut(wish::ToggleClipboard{});
      break;
    case MenuCommand::openDiskDoctor:
      carryOut(wish::OpenDiskDoctor{});
      break;
    case MenuCommand::checkForUpdates:
      updates_.check([this](const UpdateAnswer& answer) {
        toast_.show(toQString(answer.title), toQString(answer.detail), QStringLiteral("arrow.clockwise"));
      });
      break;
  }
}

void AppDelegate::carryOut(const Wish& wish) {
  for (Area* area : areas_)
    if (area->carryOut(wish)) return;
  std::visit(Overloaded{[this](const wish::Reveal&) { bar_->dock().revealForKeyboard(); },
                        [this](const wish::ToggleAgents&) { bar_->toggleAgents(); },
                        [this](const wish::Settings&) { bar_->openSettings(); },
                        [this](const wish::Customize&) { bar_->panels().open(bar_->customizePanel()); },
                        [](const wish::Quit&) { QCoreApplication::exit(); },
                        // The areas' own.
                        [](const auto&) {}},
             wish);
}

}  // namespace ambrel
