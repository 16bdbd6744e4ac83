#pragma once
// What the settings and the guide show that belongs to no other part of the program.

#include "app/base/Area.h"
#include "app/base/DueTimer.h"
#include "app/model/GlobalKeys.h"
#include "app/model/LicenseFile.h"
#include "app/model/StartAtLogin.h"
#include "app/panels/ChoicesModel.h"
#include "app/panels/PrivacyModel.h"
#include "app/panels/WelcomeModel.h"
#include "core/agents.h"

class QQmlEngine;

namespace ambrel {

// A library of others that the program is made with.
struct LibraryRow {
  Q_GADGET
  QML_VALUE_TYPE(libraryRow)
  FACE_FIELDS(QString, name, use, licence);

 public:
  bool operator==(const LibraryRow&) const = default;
};

class PanelsArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::GlobalKeys* keys READ globalKeys CONSTANT FINAL)
  Q_PROPERTY(ambrel::StartAtLogin* startAtLogin READ startAtLogin CONSTANT FINAL)
  Q_PROPERTY(ambrel::ChoicesModel* choices READ choices CONSTANT FINAL)
  Q_PROPERTY(ambrel::PrivacyModel* privacy READ privacy CONSTANT FINAL)
  Q_PROPERTY(ambrel::LicenseFile* licence READ licence CONSTANT FINAL)
  Q_PROPERTY(ambrel::WelcomeModel* welcome READ welcome CONSTANT FINAL)
  Q_PROPERTY(ambrel::RowList* libraries READ libraries CONSTANT FINAL)
  Q_PROPERTY(QString version READ version CONSTANT FINAL)

 public:
  struct Seams {
    QQmlEngine& engine;
    HotKeys& hotKeys;
    UserDefaults& defaults;
    AppSettings& settings;
    AppModel& model;
    LicenseManager& license;
    std::string licenceKey;
    const PresentCalendar& calendar;
    std::function<Instant()> now;
    std::filesystem::path home, data, defaultsFile, program;
    AgentFolders agentFolders;
    UserHome userHome;
  };
  // `due` and what the seams refer to outlive it.
  PanelsArea(const Seams& seams, DueTimer& due, QObject* parent = nullptr);

  GlobalKeys* globalKeys() { return &keys_; }
  StartAtLogin* startAtLogin() { return &startAtLogin_; }
  ChoicesModel* choices() { return &choices_; }
  PrivacyModel* privacy() { return &privacy_; }
  LicenseFile* licence() { return &licence_; }
  WelcomeModel* welcome() { return &welcome_; }
  RowList* libraries() { return &libraries_; }
  QString version() const;

  // What somebody who has a report to read wants to know of this computer; nothing personal.
  Q_INVOKABLE QString details() const;

 Q_SIGNALS:
  // A dialog, for which the settings made room, has led to something that is on this page.
  void settled(const QString& tab, const QString& title, const QString& detail);
  void welcomeAsked();

 private:
  void tellOfChoices();

  QQmlEngine& engine_;
  GlobalKeys keys_;
  StartAtLogin startAtLogin_;
  ChoicesModel choices_;
  PrivacyModel privacy_;
  LicenseFile licence_;
  WelcomeModel welcome_;
  GadgetListModel<LibraryRow, &LibraryRow::name> libraries_;
};

}  // namespace ambrel
