#pragma once
// The shelf over a clipboard that the test plays.

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include "app/base/QmlObjects.h"
#include "app/clipboard/ClipPictures.h"
#include "app/dock/DockPopoverController.h"
#include "app/kit/Theme.h"
#include "app/shelf/EdgeSensor.h"
#include "app/shelf/ShelfPanelController.h"
#include "app/window/PanelWindow.h"
#include "app/window/ToastController.h"
#include "tests/app/clipboard/ClipboardDesk.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/QMLWarnings.h"

namespace ambrel {

struct ShelfRoom {
  QMLWarnings warnings;
  ClipboardDesk desk;
  QQmlEngine engine;
  FakePointer pointer;
  FakeScreens screens;
  FakeWindowStyle windowStyle;
  ToastController toast{desk.steps.later()};
  std::unique_ptr<ShelfPanelController> shelf;

  explicit ShelfRoom(Theme::Choice choice = Theme::Choice::Dark) {
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    themeOf(engine).setChoice(choice);
    themeOf(engine).setAlwaysReducesMotion(true);
    engine.addImageProvider(QString::fromLatin1(ClipPictures::id), new ClipPictures(desk.model->picturesFolder()));
    screens.screens = {{"FAKE-1", {0, 0, 1600, 900}, {0, 0, 1600, 900}, false}};
    pointer.at = Point{800, 450};
    restart();
  }
  ~ShelfRoom() {
    warnings.expectNone();
    shelf.reset();
    warnings.take();
  }
  // Over the desk's present model.
  void restart() {
    shelf.reset();
    keep({desk.model.get(), desk.model->items(), desk.model->collections(), &toast, &desk.settings});
    shelf = std::make_unique<ShelfPanelController>(engine, *desk.model, desk.settings, toast,
                                                   ShelfPanelController::Seams{.pointer = pointer,
                                                                               .screens = screens,
                                                                               .windowStyle = windowStyle,
                                                                               .later = desk.steps.later(),
                                                                               .now = [this] { return desk.now; }});
    keep({shelf.get()});
  }

  // Messages are lost without this. With it their window takes the keyboard, on a platform that knows no flags.
  void attachToast() {
    toast.attach(engine, windowStyle, [] {
      return PanelAnchor{
          .tile = {}, .bar = {300, 812, 1000, 80}, .screen = {0, 0, 1600, 900}, .edge = DockEdge::bottom};
    });
  }
  QObject* shownToast() const {
    return static_cast<QQuickView*>(toast.window())->rootObject()->property("toast").value<QObject*>();
  }
  // Opened, with its keyboard, once these have been copied.
  bool open(const std::vector<std::string>& texts = {}) {
    for (const std::string& text : texts) desk.copy(text);
    shelf->open();
    desk.pass(Seconds(0.1));
    return QTest::qWaitForWindowActive(shelf->window()) && QTest::qWaitFor([this] { return panel()->isVisible(); });
  }
  QQuickWindow& window() const { return *static_cast<PanelWindow*>(shelf->window()); }
  QRect frame() const { return static_cast<PanelWindow*>(shelf->window())->panelFrame(); }
  QQuickItem* root() const { return static_cast<PanelWindow*>(shelf->window())->rootObject(); }
  QQuickItem* panel() const { return root()->childItems().first(); }

  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&window(), static_cast<Qt::Key>(key), modifiers);
  }
  void type(const QString& text) {
    for (const QChar c : text) QTest::keyClick(&window(), c.toLatin1());
  }
  // The text of the clip that has the ring of the keyboard.
  std::string current() const {
    const auto id = UUID::parse(desk.model->focusedItem().toStdString());
    const ClipItem* item = id ? desk.model->item(*id) : nullptr;
    return item ? item->text.value_or("(picture)") : "";
  }
  // Items below the root that are shown and of which `wanted` holds.
  std::vector<QQuickItem*> shown(const std::function<bool(QQuickItem*)>& wanted) const {
    std::vector<QQuickItem*> found;
    visitShown(root(), [&](QQuickItem* item) {
      if (wanted(item)) found.push_back(item);
    });
    return found;
  }
  bool isShown(const QString& text) const { return textsOf(root()).contains(text); }
  QQuickItem* card(std::size_t position) const {
    const QString id = desk.id(position);
    const auto found = cards();
    const auto card = std::ranges::find(found, id, [](QQuickItem* each) { return faceOf(each).clipId; });
    return card == found.end() ? nullptr : *card;
  }
  std::vector<QQuickItem*> cards() const {
    return shown([](QQuickItem* item) { return item->property("isUnderKeyboard").isValid(); });
  }
  static ClipFace faceOf(QQuickItem* card) { return card->property("face").value<ClipFace>(); }
  QQuickItem* labelled(const QString& label) const { return ambrel::labelled(root(), label); }
  static QPoint middleOf(QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
  }
};

}  // namespace ambrel
