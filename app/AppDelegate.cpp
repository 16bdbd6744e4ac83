#include "app/AppDelegate.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

#include "app/agents/ProgramIcons.h"
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

namespace ambrel {
namespace {

constexpr const char* purchasePage = "https://tilebay.example/pro";

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

// By then a window that was clicked has the keyboard.
constexpr Seconds pressSettles{0.2};

}  // namespace

// The order of construction is that of the members: the toast first, then the migration, before anything reads the
// defaults or the files, then settings, profiles, agents and clipboard.
AppDelegate::AppDelegate(Surroundings surroundings, Desktop desktop, QObject* parent)
    : QObject(parent),
      surroundings_(std::move(surroundings)),
      desktop_(desktop),
      toast_(later()),
      stored_(surroundings_),
      settings_(defaults_),
      model_(surroundings_.dataFolder / "profiles.json", defaults_, license_,
             [this] { return displaysOf(desktop_.screens); }),
      background_(makeBackground(*this)),
      agents_(settings_,
              {.home = surroundings_.home,
               .data = surroundings_.dataFolder,
               .tool = surroundings_.tool,
               .folders = surroundings_.agentFolders},
              surroundings_.calendar,
              {.background = background_,
               .notifications = desktop_.notifications,
               .workspace = desktop_.workspace,
               .now = surroundings_.now,
               .icon =
                   [this](std::string_view bundleID) {
                     return ProgramIcons::source(QString::fromStdString(desktop_.workspace.iconOf(bundleID)));
                   },
               .folders = &desktop_.folderWatch,
               .later = later()}),
      clipboard_(settings_, surroundings_.dataFolder / "Clipboard", surroundings_.calendar,
                 {.pasteboard = desktop_.pasteboard,
                  .workspace = desktop_.workspace,
                  .background = background_,
                  .fileBackground = makeDetachedBackground(*this),
                  .later = later(),
                  .now = surroundings_.now}),
      due_(desktop_.wallClock),
      gallery_(model_),
      languageModel_(defaults_),
      pointers_(desktop_.pointer) {
  prepareTheme();
  keepCopiesFromTextFields();
  SettingValue::lend(engine_, settings_);
  keep({&settings_, &model_, &license_, &gallery_});
  engine_.addImageProvider(QLatin1String(ProgramIcons::id), new ProgramIcons);
  engine_.addImageProvider(QString::fromLatin1(ClipPictures::id),
                           new ClipPictures(clipboard_.clipboard()->picturesFolder()));
}

// Windows end before the engine that drives them; all but the toast's are destroyed before it anyway.
AppDelegate::~AppDelegate() {
  toast_.end();
  if (dock_) dock_->isHoldingOpen = nullptr;
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
  makeShelf();
  makeAreas();
  makeContext();
  makeDock();
  makePanels();
  followContext();
  makeBubble();
  makePeeker();
  registerKeys();
  startTimers();
  followZone();
  followDefaults();
  handleNotifications();
  license_.onBecamePro = [this] { startProServices(); };
  addBuddyOnce();
  startProServices();
  tray_ = std::make_unique<TrayMenu>(
      model_, agents(), license_, themeOf(engine_),
      [this](MenuCommand command, const std::optional<UUID>& profile) { carryOut(command, profile); });
  firstRun();
  // The start is over by then.
  later()(Seconds(30), [this] { forgetUnused(engine_); });
}

void AppDelegate::makeShelf() {
  shelfPointer_ = pointers_.monitor();
  shelf_ = std::make_unique<ShelfPanelController>(engine_, *clipboard_.clipboard(), settings_, toast_,
                                                  ShelfPanelController::Seams{.pointer = *shelfPointer_,
                                                                              .screens = desktop_.screens,
                                                                              .windowStyle = desktop_.windowStyle,
                                                                              .later = later(),
                                                                              .now = surroundings_.now});
  keep({shelf_.get()});
  Theme& theme = themeOf(engine_);
  shelf_->setScale(theme.textScale());
  connect(&theme, &Theme::textScaleChanged, shelf_.get(), [this, &theme] { shelf_->setScale(theme.textScale()); });
  connect(shelf_.get(), &ShelfPanelController::settingsAsked, this,
          [this] { openSettings(QStringLiteral("clipboard")); });
  connect(&clipboard_, &ClipboardArea::shelfAsked, shelf_.get(), &ShelfPanelController::toggle);
  connect(&clipboard_, &ClipboardArea::pinnedAsked, shelf_.get(), &ShelfPanelController::copyPinned);
}

void AppDelegate::makeAreas() {
  Shell& shell = *this;
  const auto now = surroundings_.now;
  const PresentCalendar& calendar = surroundings_.calendar;
  time_ = std::make_unique<TimeArea>(calendar);
  telemetry_ = std::make_unique<TelemetryArea>(LiveSeams{.telemetry = desktop_.telemetry,
                                                         .latency = desktop_.latency,
                                                         .sound = desktop_.soundControl,
                                                         .bluetooth = desktop_.bluetooth,
                                                         .volumes = desktop_.volumes,
                                                         .keepAwake = desktop_.keepAwake,
                                                         .readings = desktop_.readings,
                                                         .background = makeBackground(*this),
                                                         .calendar = calendar,
                                                         .now = now},
                                               shell);
  usage_ =
      std::make_unique<UsageArea>(settings_, surroundings_.home, surroundings_.dataFolder,
                                  AIUsageModel::Seams{.background = background_, .now = now, .calendar = calendar});
  disk_ = std::make_unique<DiskArea>(surroundings_.home,
                                     DiskArea::Seams{.engine = engine_,
                                                     .windowStyle = desktop_.windowStyle,
                                                     .trash = desktop_.trash,
                                                     .model = languageModel_,
                                                     .calendar = calendar,
                                                     .now = now},
                                     shell);
  notes_ = std::make_unique<NotesArea>(
      engine_, desktop_.windowStyle,
      ScreenNotesModel::Seams{
          .screen = desktop_.screenCapture,
          .background = background_,
          .now = now,
          .calendar = calendar,
          .copy = [this](const std::string& text) { clipboard().copyText(QString::fromStdString(text)); }},
      shell);
  connect(notes_.get(), &NotesArea::captureAsked, this, [this] {
    if (permits(ProFeature::screenNotes)) notes_->notes()->capture();
  });
  focus_ = std::make_unique<FocusArea>(FocusSeams{.defaults = defaults_,
                                                  .calendar = calendar,
                                                  .notifications = desktop_.notifications,
                                                  .sounds = desktop_.sounds,
                                                  .now = now},
                                       surroundings_.dataFolder / "habits.json", due_, shell);
  weather_ = std::make_unique<WeatherArea>(defaults_, calendar, now, due_);
  buddy_ = std::make_unique<BuddyArea>(BuddyNoticeCenter::Seams{.agents = *agents_.agents(),
                                                                .settings = settings_,
                                                                .defaults = defaults_,
                                                                .workspace = desktop_.workspace,
                                                                .calendar = calendar,
                                                                .now = now,
                                                                .later = later()});
  assistant_ = std::make_unique<AssistantArea>(
      AssistantArea::Seams{.defaults = defaults_,
                           .model = languageModel_,
                           .buddy = *buddy_->center()->buddy(),
                           .actions = {.model = model_,
                                       .agents = *agents_.agents(),
                                       .folding = SearchFolding::forLocale(calendar().locale()),
                                       .now = now}});
  areas_ = {time_.get(),    telemetry_.get(), usage_.get(), disk_.get(),      notes_.get(), focus_.get(),
            weather_.get(), &clipboard_,      buddy_.get(), assistant_.get(), &agents_};
  for (Area* area : areas_) buddy_->follow(*area);
  connect(&agents(), &AgentsModel::sessionFinished, notices(), &BuddyNoticeCenter::sessionFinished);
  connect(focus_->pomodoro(), &PomodoroTimer::phaseEnded, notices(), [this](PomodoroPhase ended) {
    notices()->phaseEnded(ended == PomodoroPhase::focus ? BuddySignals::PhaseEnd::focus
                                                        : BuddySignals::PhaseEnd::breakTime);
  });
}

void AppDelegate::makeContext() {
  context_ = std::make_unique<WidgetContext>(model_, settings_);
  keep({context_.get()});
  for (Area* area : areas_) context_->addArea(*area);
  const auto follow = [this] {
    QStringList locked;
    for (const DockWidget widget : allCases<DockWidget>())
      if (const auto feature = requiredFeature(widget); feature && !license_.allows(*feature)) locked << idOf(widget);
    context_->setLockedWidgets(locked);
    notices()->setAllowed(license_.allows(ProFeature::proactiveBuddy));
  };
  connect(&license_, &LicenseManager::changed, context_.get(), follow);
  follow();
  connect(&model_, &AppModel::activeProfileChanged, this, &AppDelegate::widgetsChanged);
  connect(context_.get(), &WidgetContext::widgetsActiveChanged, this, &AppDelegate::widgetsChanged);
  widgetsChanged();
}

void AppDelegate::followContext() {
  const auto on = [this](auto signal, auto act) { connect(context_.get(), signal, wiring_.get(), std::move(act)); };
  on(&WidgetContext::showToast, [this](const QString& title, const QString& detail, const QString& symbol) {
    toast_.show(title, detail, symbol);
  });
  on(&WidgetContext::copyText, [this](const QString& text) { copyText(text); });
  on(&WidgetContext::askBuddy, [this](const QString& question) { askBuddy(question); });
  on(&WidgetContext::openCustomize, [this] { panels_->open(*customizePanel()); });
  on(&WidgetContext::openSettings, [this](const QString& tab) { openSettings(tab); });
  on(&WidgetContext::chooseSettingsTab, [this](const QString& tab) { chooseSettingsTab(tab); });
  on(&WidgetContext::openPurchasePage, [] { QDesktopServices::openUrl(QUrl(QString::fromLatin1(purchasePage))); });
  on(&WidgetContext::finishWelcome, [this] { store(defaults_, "welcomeDone", true); });
  on(&WidgetContext::unlock, [this] { license_.showUpsell(); });
}

void AppDelegate::widgetsChanged() {
  const auto widgets = widgetsOf(model_.activeProfile());
  for (Area* area : areas_) area->widgetsChanged(widgets, context_->widgetsActive(), surroundings_.now());
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
  panels_ = std::make_unique<BarPanels>(engine_, *context_, desktop_.windowStyle, later(),
                                        [this](const QString& item) { return dock_->anchor(item); });
  panels_->hasBarKeyboard = [this] { return dock_->hasKeyboard(); };
  panels_->giveKeyboardBack = [this] {
    if (!isAnyPanelOpen() && keyboardFocusOf(engine_).isShown()) dock_->revealForKeyboard();
  };
  for (ViewWindow* window : {static_cast<ViewWindow*>(&disk_->window()), &notes_->window()}) {
    window->hasBarKeyboard = [this] { return dock_->hasKeyboard() || panels_->returnsKeyboard(); };
    window->giveKeyboardBack = panels_->giveKeyboardBack;
  }
  dock_->isHoldingOpen = [this] { return isAnyPanelOpen() || notices()->hasBubble(); };
  dock_->onKeyboardLeft = [this] { desktop_.workspace.activateLast(); };
  dock_->onMaxLength = [this](qreal length) { context_->barLimits()->setMaxLength(length); };
  desktop_.screens.setChangeHandler([this] {
    model_.refreshDisplays();
    dock_->updatePosition();
    shelf_->place();
  });
  // An open panel goes with its bar.
  connect(dock_.get(), &DockPanelController::layoutChanged, panels_.get(), &BarPanels::place);
  Theme& theme = themeOf(engine_);
  dock_->setScale(theme.textScale());
  connect(&theme, &Theme::textScaleChanged, dock_.get(), [this, &theme] { dock_->setScale(theme.textScale()); });
  toast_.attach(engine_, desktop_.windowStyle, [this] { return dock_->anchor({}); });
  tips_ = std::make_unique<TipController>(engine_, desktop_.windowStyle, [this](const QQuickWindow& window) {
    return &window == dock_->window() ? std::optional(dock_->anchor({})) : std::nullopt;
  });
  for (Area* area : areas_) area->tick(surroundings_.now());
  dock_->start();
}

void AppDelegate::makePanels() {
  connect(panels_.get(), &BarPanels::changed, wiring_.get(), [this] { panelsChanged(); });
  connect(dock_.get(), &DockPanelController::keyboardTaken, wiring_.get(), [this] { followPresses(); });
  connect(panels_.get(), &BarPanels::opening, wiring_.get(), [this] {
    shelf_->close();
    dock_->reveal();
  });
  connect(shelf_.get(), &ShelfPanelController::shownChanged, wiring_.get(), [this] {
    if (shelf_->isShown()) panels_->closeAll();
    panelsChanged();
  });
  license_.showUpsell = [this] { panels_->toggle(panel("Panels", "UpsellView")); };
  connect(inboxPanel(), &DockPopoverController::shownChanged, wiring_.get(),
          [this] { notices()->setInboxOpen(inboxPanel()->isShown()); });
  connect(assistantPanel(), &DockPopoverController::shownChanged, wiring_.get(), [this] {
    if (assistantPanel()->isShown()) assistant()->open();
  });
  connect(assistant_.get(), &AssistantArea::asked, wiring_.get(), [this](const QString& text) { askBuddy(text); });
  connect(assistant_.get(), &AssistantArea::panelAsked, wiring_.get(), [this] {
    if (assistantPanel()->isShown())
      assistantPanel()->close();
    else
      askBuddy({});
  });
  welcomePanel()->setStays(true);
}

void AppDelegate::panelsChanged() {
  followPresses();
  dock_->holdingChanged();
  notices()->setPanelOpen(isAnyPanelOpen());
}

// A click elsewhere closes a panel and ends the keyboard's stay on the bar, also where nothing takes the keyboard from
// them, as on an empty desktop.
void AppDelegate::followPresses() {
  const bool follows = isAnyPanelOpen() || dock_->hasKeyboard();
  if (std::exchange(followsPresses_, follows) != follows)
    desktop_.pointer.setPressHandler(follows ? [this] { pressedSomewhere(); } : std::function<void()>());
}

void AppDelegate::pressedSomewhere() {
  const auto pointer = desktop_.pointer.location();
  if (!pointer) return;
  const Point at = flipped(*pointer, desktop_.screens.mainHeight());
  // Presses on windows of our own are theirs.
  if (QGuiApplication::topLevelAt(QPoint(qRound(at.x), qRound(at.y)))) return;
  panels_->leave();
  shelf_->close();
  later()(pressSettles, [this] {
    dock_->leaveKeyboard();
    followPresses();
  });
}

DockPopoverController& AppDelegate::panel(const char* module, const char* file, const QVariantMap& properties) {
  return panels_->panel(QLatin1String(module), QLatin1String(file), properties);
}

DockPopoverController* AppDelegate::inboxPanel() {
  return &panel("Buddy", "BuddyInboxLayout", {{QStringLiteral("canAsk"), true}});
}

DockPopoverController* AppDelegate::customizePanel() {
  return &panel("Panels", "CustomizeView", {{QStringLiteral("gallery"), toVariant(gallery_)}});
}

DockPopoverController* AppDelegate::settingsPanel() {
  const QVariantMap pages{
      {QStringLiteral("agents"), QVariantMap{{QStringLiteral("agents"), toVariant(agents_)}}},
      {QStringLiteral("clipboard"), QVariantMap{{QStringLiteral("clipboard"), toVariant(*clipboard_.clipboard())}}},
      {QStringLiteral("buddy"), QVariantMap{{QStringLiteral("statusLine"), toVariant(*usage_->statusLine())},
                                            {QStringLiteral("budget"), toVariant(*usage_->budget())},
                                            {QStringLiteral("modelServer"), toVariant(*assistant_->server())}}}};
  return &panel("Panels", "SettingsView",
                {{QStringLiteral("pages"), pages},
                 {QStringLiteral("tab"), QString::fromStdString(defaults_.string("settingsTab").value_or("general"))},
                 {QStringLiteral("version"), QStringLiteral(AMBREL_VERSION)}});
}

void AppDelegate::makeBubble() {
  const QString buddy = idOf(DockWidget::buddy);
  const auto anchor = [this, buddy] { return dock_->anchor(context_->itemOf(buddy)); };
  bubble_ = std::make_unique<BubbleController>(engine_, desktop_.windowStyle, later(), *notices(), anchor);
  connect(dock_.get(), &DockPanelController::layoutChanged, bubble_.get(), &BubbleController::place);
  connect(dock_.get(), &DockPanelController::keyboardTaken, notices(), [this] {
    if (notices()->hasBubble()) Q_EMIT notices()->keyboardOffered();
  });
  toast_.occupied = [this] { return bubble_->presentation().isShown() ? bubble_->placement().frame : QRect(); };
  connect(bubble_.get(), &BubbleController::placed, &toast_, &ToastController::place);

  const auto on = [this](auto signal, auto act) { connect(notices(), signal, wiring_.get(), std::move(act)); };
  using Center = BuddyNoticeCenter;
  on(&Center::bubbleChanged, [this] { dock_->holdingChanged(); });
  on(&Center::peekAsked, [this](Seconds length) { bubblePeek_ = dock_->peek(length); });
  on(&Center::peekOver, [this] { dock_->endPeek(bubblePeek_); });
  on(&Center::inboxAsked, [this, buddy] { panels_->open(*inboxPanel(), context_->itemOf(buddy)); });
  on(&Center::linkAsked, [](const QString& url) { QDesktopServices::openUrl(QUrl(url)); });
  on(&Center::diskCleanupAsked, [this] { disk_->open(); });
  connect(notices(), &Center::problemFound, this, &AppDelegate::warn);
  connect(&agents(), &AgentsModel::problemFound, this, &AppDelegate::warn);
  due_.add(*notices());
}

void AppDelegate::makePeeker() {
  peeker_ = std::make_unique<ContextPeeker>(agents(), settings_, [this](Seconds length) { dock_->peek(length); });
  peeker_->gatherMore = [this](PeekSignals& signals) {
    signals.waterDue = focus_->water()->waterDueAt(surroundings_.now());
  };
  every(ContextPeeker::interval, [this] { peeker_->check(surroundings_.now()); });
  // An agent that begins to wait, or has been answered, is news at once.
  connect(&agents(), &AgentsModel::statusesChanged, wiring_.get(), [this] {
    peeker_->check(surroundings_.now());
    notices()->evaluate(surroundings_.now());
  });
}

void AppDelegate::registerKeys() {
  const auto add = [this](const AreaKey& key) {
    if (desktop_.hotKeys.add(key.keys, key.action) == HotKeyResult::taken)
      logLine("the key for " + key.what + " is taken by another program");
  };
  for (Area* area : areas_)
    for (const AreaKey& key : area->keys()) add(key);
  add({{.key = 'd', .command = true, .option = true, .control = true}, "the bar", [this] {
         dock_->revealForKeyboard();
       }});
}

void AppDelegate::startTimers() {
  // Copies announce themselves; this is for the sweeps, and in case that one does not.
  clipboard().start();
  every(ClipboardModel::pollInterval, [this] { clipboard().poll(); });
  every(LiveModels::tickInterval, [this] {
    for (Area* area : areas_) area->tick(surroundings_.now());
  });
  clockTimer_.setSingleShot(true);
  clockTimer_.setTimerType(Qt::PreciseTimer);
  const auto untilNextMinute = [this] {
    const Instant now = surroundings_.now();
    return std::chrono::ceil<std::chrono::milliseconds>(ClockModel::nextTick(now) - now);
  };
  connect(&clockTimer_, &QTimer::timeout, this, [this, untilNextMinute] {
    time_->tick(surroundings_.now());
    clockTimer_.start(untilNextMinute());
  });
  clockTimer_.start(untilNextMinute());
}

void AppDelegate::followDefaults() {
  connect(&stored_, &StoredDefaults::problemFound, this, &AppDelegate::warn);
  connect(&stored_, &StoredDefaults::changed, this, [this](const std::set<std::string>& keys) {
    settings_.reload();
    for (Area* area : areas_) area->defaultsChanged(keys);
  });
  connect(&settings_, &AppSettings::chosen, this, [this](const std::string& key) {
    for (Area* area : areas_) area->defaultsChanged({key});
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
  if (proServicesStarted_ || !context_ || !license_.allows(ProFeature::agentTracking)) return;
  proServicesStarted_ = true;
  agents().refresh();
  every(AgentsModel::pollInterval, [this] { agents().poll(); });
  usage_->usage()->start();
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
  if (defaults_.boolean("welcomeDone").value_or(false)) return;
  // Only what says so was lost, and the guide would cover the toast that tells of it.
  if (stored_.wereLost()) return store(defaults_, "welcomeDone", true);
  later()(Seconds(0.6), [this] { panels_->open(*welcomePanel()); });
}

void AppDelegate::chooseSettingsTab(const QString& tab) {
  settingsPanel()->setProperty(QStringLiteral("tab"), tab);
  store(defaults_, "settingsTab", DefaultsValue{tab.toStdString()});
}

void AppDelegate::openSettings(const QString& tab) {
  chooseSettingsTab(tab);
  panels_->open(*settingsPanel());
}

void AppDelegate::askBuddy(const QString& question) {
  if (!permits(ProFeature::askBuddy)) return;
  panels_->open(*assistantPanel(), context_->itemOf(idOf(DockWidget::buddy)));
  if (!question.trimmed().isEmpty()) assistant()->ask(question);
}

bool AppDelegate::isAnyPanelOpen() const { return shelf_->isShown() || panels_->isAnyShown(); }

bool AppDelegate::permits(ProFeature feature) {
  if (license_.allows(feature)) return true;
  license_.showUpsell();
  return false;
}

void AppDelegate::warn(const QString& title, const QString& detail) {
  toast_.show(title, detail, QStringLiteral("exclamationmark.triangle"));
}

void AppDelegate::showToast(const QString& title, const QString& detail, const QString& symbol) {
  toast_.show(title, detail, symbol);
}

void AppDelegate::copyText(const QString& text) {
  if (text.trimmed().isEmpty()) return;
  clipboard().copyText(text);
  toast_.show(tr("Copied"), text, QStringLiteral("doc.on.doc"));
}

bool AppDelegate::isOnBar(DockWidget widget) const { return model_.isOnBar(idOf(widget)); }

bool AppDelegate::isInAnyProfile(DockWidget widget) const {
  return std::any_of(model_.profiles().begin(), model_.profiles().end(),
                     [widget](const Profile& profile) { return profile.contains(std::string(nameOf(widget))); });
}

void AppDelegate::activate(DockWidget widget) {
  if (const QString item = context_->itemOf(idOf(widget)); !item.isEmpty()) Q_EMIT context_->activationAsked(item);
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
      panels_->toggle(*customizePanel());
      break;
    case MenuCommand::openWelcomeGuide:
      panels_->open(*welcomePanel());
      break;
    case MenuCommand::buyPro:
      context_->openPurchasePage();
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
  for (Area* area : areas_)
    if (area->carryOut(wish)) return;
  std::visit(Overloaded{[this](const wish::Reveal&) { dock_->revealForKeyboard(); },
                        [this](const wish::ToggleAgents&) {
                          if (permits(ProFeature::agentTracking))
                            panels_->toggle(*agentsPanel(), context_->itemOf(idOf(DockWidget::agents)));
                        },
                        [this](const wish::Settings&) { panels_->open(*settingsPanel()); },
                        [](const wish::Quit&) { QCoreApplication::exit(); },
                        // The areas' own.
                        [](const auto&) {}},
             wish);
}

}  // namespace ambrel
