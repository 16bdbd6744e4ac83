#include "app/shelf/ShelfPanelController.h"

#include <QMimeData>
#include <QPointer>
#include <QQmlEngine>
#include <QUrl>
#include <algorithm>

#include "app/base/ItemMaker.h"
#include "app/base/StoredValue.h"
#include "app/kit/KeyboardFocus.h"
#include "app/kit/Theme.h"
#include "app/model/AppSettings.h"
#include "app/shelf/EdgeSensor.h"
#include "app/window/ItemDrag.h"
#include "app/window/PanelGeometry.h"
#include "app/window/PanelWindow.h"
#include "app/window/ToastController.h"
#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

// The data for a drop on another application.
std::unique_ptr<QMimeData> mimeData(const std::vector<Representation>& representations) {
  auto data = std::make_unique<QMimeData>();
  for (const Representation& one : representations) {
    const auto bytes = QByteArray::fromStdString(one.bytes);
    if (one.type.starts_with("text/plain"))
      data->setText(QString::fromUtf8(bytes));
    else
      data->setData(toQString(one.type), bytes);
  }
  return data;
}

}  // namespace

ShelfPanelController::ShelfPanelController(QQmlEngine& engine, ClipboardModel& clipboard, AppSettings& settings,
                                           ToastController& toast, Seams seams, QObject* parent)
    : QObject(parent),
      engine_(engine),
      clipboard_(clipboard),
      settings_(settings),
      toast_(toast),
      seams_(std::move(seams)),
      presentation_(seams_.later),
      sensor_(std::make_unique<EdgeSensor>(seams_.pointer, seams_.screens, seams_.now)) {
  QQmlEngine::setObjectOwnership(&presentation_, QQmlEngine::CppOwnership);
  connect(&presentation_, &Presentation::changed, this, [this] {
    if (std::exchange(wasShown_, isShown()) == isShown()) return;
    updateSensor();
    Q_EMIT shownChanged();
  });
  connect(&presentation_, &Presentation::orderOut, this, [this] {
    if (!window_) return;
    window_->hide();
    seams_.later(keptFor, [self = QPointer(this), generation = presentation_.generation()] {
      if (!self || generation != self->presentation_.generation()) return;
      self->window_.reset();
      forgetUnused(self->engine_);
    });
  });
  connect(&clipboard_, &ClipboardModel::removed, this,
          [this](int count) { showUndo(count == 1 ? tr("1 item removed") : tr("%1 items removed").arg(count)); });
  connect(&clipboard_, &ClipboardModel::collectionDeleted, this,
          [this](const QString& name) { showUndo(tr("Collection “%1” deleted").arg(name)); });
  connect(&clipboard_, &ClipboardModel::undoableCountChanged, this, [this] {
    if (!clipboard_.canUndo()) toast_.withdraw(std::exchange(undoToast_, 0));
  });
  connect(&clipboard_, &ClipboardModel::troubled, this, [this](const QString& title, const QString& detail) {
    toast_.show(title, detail, QStringLiteral("exclamationmark.triangle"));
  });
  connect(&settings_, &AppSettings::shelfOpensOnHoverChanged, this, &ShelfPanelController::updateSensor);
  sensor_->onEnter = [this] { openByPointer(); };
  updateSensor();
}

ShelfPanelController::~ShelfPanelController() = default;

QWindow* ShelfPanelController::window() const { return window_.get(); }

void ShelfPanelController::updateSensor() { sensor_->setActive(settings_.shelfOpensOnHover() && !isShown()); }

void ShelfPanelController::makeWindow() {
  window_ = std::make_unique<PanelWindow>(engine_, seams_.windowStyle, WindowRole::panel);
  window_->setTitle(tr("Clipboard"));
  window_->setCornerRadius(Theme::radiusBar);
  connect(window_.get(), &PanelWindow::leaveAsked, this, &ShelfPanelController::close);
  connect(window_.get(), &QWindow::activeChanged, this, [this] {
    // After a click it has the keyboard, and stays open until it loses it.
    if (window_->isActive()) isPointers_ = false;
  });
  connect(window_.get(), &PanelWindow::pressed, this, [this] {
    if (isPointers_) seams_.windowStyle.activate(*window_);
  });
  window_->setInitialProperties({{QStringLiteral("window"), QVariant::fromValue(window_.get())},
                                 {QStringLiteral("presentation"), QVariant::fromValue(&presentation_)},
                                 {QStringLiteral("clipboard"), QVariant::fromValue(&clipboard_)},
                                 {QStringLiteral("controller"), QVariant::fromValue(this)}});
  window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Shelf/ShelfView.qml")));
}

