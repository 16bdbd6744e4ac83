#include "app/AppDelegate.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <utility>

#include "app/agents/ProgramIcons.h"
#include "app/base/Log.h"
#include "app/base/QmlObjects.h"
#include "app/kit/KeyboardFocus.h"
#include "app/kit/Theme.h"
#include "app/menu/StatusIcon.h"
#include "core/base/Files.h"
#include "core/base/Overloaded.h"
#include "core/settings/SandboxMigration.h"

namespace ambrel {
namespace {

constexpr const char* bundleIdentifier = "dev.qorvin.ambrel";
constexpr const char* purchasePage = "https://tilebay.example/pro";

// `kept`: where a file that cannot be read is kept now.
UserDefaults migratedDefaults(const Surroundings& surroundings, std::optional<std::filesystem::path>& kept) {
  UserDefaults defaults(surroundings.defaultsFile);
  try {
    kept = defaults.setAside();
  } catch (const std::exception& error) {
    logLine(error.what());
  }
  for (const std::string& line :
       migrateFromSandbox({surroundings.home, surroundings.dataFolder, bundleIdentifier}, defaults))
    logLine(line);
  return defaults;
}

std::vector<DisplaySnapshot> displaysOf(const Screens& screens) {
  std::vector<DisplaySnapshot> displays;
  for (const ScreenInfo& screen : screens.list()) displays.push_back({screen.name, screen.isBuiltin});
  return displays;
}

}  // namespace

// The order of construction is that of the members: the toast first, then the migration, before anything reads the
// defaults or the files, then settings, profiles and agents.
AppDelegate::AppDelegate(Surroundings surroundings, Desktop desktop, QObject* parent)
    : QObject(parent),
      surroundings_(std::move(surroundings)),
      desktop_(desktop),
      toast_(later()),
      defaults_(migratedDefaults(surroundings_, keptDefaults_)),
      defaultsWatcher_(defaults_),
      settings_(defaults_),
      model_(surroundings_.dataFolder / "profiles.json", defaults_, license_,
             [this] { return displaysOf(desktop_.screens); }),
      background_(makeBackground(*this)),
      agents_(settings_, makeAgentReaders(), surroundings_.home, surroundings_.calendar,
              {.background = background_,
               .notifications = desktop_.notifications,
               .workspace = desktop_.workspace,
               .now = surroundings_.now,
               .icon =
                   [this](std::string_view bundleID) {
                     return ProgramIcons::source(QString::fromStdString(desktop_.workspace.iconOf(bundleID)));
                   }}),
      due_(desktop_.wallClock),
      appearanceSettings_(defaults_, preparedTheme()),
      gallery_(model_),
      pointers_(desktop_.pointer) {
  keep({&settings_, &model_, &license_, &agents_, &appearanceSettings_, &gallery_});
  engine_.addImageProvider(QLatin1String(ProgramIcons::id), new ProgramIcons);
  makeClipboard();
}

// Windows end before the engine that drives them, and before what they show.
AppDelegate::~AppDelegate() {
  toast_.end();
  diskDoctor_.reset();
}

Theme& AppDelegate::preparedTheme() {
  engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
  Theme& theme = themeOf(engine_);
  theme.follow(appearance_);
  const auto takeName = [this] { appearance_.setThemeName(QString::fromStdString(desktop_.theme.name())); };
  desktop_.theme.setChangeHandler(takeName);
  takeName();
  // From the start, so that the first key counts.
  keyboardFocusOf(engine_);
  return theme;
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
  makeShelf();
  makeContext();
  makePanels();
  makeDock();
  startBuddy();
  makePeeker();
  registerHotKeys();
  startTimers();
  followZone();
  followDefaults();
  handleNotifications();
  license_.onBecamePro = [this] { startProServices(); };
  addBuddyOnce();
  startProServices();
  makeStatusItem();
  firstRun();
}

void AppDelegate::makeContext() {
  system_ = std::make_unique<SystemMonitor>(desktop_.readings, background_, surroundings_.calendar);
  clock_ = std::make_unique<ClockModel>(surroundings_.calendar);
  makeUsage();
  makeDisk();
  makeFocus();
  makeTelemetry();
  makeWeather();
  makeBuddy();
  context_ = std::make_unique<WidgetContext>(WidgetContext::Models{.model = model_,
                                                                   .settings = settings_,
                                                                   .agents = agents_,
                                                                   .system = *system_,
                                                                   .clock = *clock_,
                                                                   .usage = usage_.get(),
                                                                   .focus = focus_.get(),
                                                                   .live = live_.get(),
                                                                   .weather = weather_.get(),
                                                                   .notices = notices_.get(),
                                                                   .disk = disk_.get(),
                                                                   .clipboard = clipboard_.get()});
  keep({system_.get(), clock_.get(), context_.get()});
  context_->onShowToast = [this](const QString& title, const QString& detail, const QString& symbol) {
    toast_.show(title, detail, symbol);
  };
  context_->setClickAction(QStringLiteral("agents"), [this](const QString& item) {
    if (permits(ProFeature::agentTracking)) toggle(agentsPanel_.get(), item);
  });
  context_->setClickAction(QStringLiteral("disk"), [this](const QString&) { diskDoctor_->open(); });
  context_->setClickAction(QStringLiteral("clipboard"), [this](const QString&) { shelf_->toggle(); });
  context_->onToggleCustomize = [this] { toggle(customizePanel_.get()); };
  context_->onOpenTileMenu = [this](const QString& item) { openTileMenu(item); };
}

std::unique_ptr<DockPopoverController> AppDelegate::makePanel(const char* source, QVariantMap properties, QSize size) {
  auto panel = std::make_unique<DockPopoverController>(
      engine_, desktop_.windowStyle, later(),
      PanelContent{QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/") + QString::fromLatin1(source)), std::move(properties),
                   size});
  connect(panel.get(), &DockPopoverController::shownChanged, this, &AppDelegate::panelsChanged);
  connect(panel.get(), &DockPopoverController::shownChanged, this, [this, shown = panel.get()] {
    if (shown->isShown() || !returnsKeyboard_) return;
    // A panel that was left for another window has lost the keyboard already.
    returnsKeyboard_ = shown->window()->isActive() && keyboardFocusOf(engine_).isShown();
    // A menu's row may open another panel right after this.
    QTimer::singleShot(0, this, [this] {
      if (!isAnyPanelOpen() && std::exchange(returnsKeyboard_, false)) dock_->revealForKeyboard();
    });
  });
  return panel;
}

void AppDelegate::panelsChanged() {
  // A click elsewhere closes a panel, also where nothing takes the keyboard from it, as on an empty desktop.
  const bool isOpen = isAnyPanelOpen();
  if (std::exchange(followsPresses_, isOpen) != isOpen)
    desktop_.pointer.setPressHandler(isOpen ? [this] { pressedSomewhere(); } : std::function<void()>());
  if (dock_) dock_->holdingChanged();
  if (notices_) notices_->panelsChanged();
}

void AppDelegate::pressedSomewhere() {
  const auto pointer = desktop_.pointer.location();
  if (!pointer) return;
  const Point at = flipped(*pointer, desktop_.screens.mainHeight());
  // Presses on windows of our own are theirs.
  if (QGuiApplication::topLevelAt(QPoint(qRound(at.x), qRound(at.y)))) return;
  for (DockPopoverController* panel : panels())
    if (panel->isShown() && !panel->stays()) panel->close();
  if (shelf_->isShown()) shelf_->close();
}

DockPopoverController& AppDelegate::addTilePanel(std::initializer_list<const char*> widgets, const char* source,
                                                 QVariantMap properties, QSize size) {
  DockPopoverController& panel = *tilePanels_.emplace_back(makePanel(source, std::move(properties), size));
  for (const char* widget : widgets)
    context_->setClickAction(QString::fromLatin1(widget),
                             [this, &panel](const QString& item) { toggle(&panel, item); });
  return panel;
}

DockPopoverController& AppDelegate::addTileSettings(std::initializer_list<const char*> widgets, const char* source,
                                                    QVariantMap properties, QSize size) {
  DockPopoverController& panel = *tilePanels_.emplace_back(makePanel(source, std::move(properties), size));
  for (const char* widget : widgets)
    context_->setSettingsAction(QString::fromLatin1(widget),
                                [this, &panel](const QString& item) { toggle(&panel, item); });
  return panel;
}

void AppDelegate::addToSettingsPage(const QString& tab, const QString& property, QObject& object) {
  QVariantMap page = settingsPages_.value(tab).toMap();
  page.insert(property, toVariant(object));
  settingsPages_.insert(tab, page);
}

void AppDelegate::answerNotifications(const std::string& identifier, NotificationAnswer answer) {
  notificationAnswers_[identifier] = std::move(answer);
}

void AppDelegate::followDismissal(const std::string& identifier, std::function<void()> dismissed) {
  dismissals_[identifier] = std::move(dismissed);
}

void AppDelegate::handleNotifications() {
  const auto answer = [this](const std::string& identifier, const std::string& action) {
    if (const auto found = notificationAnswers_.find(identifier); found != notificationAnswers_.end())
      found->second(action);
    else
      agents_.openSession(QString::fromStdString(identifier));
  };
  desktop_.notifications.setActivationHandler([answer](const std::string& identifier) { answer(identifier, ""); });
  desktop_.notifications.setActionHandler(answer);
  desktop_.notifications.setDismissalHandler([this](const std::string& identifier) {
    if (const auto found = dismissals_.find(identifier); found != dismissals_.end()) found->second();
  });
}

void AppDelegate::makePanels() {
  const auto customizes = [this](QObject& content, const char* signal) {
    connect(&content, signal, this, SLOT(openCustomize()));
  };
  upsellPanel_ = makePanel("Panels/UpsellView.qml", {}, {400, 336});
  upsellPanel_->onContentMade = [this](QObject& content) {
    connect(&content, SIGNAL(purchaseWanted()), this, SLOT(openPurchasePage()));
  };
  license_.showUpsell = [this] { toggle(upsellPanel_.get()); };

  settingsPanel_ = makePanel("Panels/SettingsView.qml",
                             {{QStringLiteral("settings"), toVariant(settings_)},
                              {QStringLiteral("pages"), settingsPages_},
                              {QStringLiteral("appearance"), toVariant(appearanceSettings_)},
                              {QStringLiteral("tab"), QString::fromStdString(settingsTab())},
                              {QStringLiteral("version"), QStringLiteral(AMBREL_VERSION)}},
                             {760, 480});
  settingsPanel_->onContentMade = [this, customizes](QObject& content) {
    connect(&content, SIGNAL(tabChosen(QString)), this, SLOT(chooseSettingsTab(QString)));
    customizes(content, SIGNAL(customizeWanted()));
  };

  welcomePanel_ = makePanel("Panels/WelcomeView.qml", {}, {480, 500});
  welcomePanel_->setStays(true);
  welcomePanel_->onContentMade = [this, customizes](QObject& content) {
    connect(&content, SIGNAL(closeRequested()), this, SLOT(finishWelcome()));
    connect(&content, SIGNAL(customizeWanted()), this, SLOT(finishWelcome()));
    customizes(content, SIGNAL(customizeWanted()));
  };

  agentsPanel_ = makePanel("Agents/AgentsPanelView.qml", {{QStringLiteral("agents"), toVariant(agents_)}}, {620, 320});
  agentsPanel_->setProperty(QStringLiteral("presentation"), toVariant(agentsPanel_->presentation()));

  agentsPanel_->onContentMade = [this](QObject& content) {
    connect(&content, SIGNAL(settingsAsked()), this, SLOT(openAgentSettings()));
  };

  customizePanel_ = makePanel(
      "Panels/CustomizeView.qml",
      {{QStringLiteral("model"), toVariant(model_)}, {QStringLiteral("gallery"), toVariant(gallery_)}}, {760, 480});

  tileMenu_ = makePanel("Dock/TileMenuView.qml", {{QStringLiteral("model"), toVariant(model_)}}, {216, 147});
  tileMenu_->onContentMade = [this, customizes](QObject& content) {
    customizes(content, SIGNAL(customizeAsked()));
    connect(&content, SIGNAL(ownChosen()), this, SLOT(chooseTileCommand()));
  };
  addBuddyPanels();
  addFocusPanels();
  addTelemetryPanels();
  addWeatherPanels();
}

void AppDelegate::makeDock() {
  dockPointer_ = pointers_.monitor();
  dock_ = std::make_unique<DockPanelController>(engine_, *context_,
                                                DockPanelController::Seams{.pointer = *dockPointer_,
                                                                           .screens = desktop_.screens,
                                                                           .windowStyle = desktop_.windowStyle,
                                                                           .now = surroundings_.now,
                                                                           .later = later()});
  keep({dock_.get()});
  dock_->isHoldingOpen = [this] { return isAnyPanelOpen() || notices_->hasBubble(); };
  dock_->onKeyboardLeft = [this] { desktop_.workspace.activateLast(); };
  dock_->onMaxLength = [this](qreal length) { context_->barLimits()->setMaxLength(length); };
  desktop_.screens.setChangeHandler([this] {
    model_.refreshDisplays();
    dock_->updatePosition();
    shelf_->place();
  });
  // An open panel goes with its bar.
  connect(dock_.get(), &DockPanelController::layoutChanged, this, [this] {
    for (DockPopoverController* panel : panels())
      if (panel->isShown()) panel->place(dock_->anchor(panelItem_));
  });
  Theme& theme = themeOf(engine_);
  dock_->setScale(theme.textScale());
  connect(&theme, &Theme::textScaleChanged, dock_.get(), [this, &theme] { dock_->setScale(theme.textScale()); });
  toast_.attach(engine_, desktop_.windowStyle, [this] { return dock_->anchor({}); });
  tips_ = std::make_unique<TipController>(engine_, desktop_.windowStyle);
  system_->tick();
  clock_->tick(surroundings_.now());
  dock_->start();
}

void AppDelegate::makePeeker() {
  peeker_ = std::make_unique<ContextPeeker>(agents_, settings_, [this](Seconds length) { dock_->peek(length); });
  peeker_->gatherMore = [this](PeekSignals& signals) {
    signals.waterDue = focus_->water()->waterDueAt(surroundings_.now());
  };
  every(ContextPeeker::interval, [this] { peeker_->check(surroundings_.now()); });
}

void AppDelegate::addHotKey(const KeyCombination& keys, const std::string& what, std::function<void()> action) {
  if (desktop_.hotKeys.add(keys, std::move(action)) == HotKeyResult::taken)
    logLine("the key for " + what + " is taken by another program");
}

void AppDelegate::registerHotKeys() {
  // That of the notes comes with them.
  registerClipboardKeys();
  addHotKey({.key = 'd', .command = true, .option = true, .control = true}, "the bar",
            [this] { dock_->revealForKeyboard(); });
}

void AppDelegate::startTimers() {
  // Copies announce themselves; this is for the sweeps, and in case that one does not.
  clipboard_->start();
  every(ClipboardModel::pollInterval, [this] { clipboard_->poll(); });
  every(SystemMonitor::tickInterval, [this] {
    system_->tick();
    live_->tick(surroundings_.now());
    // After a sleep the minute's own timer is late.
    clock_->tick(surroundings_.now());
  });
  clockTimer_.setSingleShot(true);
  clockTimer_.setTimerType(Qt::PreciseTimer);
  const auto untilNextMinute = [this] {
    const Instant now = surroundings_.now();
    return std::chrono::ceil<std::chrono::milliseconds>(ClockModel::nextTick(now) - now);
  };
  connect(&clockTimer_, &QTimer::timeout, this, [this, untilNextMinute] {
    clock_->tick(surroundings_.now());
    clockTimer_.start(untilNextMinute());
  });
  clockTimer_.start(untilNextMinute());
}

void AppDelegate::tellOfKeptDefaults(const std::filesystem::path& copy) {
  logLine("the settings could not be read; the file is kept as " + copy.string());
  toast_.show(tr("The settings could not be read"),
              tr("The file is kept as %1").arg(QString::fromStdString(copy.filename().string())),
              QStringLiteral("exclamationmark.triangle"));
}

void AppDelegate::followDefaults() {
  defaults_.onSetAside = [this](const std::filesystem::path& copy) { tellOfKeptDefaults(copy); };
  defaults_.onUnreadable = [this] {
    logLine(defaults_.file().string() + " is no JSON; what was set before stands");
    toast_.show(tr("The settings cannot be read"),
                tr("There is a mistake in defaults.json. What was set before stands."),
                QStringLiteral("exclamationmark.triangle"));
  };
  connect(&defaultsWatcher_, &DefaultsWatcher::changed, this, [this](const std::set<std::string>& keys) {
    settings_.reload();
    appearanceSettings_.reload();
    focus_->reload();
    weather_->reload(keys);
  });
  defaultsWatcher_.start();
  if (keptDefaults_) tellOfKeptDefaults(*keptDefaults_);
}

void AppDelegate::followZone() {
  desktop_.timeZone.setChangeHandler([this] {
    surroundings_.calendar.replace(Calendar(desktop_.timeZone.name(), surroundings_.calendar().locale()));
    clock_->zoneChanged(surroundings_.now());
    due_.zoneChanged();
    usage_->refresh();
  });
}

void AppDelegate::startProServices() {
  if (proServicesStarted_ || !context_ || !license_.allows(ProFeature::agentTracking)) return;
  proServicesStarted_ = true;
  agents_.refresh();
  every(AgentsModel::pollInterval, [this] { agents_.refresh(); });
  usage_->start();
  if (settings_.agentNotifications()) desktop_.notifications.requestAuthorization({});
}

void AppDelegate::makeStatusItem() {
  statusItem_ = std::make_unique<StatusItem>(
      [this](int attention) { return statusIcon(attention, themeOf(engine_).palette()); },
      [this](MenuCommand command, const std::optional<UUID>& profile) { carryOut(command, profile); });
  const auto update = [this] { updateStatusItem(); };
  connect(&model_, &AppModel::profilesChanged, this, update);
  connect(&model_, &AppModel::pinnedProfileIDChanged, this, update);
  connect(&model_, &AppModel::displaysChanged, this, update);
  connect(&agents_, &AgentsModel::sessionsChanged, this, update);
  connect(&license_, &LicenseManager::changed, this, update);
  connect(&themeOf(engine_), &Theme::schemeChanged, this, [this] { statusItem_->redrawIcon(); });
  updateStatusItem();
  // For task lists, in which Disk Doctor stands.
  QGuiApplication::setWindowIcon(statusIcon(0, themeOf(engine_).palette()));
}

void AppDelegate::updateStatusItem() {
  const Profile* active = model_.activeProfile();
  statusItem_->update(menuModel({.profiles = model_.profiles(),
                                 .activeProfileID = active ? std::optional(active->id) : std::nullopt,
                                 .pinnedProfileID = model_.pinnedProfileID(),
                                 .displays = model_.displays(),
                                 .workingCount = agents_.workingCount(),
                                 .needsInputCount = agents_.needsInputCount(),
                                 .isAgentTrackingAllowed = license_.allows(ProFeature::agentTracking),
                                 .isPro = license_.isPro()}));
}

void AppDelegate::firstRun() {
  if (defaults_.boolean("welcomeDone").value_or(false)) return;
  later()(Seconds(0.6), [this] { show(welcomePanel_.get()); });
}

void AppDelegate::finishWelcome() { remember("welcomeDone", {true}); }

void AppDelegate::remember(const std::string& key, DefaultsValue value) {
  try {
    defaults_.set(key, std::move(value));
  } catch (const FileError& error) {
    logLine(std::string("cannot save settings: ") + error.what());
  }
}

std::string AppDelegate::settingsTab() const { return defaults_.string("settingsTab").value_or("general"); }

void AppDelegate::chooseSettingsTab(const QString& tab) {
  settingsPanel_->setProperty(QStringLiteral("tab"), tab);
  remember("settingsTab", {tab.toStdString()});
}

void AppDelegate::openCustomize() { show(customizePanel_.get()); }

void AppDelegate::openAgentSettings() {
  chooseSettingsTab(QStringLiteral("agents"));
  show(settingsPanel_.get());
}

void AppDelegate::openPurchasePage() { QDesktopServices::openUrl(QUrl(QString::fromLatin1(purchasePage))); }

void AppDelegate::openTileMenu(const QString& item) {
  const Profile* profile = model_.activeProfile();
  if (!profile) return;
  QString previous, next, widget;
  for (std::size_t i = 0; i < profile->items.size(); ++i) {
    if (QString::fromStdString(profile->items[i].id.text()) != item) continue;
    widget = QString::fromStdString(profile->items[i].widget.value_or(""));
    if (i > 0) previous = QString::fromStdString(profile->items[i - 1].id.text());
    if (i + 1 < profile->items.size()) next = QString::fromStdString(profile->items[i + 1].id.text());
  }
  if (tileMenu_->isShown()) tileMenu_->close();
  tileMenu_->setProperty(QStringLiteral("item"), item);
  tileMenu_->setProperty(QStringLiteral("previousItem"), previous);
  tileMenu_->setProperty(QStringLiteral("nextItem"), next);
  const WidgetContext::MenuCommand* own = context_->menuCommand(widget);
  tileMenu_->setProperty(QStringLiteral("ownText"), own ? own->text() : QString());
  tileMenu_->setProperty(QStringLiteral("ownSymbol"), own ? own->symbol : QString());
  tileMenu_->setSize({216, own ? 188 : 147});
  tileCommand_ = own ? [action = own->action, item] { action(item); } : std::function<void()>();
  toggle(tileMenu_.get(), item);
}

void AppDelegate::chooseTileCommand() {
  if (tileCommand_) tileCommand_();
}

std::vector<DockPopoverController*> AppDelegate::panels() const {
  std::vector<DockPopoverController*> made;
  for (auto* panel : {upsellPanel_.get(), settingsPanel_.get(), welcomePanel_.get(), agentsPanel_.get(),
                      customizePanel_.get(), tileMenu_.get()})
    if (panel) made.push_back(panel);
  for (const auto& panel : tilePanels_) made.push_back(panel.get());
  return made;
}

bool AppDelegate::isAnyPanelOpen() const {
  const auto made = panels();
  return shelf_->isShown() || std::any_of(made.begin(), made.end(), [](const auto* panel) { return panel->isShown(); });
}

void AppDelegate::toggle(DockPopoverController* panel, const QString& item) {
  if (!panel || !dock_) return;
  const bool comesFromBar = dock_->hasKeyboard() || returnsKeyboard_;
  returnsKeyboard_ = false;
  for (DockPopoverController* other : panels())
    if (other != panel && other->isShown()) other->close();
  if (shelf_->isShown()) shelf_->close();
  if (!panel->isShown()) dock_->reveal();
  panelItem_ = item;
  panel->toggle(dock_->anchor(item));
  returnsKeyboard_ = comesFromBar && panel->isShown();
}

void AppDelegate::show(DockPopoverController* panel) {
  if (!panel->isShown())
    toggle(panel);
  else if (QWindow* window = panel->window())
    window->requestActivate();
}

bool AppDelegate::permits(ProFeature feature) {
  if (license_.allows(feature)) return true;
  license_.showUpsell();
  return false;
}

void AppDelegate::carryOut(MenuCommand command, const std::optional<UUID>& profile) {
  switch (command) {
    case MenuCommand::pinProfile:
      if (!profile || permits(ProFeature::profileSwitching)) model_.setPinnedProfileID(profile);
      break;
    case MenuCommand::toggleAgents:
      carryOut(wish::ToggleAgents{});
      break;
    case MenuCommand::customizeDock:
      toggle(customizePanel_.get());
      break;
    case MenuCommand::openWelcomeGuide:
      show(welcomePanel_.get());
      break;
    case MenuCommand::buyPro:
      openPurchasePage();
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
      toast_.show(tr("No updates to check for"), tr("This build is updated by your package manager."),
                  QStringLiteral("arrow.triangle.2.circlepath"));
      break;
  }
}

void AppDelegate::carryOut(const Wish& wish) {
  // What a later part of the program brings is named, so that a key that was bound early is not simply dead.
  const auto notYet = [this](const QString& what) {
    dock_->reveal();
    toast_.show(tr("%1 is not here yet").arg(what), tr("A later version brings it."), QStringLiteral("hourglass"));
  };
  std::visit(Overloaded{[this](const wish::Reveal&) { dock_->revealForKeyboard(); },
                        [this](const wish::ToggleAgents&) {
                          const auto agents = QStringLiteral("agents");
                          context_->activate(agents, context_->itemOf(agents));
                        },
                        [this](const wish::Settings&) { show(settingsPanel_.get()); },
                        [](const wish::Quit&) { QCoreApplication::exit(); },
                        [this](const wish::ToggleClipboard&) { shelf_->toggle(); },
                        [this](const wish::CopyPinned& pinned) { shelf_->copyPinned(pinned.number); },
                        [&](const wish::CaptureNotes&) { notYet(tr("Screen Notes")); },
                        [&](const wish::Ask&) { notYet(tr("Ask Buddy")); },
                        [this](const wish::OpenDiskDoctor&) { diskDoctor_->open(); }},
             wish);
}

}  // namespace ambrel
