#pragma once
// The developers' tiles: a repository, local servers, containers, Homebrew's packages, simulators.

#include <QUrl>

#include "app/developer/DeveloperList.h"
#include "app/developer/GitModel.h"
#include "core/base/PresentCalendar.h"

class QQmlEngine;

namespace ambrel {

class DeveloperArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::GitModel* git READ git CONSTANT FINAL)
  Q_PROPERTY(ambrel::DeveloperList* servers READ servers CONSTANT FINAL)
  Q_PROPERTY(ambrel::DeveloperList* containers READ containers CONSTANT FINAL)
  Q_PROPERTY(ambrel::DeveloperList* packages READ packages CONSTANT FINAL)
  Q_PROPERTY(ambrel::DeveloperList* simulators READ simulators CONSTANT FINAL)

 public:
  // How old the list of outdated packages may be before it is made again.
  static constexpr std::chrono::hours packagesAge{6};
  // After a try that gave none.
  static constexpr std::chrono::minutes retryAge{30};

  struct Seams {
    QQmlEngine& engine;
    UserDefaults& defaults;
    FolderWatch& repositoryFolders;
    std::shared_ptr<DeveloperTools> tools;
    std::string home;
    std::function<Background()> background;  // a new one for each tool: one that hangs must not hold up the others
    PresentCalendar calendar;
    std::function<Instant()> now;
    std::function<bool(const QUrl&)> open;
    std::chrono::milliseconds repositoryPause{1500};  // after each reading, at least
  };
  // What the seams refer to outlives it, as does the shell.
  DeveloperArea(Seams seams, Shell& shell, QObject* parent = nullptr);

  GitModel* git() { return &git_; }
  DeveloperList* servers() { return &servers_; }
  DeveloperList* containers() { return &containers_; }
  DeveloperList* packages() { return &packages_; }
  DeveloperList* simulators() { return &simulators_; }

  Q_INVOKABLE void askForRepository();
  Q_INVOKABLE void openRepository();
  Q_INVOKABLE void open(const QString& address) { openURL(QUrl(address)); }

  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  void tick(Instant now) override;
  void zoneChanged(Instant /*now*/) override { completeShownPackages(); }
  QVariantMap sample(DockWidget widget) override;
  void defaultsChanged(const std::set<std::string>& keys) override;

 private:
  void openURL(const QUrl& url);
  DeveloperList::Source serversSource() const;
  DeveloperList::Source containersSource() const;
  DeveloperList::Source packagesSource();
  DeveloperList::Source simulatorsSource() const;
  void showStoredPackages();
  void completeShownPackages();
  // Adds the time of the last check, unless the face tells of a problem.
  void completePackages(ToolContent& content) const;

  Seams seams_;
  Shell& shell_;
  Instant packagesTried_{};
  std::string day_;  // of the last tick
  GitModel git_;
  DeveloperList servers_, containers_, packages_, simulators_;
};

}  // namespace ambrel