QRect ShelfPanelController::screenFrame() const {
  const auto screens = seams_.screens.list();
  if (screens.empty()) return {};
  const auto pointer = seams_.pointer.location();
  const auto under = std::ranges::find_if(
      screens, [&](const ScreenInfo& one) { return pointer && one.frame.contains(*pointer, true); });
  const ScreenInfo& screen = under == screens.end() ? screens.front() : *under;
  // Below space reserved by other programs.
  Rect frame = screen.frame;
  frame.height = screen.visibleFrame.maxY() - frame.y;
  return toRect(frame, seams_.screens.mainHeight());
}

QRect ShelfPanelController::panelFrame(const QRect& screen) const {
  const QSize size(std::min(qRound(width * scale_), screen.width()),
                   std::min(qRound(height * scale_), screen.height()) + overhang);
  return {QPoint(screen.x() + (screen.width() - size.width()) / 2, screen.y() - overhang), size};
}

void ShelfPanelController::place() {
  const QRect screen = screenFrame();
  if (window_ && isShown() && !screen.isEmpty()) window_->setPanelFrame(panelFrame(screen), screen);
}

void ShelfPanelController::show(bool takesKeys) {
  const QRect screen = screenFrame();
  if (screen.isEmpty()) return;
  const bool isNew = !isShown();
  if (!window_) makeWindow();
  if (isNew) {
    isPointers_ = !takesKeys;
    ++leaveGeneration_;
    clipboard_.setQuery({});
    clipboard_.setFilter(QStringLiteral("all"));
    clipboard_.refresh();
    Q_EMIT opened();
  }
  window_->setPanelFrame(panelFrame(screen), screen);
  // A window that was not asked for must not take the keyboard.
  seams_.windowStyle.setTakesKeys(*window_, takesKeys);
  window_->show();
  window_->raise();
  if (takesKeys) {
    // Show the focus ring at once, although no key was pressed in this window.
    if (isNew) keyboardFocusOf(engine_).setIsShown(true);
    seams_.windowStyle.activate(*window_);
  }
  presentation_.show();
}

void ShelfPanelController::open() { show(true); }

void ShelfPanelController::openByPointer() {
  if (!isShown()) show(false);
}

void ShelfPanelController::close() {
  isPointers_ = false;
  presentation_.hide();
}

void ShelfPanelController::dismiss() {
  close();
  Q_EMIT dismissed();
}

void ShelfPanelController::toggle() {
  if (isShown())
    close();
  else
    open();
}

void ShelfPanelController::setPointerInside(bool isInside) {
  const int generation = ++leaveGeneration_;
  if (isInside || !isPointers_ || !isShown()) return;
  seams_.later(leaveDelay, [self = QPointer(this), generation] {
    if (self && generation == self->leaveGeneration_ && self->isPointers_) self->close();
  });
}

void ShelfPanelController::pick(const QString& id) {
  const auto parsed = UUID::parse(id.toStdString());
  const ClipItem* item = parsed ? clipboard_.item(*parsed) : nullptr;
  if (!item) return;
  clipboard_.copy(*item);
  close();
}

void ShelfPanelController::pickPinned(int number) {
  if (copyPinned(number)) close();
}

bool ShelfPanelController::copyPinned(int number) {
  const auto name = clipboard_.copyPinned(number);
  if (!name) return false;
  toast_.show(tr("Copied pinned %1").arg(number), *name, QStringLiteral("star.fill"));
  return true;
}

void ShelfPanelController::showUndo(const QString& what) {
  ToastMessage message{.title = what,
                       .detail = {},
                       .symbol = {},
                       .action = tr("Undo"),
                       .onAction =
                           [self = QPointer(this)] {
                             if (self) self->clipboard_.undoRemove();
                           },
                       .above = {},
                       .screen = {}};
  if (isShown() && window_) {
    message.above = window_->panelFrame();
    message.screen = screenFrame();
  }
  undoToast_ = toast_.show(std::move(message));
}

void ShelfPanelController::dragOut(const QString& id, QQuickItem* card) {
  const auto parsed = UUID::parse(id.toStdString());
  const ClipItem* item = parsed ? clipboard_.item(*parsed) : nullptr;
  if (!item || !card) return;
  std::optional<std::string> picture;
  if (item->imageFileName) {
    // Read synchronously, a few milliseconds: the data must be complete before the drag starts.
    picture = readFile(clipboard_.picturesFolder() / *item->imageFileName);
    if (!picture) return;
  }
  // Without compositing, transparent pixels would be white.
  const QColor ground = isCompositing() ? QColor(Qt::transparent) : themeOf(engine_).panel();
  const auto data = [this, item = *item, picture]() -> std::unique_ptr<QMimeData> {
    if (!isShown()) return nullptr;
    auto all = mimeData(representations(item, picture));
    if (item.imageFileName)
      all->setUrls({QUrl::fromLocalFile(QString::fromStdString(clipboard_.picturesFolder() / *item.imageFileName))});
    return all;
  };
  // Closed after a drop on another window.
  dragItem(card, ground, data, [this](bool isTaken) {
    if (isTaken) close();
  });
}

}  // namespace ambrel
