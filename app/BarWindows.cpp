#include "app/BarWindows.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QWindow>
#include <utility>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "app/kit/KeyboardFocus.h"
#include "app/kit/Theme.h"
#include "app/model/LicenseManager.h"
#include "app/window/ToastController.h"

namespace ambrel {
namespace {

constexpr const char* purchasePage = "https://tilebay.example/pro";

// By then a window that was clicked has the keyboard.
constexpr Seconds pressSettles{0.2};

// Now, and whenever the size of the theme's texts changes.
void followScale(Theme& theme, auto& window) {
  window.setScale(theme.textScale());
  QObject::connect(&theme, &Theme::textScaleChanged, &window, [&] { window.setScale(theme.textScale()); });
}

}  // namespace

BarWindows::BarWindows(const Services& services, Areas& areas, WidgetContext& context)
    : with_(services),
      areas_(areas),
      context_(context),
      gallery_(with_.model),
      pointers_(with_.desktop.pointer),
      dockPointer_(pointers_.monitor()),
      shelfPointer_(pointers_.monitor()),
      shelf_(with_.engine, *areas.clipboard.clipboard(), with_.settings, with_.toast,
             {.pointer = *shelfPointer_,
              .screens = with_.desktop.screens,
              .windowStyle = with_.desktop.windowStyle,
              .later = with_.later,
              .now = with_.surroundings.now}),
      dock_(with_.engine, context,
            {.pointer = *dockPointer_,
             .screens = with_.desktop.screens,
             .windowStyle = with_.desktop.windowStyle,
             .now = with_.surroundings.now,
             .later = with_.later}),
      dragPicture_(with_.engine, context, with_.desktop.windowStyle),
      panels_(with_.engine, context, with_.desktop.windowStyle, with_.later,
              [this](const QString& item) { return dock_.anchor(item); }),
      bubble_(with_.engine, with_.desktop.windowStyle, with_.later, areas.notices(),
              [this] { return anchorOf(DockWidget::buddy); }),
      tips_(with_.engine, with_.desktop.windowStyle,
            [this](const QQuickWindow& window) {
              return &window == dock_.window() ? std::optional(dock_.anchor({})) : std::nullopt;
            }),
      peeker_(*areas.agents.agents(), with_.settings, [this](Seconds length) { dock_.peek(length); }) {
  keep({&gallery_, &shelf_, &dock_});
  followShelf();
  followDock();
  followPanels();
  followContext();
  followBubble();
  followEdits();
  followAgents();
  dock_.start();
  clearTheWay();
}

BarWindows::~BarWindows() {
  dock_.isHoldingOpen = nullptr;
  for (ViewWindow* window : areas_.windows()) {
    window->hasBarKeyboard = nullptr;
    window->giveKeyboardBack = nullptr;
  }
  with_.toast.occupied = nullptr;
  with_.license.showUpsell = nullptr;
  with_.desktop.screens.setChangeHandler({});
  with_.desktop.pointer.setPressHandler({});
}

void BarWindows::followShelf() {
  followScale(themeOf(with_.engine), shelf_);
  connect(&shelf_, &ShelfPanelController::settingsAsked, this, [this] { openSettings(QStringLiteral("clipboard")); });
  connect(&areas_.clipboard, &ClipboardArea::shelfAsked, &shelf_, &ShelfPanelController::toggle);
  connect(&areas_.clipboard, &ClipboardArea::pinnedAsked, &shelf_, &ShelfPanelController::copyPinned);
  connect(&shelf_, &ShelfPanelController::shownChanged, wiring_.get(), [this] {
    if (shelf_.isShown()) {
      shelfReturnsKeyboard_ = dock_.hasKeyboard() || panels_.returnsKeyboard();
      panels_.closeAll();
    }
    panelsChanged();
  });
  // A clip that was picked is for another program.
  connect(&shelf_, &ShelfPanelController::dismissed, wiring_.get(), [this] {
    if (std::exchange(shelfReturnsKeyboard_, false)) panels_.giveKeyboardBack();
  });
}

void BarWindows::followDock() {
  followScale(themeOf(with_.engine), dock_);
  dock_.isHoldingOpen = [this] { return isAnyPanelOpen() || areas_.notices().hasBubble(); };
  dock_.onKeyboardLeft = [this] { with_.desktop.workspace.activateLast(); };
  dock_.onMaxLength = [this](qreal length) { context_.barLimits()->setMaxLength(length); };
  with_.desktop.screens.setChangeHandler([this] {
    with_.model.refreshDisplays();
    dock_.screensChanged();
    shelf_.place();
    clearTheWay();
  });
  // An open panel goes with its bar.
  connect(&dock_, &DockPanelController::layoutChanged, &panels_, &BarPanels::place);
  connect(&dock_, &DockPanelController::layoutChanged, &bubble_, &BubbleController::place);
  connect(&dock_, &DockPanelController::keyboardTaken, wiring_.get(), [this] {
    followPresses();
    // What asks for nothing can wait for the arrows.
    if (areas_.notices().hasBubble() && !areas_.notices().bubbleText().actions.isEmpty())
      Q_EMIT areas_.notices().keyboardOffered();
  });
  with_.toast.attach(with_.engine, with_.desktop.windowStyle, [this] { return dock_.anchor({}); });
}

void BarWindows::followPanels() {
  panels_.hasBarKeyboard = [this] { return dock_.hasKeyboard(); };
  panels_.giveKeyboardBack = [this] {
    if (!isAnyPanelOpen() && keyboardFocusOf(with_.engine).isShown()) dock_.revealForKeyboard();
  };
  for (ViewWindow* window : areas_.windows()) {
    window->hasBarKeyboard = [this] { return dock_.hasKeyboard() || panels_.returnsKeyboard(); };
    window->giveKeyboardBack = panels_.giveKeyboardBack;
  }
  connect(&panels_, &BarPanels::changed, wiring_.get(), [this] { panelsChanged(); });
  connect(&panels_, &BarPanels::opening, wiring_.get(), [this] {
    shelf_.close();
    dock_.reveal();
  });
  with_.license.showUpsell = [this] { panels_.toggle(panel("Panels", "UpsellView")); };
  connect(&inboxPanel(), &DockPopoverController::shownChanged, wiring_.get(),
          [this] { areas_.notices().setInboxOpen(inboxPanel().isShown()); });
  connect(&assistantPanel(), &DockPopoverController::shownChanged, wiring_.get(), [this] {
    if (assistantPanel().isShown()) areas_.assistant.assistant()->open();
  });
  connect(&areas_.assistant, &AssistantArea::asked, wiring_.get(), [this](const QString& text) { askBuddy(text); });
  connect(&areas_.assistant, &AssistantArea::panelAsked, wiring_.get(), [this] {
    if (assistantPanel().isShown())
      assistantPanel().close();
    else
      askBuddy({});
  });
  welcomePanel().setStays(true);
  connect(&areas_.panels, &PanelsArea::welcomeAsked, wiring_.get(), [this] { panels_.open(welcomePanel()); });
  connect(&areas_.panels, &PanelsArea::settled, wiring_.get(),
          [this](const QString& tab, const QString& title, const QString& detail) {
            openSettings(tab);
            with_.toast.show(title, detail, QStringLiteral("info.circle"));
          });
}

void BarWindows::followContext() {
  const auto on = [this](auto signal, auto act) { connect(&context_, signal, wiring_.get(), std::move(act)); };
  on(&WidgetContext::showToast, [this](const QString& title, const QString& detail, const QString& symbol) {
    with_.toast.show(title, detail, symbol);
  });
  on(&WidgetContext::copyText, [this](const QString& text) { with_.shell.copyText(text); });
  on(&WidgetContext::askBuddy, [this](const QString& question) { askBuddy(question); });
  on(&WidgetContext::openCustomize, [this] { panels_.open(customizePanel()); });
  on(&WidgetContext::openSettings, [this](const QString& tab) { openSettings(tab); });
  on(&WidgetContext::chooseSettingsTab, [this](const QString& tab) { chooseSettingsTab(tab); });
  on(&WidgetContext::openPurchasePage, [] { QDesktopServices::openUrl(QUrl(QString::fromLatin1(purchasePage))); });
  on(&WidgetContext::finishWelcome, [this] {
    store(with_.defaults, "welcomeDone", true);
    areas_.panels.globalKeys()->beginAsking();
  });
  on(&WidgetContext::unlock, [this] { with_.license.showUpsell(); });
}

void BarWindows::followBubble() {
  with_.toast.occupied = [this] {
    std::vector<QRect> taken = panels_.frames();
    if (bubble_.presentation().isShown()) taken.push_back(bubble_.placement().frame);
    return taken;
  };
  connect(&bubble_, &BubbleController::placed, &with_.toast, &ToastController::place);
  connect(&panels_, &BarPanels::placed, &with_.toast, &ToastController::place);
  using Center = BuddyNoticeCenter;
  const auto on = [this](auto signal, auto act) { connect(&areas_.notices(), signal, wiring_.get(), std::move(act)); };
  // Nothing is said over the picture of the screen.
  connect(areas_.tools.colorPicker(), &ColorPickerModel::loupeChanged, wiring_.get(), [this] { panelsChanged(); });
  on(&Center::bubbleChanged, [this] { dock_.holdingChanged(); });
  on(&Center::peekAsked, [this](Seconds length) { bubblePeek_ = dock_.peek(length); });
  on(&Center::peekOver, [this] { dock_.endPeek(bubblePeek_); });
  on(&Center::inboxAsked, [this] { panels_.open(inboxPanel(), itemOf(DockWidget::buddy)); });
  const auto openLink = [](const QString& url) { QDesktopServices::openUrl(QUrl(url)); };
  on(&Center::linkAsked, openLink);
  connect(areas_.calendars.calendar(), &CalendarModel::linkAsked, wiring_.get(), openLink);
  on(&Center::diskCleanupAsked, [this] { areas_.disk.open(); });
}

void BarWindows::followEdits() {
  connect(&with_.model, &AppModel::itemRemoved, wiring_.get(), [this](const DockItem& item, const BarEdit& edit) {
    const auto widget = fromName<DockWidget>(item.widget.value_or(""));
    const QString name = widget ? toQString(title(*widget)) : QString::fromStdString(item.widget.value_or(""));
    removalMessage_ = with_.toast.show({.title = tr("%1 is off the bar").arg(name),
                                        .detail = {},
                                        .symbol = QStringLiteral("trash"),
                                        .action = tr("Undo"),
                                        .onAction = [this, edit] { with_.model.undo(edit); },
                                        .above = {},
                                        .screen = {}});
  });
  connect(&with_.model, &AppModel::undone, wiring_.get(), [this] { with_.toast.withdraw(removalMessage_); });
}

void BarWindows::followAgents() {
  peeker_.mustWait = [this] { return dock_.isScreenFilled(); };
  peeker_.gatherMore = [this](PeekSignals& signals) {
    for (Area* area : areas_) area->addPeeks(signals, with_.surroundings.now());
  };
  // An agent that begins to wait, or has been answered, is news at once.
  connect(areas_.agents.agents(), &AgentsModel::statusesChanged, wiring_.get(), [this] {
    peeker_.check(with_.surroundings.now());
    areas_.notices().evaluate(with_.surroundings.now());
  });
}

void BarWindows::panelsChanged() {
  followPresses();
  dock_.holdingChanged();
  clearTheWay();
}

void BarWindows::clearTheWay() {
  areas_.notices().setInTheWay(isAnyPanelOpen() || areas_.tools.colorPicker()->loupe() || dock_.isScreenFilled());
}

// A click elsewhere closes a panel and ends the keyboard's stay on the bar, also where nothing takes the keyboard from
// them, as on an empty desktop.
void BarWindows::followPresses() {
  const bool follows = isAnyPanelOpen() || dock_.hasKeyboard();
  if (std::exchange(followsPresses_, follows) != follows)
    with_.desktop.pointer.setPressHandler(follows ? [this] { pressedSomewhere(); } : std::function<void()>());
}

void BarWindows::pressedSomewhere() {
  const auto pointer = with_.desktop.pointer.location();
  if (!pointer) return;
  const Point at = flipped(*pointer, with_.desktop.screens.mainHeight());
  // Presses on windows of our own are theirs.
  if (QGuiApplication::topLevelAt(QPoint(qRound(at.x), qRound(at.y)))) return;
  panels_.leave();
  shelf_.close();
  with_.later(pressSettles, [this] {
    dock_.leaveKeyboard();
    followPresses();
  });
}

QString BarWindows::itemOf(DockWidget widget) const { return context_.itemOf(toQString(nameOf(widget))); }

DockPopoverController& BarWindows::panel(const char* module, const char* file, const QVariantMap& properties) {
  return panels_.panel(QLatin1String(module), QLatin1String(file), properties);
}

DockPopoverController& BarWindows::inboxPanel() {
  return panel("Buddy", "BuddyInboxLayout", {{QStringLiteral("canAsk"), true}});
}

DockPopoverController& BarWindows::welcomePanel() {
  return panel("Panels", "WelcomeView",
               {{QStringLiteral("gallery"), toVariant(gallery_)}, {QStringLiteral("context"), toVariant(context_)}});
}

DockPopoverController& BarWindows::customizePanel() {
  return panel("Panels", "CustomizeView",
               {{QStringLiteral("gallery"), toVariant(gallery_)}, {QStringLiteral("context"), toVariant(context_)}});
}

DockPopoverController& BarWindows::settingsPanel() {
  const QVariantMap pages{
      {QStringLiteral("agents"), QVariantMap{{QStringLiteral("agents"), toVariant(areas_.agents)}}},
      {QStringLiteral("calendars"), QVariantMap{{QStringLiteral("calendar"), toVariant(*areas_.calendars.calendar())}}},
      {QStringLiteral("clipboard"),
       QVariantMap{{QStringLiteral("clipboard"), toVariant(*areas_.clipboard.clipboard())}}},
      {QStringLiteral("buddy"), QVariantMap{{QStringLiteral("statusLine"), toVariant(*areas_.usage.statusLine())},
                                            {QStringLiteral("budget"), toVariant(*areas_.usage.budget())},
                                            {QStringLiteral("modelServer"), toVariant(*areas_.assistant.server())}}}};
  const std::string tab = with_.defaults.string("settingsTab").value_or("general");
  return panel("Panels", "SettingsView",
               {{QStringLiteral("pages"), pages}, {QStringLiteral("tab"), QString::fromStdString(tab)}});
}

void BarWindows::chooseSettingsTab(const QString& tab) {
  settingsPanel().setProperty(QStringLiteral("tab"), tab);
  store(with_.defaults, "settingsTab", DefaultsValue{tab.toStdString()});
}

void BarWindows::openSettings(const QString& tab) {
  if (!tab.isEmpty()) chooseSettingsTab(tab);
  panels_.open(settingsPanel());
}

void BarWindows::toggleAgents() {
  if (with_.license.permits(ProFeature::agentTracking)) panels_.toggle(agentsPanel(), itemOf(DockWidget::agents));
}

void BarWindows::askBuddy(const QString& question) {
  if (!with_.license.permits(ProFeature::askBuddy)) return;
  panels_.open(assistantPanel(), itemOf(DockWidget::buddy));
  if (!question.trimmed().isEmpty()) areas_.assistant.assistant()->ask(question);
}

}  // namespace ambrel
