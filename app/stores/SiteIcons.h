#pragma once
// The icons of sites: kept in a folder, and fetched from the site itself alone.

#include <QObject>
#include <deque>
#include <filesystem>
#include <map>
#include <string>

#include "app/base/Background.h"
#include "app/web/Fetcher.h"

namespace ambrel {

// One request at a time. A site that has no icon is not asked again by this run of the program; one that cannot be
// reached is, at the next `want`.
class SiteIcons : public QObject {
  Q_OBJECT

 public:
  // The fetcher outlives it.
  SiteIcons(std::filesystem::path folder, Fetcher& fetcher, Background background, QObject* parent = nullptr);

  // Of a page's site, for QML; empty while there is none.
  QString iconOf(const std::string& address) const;
  // Fetches it unless it is there, or the site is one that is not asked.
  void want(const std::string& address);

 Q_SIGNALS:
  // Another icon is there.
  void arrived();

 private:
  enum class State { waiting, kept, missing };

  std::filesystem::path fileOf(const std::string& site) const;
  void fetchNext();
  void fetch(const std::string& site, const QUrl& address, std::function<void(const Download&)> answered);
  void askPage(const std::string& site);
  // Off the main thread; `otherwise` when it is no picture.
  void take(const std::string& site, const QByteArray& bytes, std::function<void()> otherwise);
  void finish(const std::string& site, std::optional<State> state);

  std::filesystem::path folder_;
  Fetcher& fetcher_;
  Background background_;
  std::map<std::string, State> states_;
  std::deque<std::string> waiting_;
  bool isFetching_ = false;
};

}  // namespace ambrel
