#pragma once
// The shortcut of the tile, and what it can be: what installed programs offer, and scripts that the user has added.

#include <QtQml/qqmlregistration.h>

#include "app/base/Area.h"
#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "core/base/SearchFolding.h"
#include "core/base/UserDefaults.h"
#include "platform/Launcher.h"

namespace ambrel {

struct ShortcutRow {
  Q_GADGET
  QML_VALUE_TYPE(shortcutRow)
  Q_PROPERTY(QString shortcutId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, name, detail, picture);
  FACE_FIELDS(bool, isChosen, isScript);

  bool operator==(const ShortcutRow&) const = default;
};

struct ShortcutFace {
  Q_GADGET
  QML_VALUE_TYPE(shortcutFace)
 public:
  FACE_FIELDS(QString, name, program, picture);  // empty while none is chosen
  FACE_FIELDS(QString, problem);                 // why it cannot be run
  FACE_FIELDS(QString, removed);                 // the script that `undo` brings back
  FACE_FIELDS(bool, isChosen);

  bool operator==(const ShortcutFace&) const = default;
};

class ShortcutModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::ShortcutFace face READ face NOTIFY faceChanged FINAL)

 public:
  static constexpr const char* chosenKey = "shortcutWidgetName";
  static constexpr const char* scriptsKey = "shortcutScripts";

  // Where QML finds the picture of an icon; empty without one.
  using Picture = std::function<QString(const std::string& icon)>;
  struct Seams {
    UserDefaults& defaults;
    Launcher& launcher;
    Picture picture;
    SearchFolding folding;
  };
  // All outlive it.
  ShortcutModel(Seams seams, Shell& shell, QObject* parent = nullptr);

  RowList* rows() { return &rows_; }
  const ShortcutFace& face() const { return face_; }
  // The tile is on the bar, or the stored choice may be another.
  void reload();

  // Lists what there is by now, as far as it holds the text.
  Q_INVOKABLE void search(const QString& query);
  Q_INVOKABLE void choose(const QString& id);
  // That of the first row, if there is one.
  Q_INVOKABLE void chooseFirst();
  Q_INVOKABLE void run();
  // For a dialog: the script that it adds is chosen for the profile that is active now.
  std::function<void(const std::string& path)> scriptChooser();
  Q_INVOKABLE void removeScript(const QString& id);
  Q_INVOKABLE void undo();

 Q_SIGNALS:
  void faceChanged();

 private:
  std::vector<std::string> scripts() const;
  void updateRows();

  Seams seams_;
  Shell& shell_;
  std::string query_;
  std::string chosen_;
  std::vector<std::pair<std::size_t, std::string>> removed_;  // where they were; the latest last
  std::vector<Shortcut> offered_;
  GadgetListModel<ShortcutRow> rows_;
  ShortcutFace face_;
};

}  // namespace ambrel
