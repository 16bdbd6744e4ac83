#pragma once
// The keys that the program answers anywhere on the desktop: what they do, and which they are.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <string>
#include <vector>

#include "app/base/Area.h"
#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/model/AppSettings.h"

namespace ambrel {

struct KeyRow {
  Q_GADGET
  QML_VALUE_TYPE(keyRow)
  FACE_FIELDS(QString, key, title, text,
              problem);           // "shelfKeys", "Opens the clipboard shelf", "Super+Alt+V"; empty text: no key
  FACE_FIELDS(QString, binding);  // for the desktop's own settings; empty where the key works, and without a key
  FACE_FIELDS(bool, isRecording, isStandard);

 public:
  bool operator==(const KeyRow&) const = default;
};

// Follows the settings. A key that cannot be had is told in its row and in the log.
class GlobalKeys : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  // Where the desktop wants the bindings: "sway's configuration, ~/.config/sway/config". Empty where keys work.
  Q_PROPERTY(QString place READ place CONSTANT FINAL)

 public:
  // Both outlive it.
  GlobalKeys(HotKeys& hotKeys, AppSettings& settings, QObject* parent = nullptr);

  void add(std::vector<AreaKey> keys);
  RowList* rows() { return &rows_; }
  QString place() const;

  // While a key is recorded, none is answered: each press is for the recorder.
  Q_INVOKABLE void record(const QString& key);
  Q_INVOKABLE void stopRecording();
  // A press, as Qt's key and modifiers. Escape leaves everything as it was, Backspace takes the key away. What is not a
  // combination, or is taken, is told in the row, and the recording goes on. False for what is none of its business.
  Q_INVOKABLE bool press(int key, int modifiers);
  // The usual key again.
  Q_INVOKABLE void reset(const QString& key);

 private:
  struct Wanted {
    KeyCombination combination;
    const AreaKey* key;
    bool operator==(const Wanted&) const = default;
  };
  std::vector<Wanted> wanted() const;
  void follow();
  void release();
  void update();
  // Why the setting cannot have this key; empty when it can.
  QString conflict(const SettingRow& row, const KeyCombination& combination);

  HotKeys& hotKeys_;
  AppSettings& settings_;
  std::vector<AreaKey> keys_;
  std::vector<Wanted> asked_, registered_;
  std::map<const SettingRow*, QString> taken_;
  const SettingRow* recorded_ = nullptr;
  QString problem_;  // of the last press
  GadgetListModel<KeyRow, &KeyRow::key> rows_;
};

}  // namespace ambrel
