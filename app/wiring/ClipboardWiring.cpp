// The clipboard: its history, the shelf that shows it, and the keys that lead there.

#include "app/AppDelegate.h"
#include "app/base/QmlObjects.h"
#include "app/clipboard/ClipPictures.h"
#include "app/clipboard/QuietClipboard.h"

namespace ambrel {

void AppDelegate::makeClipboard() {
  keepCopiesFromTextFields();
  clipboard_ =
      std::make_unique<ClipboardModel>(settings_, surroundings_.dataFolder / "Clipboard", surroundings_.calendar,
                                       ClipboardModel::Seams{.pasteboard = desktop_.pasteboard,
                                                             .workspace = desktop_.workspace,
                                                             .background = background_,
                                                             .fileBackground = makeDetachedBackground(*this),
                                                             .later = later(),
                                                             .now = surroundings_.now});
  keep({clipboard_.get(), clipboard_->items(), clipboard_->collections()});
  engine_.addImageProvider(QString::fromLatin1(ClipPictures::id), new ClipPictures(clipboard_->picturesFolder()));
  addToSettingsPage(QStringLiteral("clipboard"), QStringLiteral("clipboard"), *clipboard_);
}

void AppDelegate::makeShelf() {
  shelfPointer_ = pointers_.monitor();
  shelf_ = std::make_unique<ShelfPanelController>(engine_, *clipboard_, settings_, toast_,
                                                  ShelfPanelController::Seams{.pointer = *shelfPointer_,
                                                                              .screens = desktop_.screens,
                                                                              .windowStyle = desktop_.windowStyle,
                                                                              .later = later(),
                                                                              .now = surroundings_.now});
  keep({shelf_.get()});
  Theme& theme = themeOf(engine_);
  shelf_->setScale(theme.textScale());
  connect(&theme, &Theme::textScaleChanged, shelf_.get(), [this, &theme] { shelf_->setScale(theme.textScale()); });
  connect(shelf_.get(), &ShelfPanelController::shownChanged, this, [this] {
    if (shelf_->isShown())
      for (DockPopoverController* panel : panels()) panel->close();
    panelsChanged();
  });
  connect(shelf_.get(), &ShelfPanelController::settingsAsked, this, &AppDelegate::openClipboardSettings);
}

void AppDelegate::openClipboardSettings() {
  chooseSettingsTab(QStringLiteral("clipboard"));
  if (!settingsPanel_->isShown()) toggle(settingsPanel_.get());
}

void AppDelegate::copyText(const QString& text) {
  if (text.trimmed().isEmpty()) return;
  clipboard_->copyText(text.toStdString());
  toast_.show(tr("Copied"), text, QStringLiteral("doc.on.doc"));
}

void AppDelegate::registerClipboardKeys() {
  addHotKey({.key = 'v', .command = true, .option = true}, "the clipboard shelf", [this] { shelf_->toggle(); });
  for (int number = 1; number <= 9; ++number)
    addHotKey({.key = static_cast<char>('0' + number), .command = true, .option = true, .control = true},
              "pinned clip " + std::to_string(number), [this, number] { shelf_->copyPinned(number); });
}

}  // namespace ambrel
