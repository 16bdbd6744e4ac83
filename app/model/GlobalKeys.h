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
  // isGiven: the desktop has bound it, and `text` is what it says; it is changed there.
  FACE_FIELDS(bool, isRecording, isStandard, isGiven);

 public:
  bool operator==(const KeyRow&) const = default;
};

// Follows the settings. A key that cannot be had is told in its row and in the log.
class GlobalKeys : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  // What the user has to know of all of them: who binds them, and where.
  Q_PROPERTY(QString advice READ advice NOTIFY changed FINAL)
  // The same for somebody who sees the program for the first time.
  Q_PROPERTY(QString welcomeAdvice READ welcomeAdvice NOTIFY changed FINAL)
  // The desktop binds keys, and the user has refused.
  Q_PROPERTY(bool canAsk READ canAsk NOTIFY changed FINAL)
  // The desktop has a window in which they are changed.
  Q_PROPERTY(bool canConfigure READ canConfigure NOTIFY changed FINAL)

 public:
  // Both outlive it.
  GlobalKeys(HotKeys& hotKeys, AppSettings& settings, QObject* parent = nullptr);
  ~GlobalKeys() override;

  void add(std::vector<AreaKey> keys);
  RowList* rows() { return &rows_; }
  QString advice() const;
  QString welcomeAdvice() const;
  bool canAsk() const;
  bool canConfigure() const;

  // From now on the desktop may be asked for the keys, which can open a window of its own. Nothing where keys are
  // simply taken, or where the user has refused.
  void beginAsking();
  // The user wants to be asked once more.
  Q_INVOKABLE void askAgain();
  Q_INVOKABLE void configure();

  // While a key is recorded, none is answered: each press is for the recorder.
  Q_INVOKABLE void record(const QString& key);
  Q_INVOKABLE void stopRecording();
  // A press, as Qt's key and modifiers. Escape leaves everything as it was, Backspace takes the key away. What is not a
  // combination, or is taken, is told in the row, and the recording goes on. False for what is none of its business.
  Q_INVOKABLE bool press(int key, int modifiers);
  // The usual key again.
  Q_INVOKABLE void reset(const QString& key);

 Q_SIGNALS:
  void changed();

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
  void askDesktop();
  void desktopAnswered();
  KeyKeeper::Answer answer() const;
  bool areGiven() const;
  // Why the setting cannot have this key; empty when it can.
  QString conflict(const SettingRow& row, const KeyCombination& combination);

  HotKeys& hotKeys_;
  AppSettings& settings_;
  std::vector<AreaKey> keys_;
  std::vector<Wanted> asked_, registered_;
  std::map<const SettingRow*, QString> taken_;
  const SettingRow* recorded_ = nullptr;
  bool mayAsk_ = false, isAsking_ = false;
  QString problem_;  // of the last press
  GadgetListModel<KeyRow, &KeyRow::key> rows_;
};

}  // namespace ambrel
