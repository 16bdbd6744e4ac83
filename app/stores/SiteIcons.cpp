#include "app/stores/SiteIcons.h"

#include <QBuffer>
#include <QFile>

#include "app/base/Log.h"
#include "app/web/SmallPicture.h"
#include "core/base/Files.h"
#include "core/base/Text.h"
#include "core/web/Address.h"

namespace ambrel {
namespace {

constexpr DownloadLimits limits{.time = std::chrono::seconds(10), .bytes = 512 << 10};
constexpr int side = 64;
constexpr int mostPixels = 1024;

// As a PNG; empty when it is no picture.
QByteArray packedIcon(const QByteArray& bytes) {
  const QImage picture = smallPicture(bytes, side, mostPixels);
  QByteArray png;
  QBuffer target(&png);
  target.open(QIODevice::WriteOnly);
  if (!picture.isNull()) picture.save(&target, "PNG");
  return png;
}

}  // namespace

SiteIcons::SiteIcons(std::filesystem::path folder, Fetcher& fetcher, Background background, QObject* parent)
    : QObject(parent), folder_(std::move(folder)), fetcher_(fetcher), background_(std::move(background)) {}

std::filesystem::path SiteIcons::fileOf(const std::string& site) const {
  return folder_ / (percentEncodedPath(hostOf(site)) + ".png");
}

QString SiteIcons::iconOf(const std::string& address) const {
  const auto site = iconSite(address);
  if (!site) return {};
  const auto file = fileOf(*site);
  return fileStatus(file) ? QUrl::fromLocalFile(QFile::decodeName(file.c_str())).toString(QUrl::FullyEncoded)
                          : QString();
}

void SiteIcons::want(const std::string& address) {
  const auto site = iconSite(address);
  if (!site || states_.contains(*site)) return;
  if (fileStatus(fileOf(*site))) {
    states_[*site] = State::kept;
    return;
  }
  states_[*site] = State::waiting;
  waiting_.push_back(*site);
  fetchNext();
}

void SiteIcons::fetchNext() {
  if (isFetching_ || waiting_.empty()) return;
  isFetching_ = true;
  const std::string site = std::move(waiting_.front());
  waiting_.pop_front();
  fetch(site, QUrl(QString::fromStdString(site + "favicon.ico")), [this, site](const Download& answer) {
    if (answer.body) return take(site, *answer.body, [this, site] { askPage(site); });
    if (answer.status == 0) return finish(site, std::nullopt);
    askPage(site);
  });
}

void SiteIcons::fetch(const std::string& site, const QUrl& address, std::function<void(const Download&)> answered) {
  fetcher_.get(address, limits, this, std::move(answered),
               [site](const QUrl& to) { return isOfSite(site, to.toString(QUrl::FullyEncoded).toStdString()); });
}

void SiteIcons::askPage(const std::string& site) {
  fetch(site, QUrl(QString::fromStdString(site)), [this, site](const Download& page) {
    const auto link = page.body ? iconLink(page.body->toStdString()) : std::nullopt;
    const QUrl icon = link ? page.url.resolved(QUrl(QString::fromStdString(*link))) : QUrl();
    if (!link || !isOfSite(site, icon.toString(QUrl::FullyEncoded).toStdString())) return finish(site, State::missing);
    fetch(site, icon, [this, site](const Download& answer) {
      if (answer.body)
        take(site, *answer.body, [this, site] { finish(site, State::missing); });
      else
        finish(site, State::missing);
    });
  });
}

void SiteIcons::take(const std::string& site, const QByteArray& bytes, std::function<void()> otherwise) {
  auto isKept = std::make_shared<bool>(false);
  background_(
      [bytes, isKept, folder = folder_, file = fileOf(site)] {
        const QByteArray png = packedIcon(bytes);
        if (png.isEmpty()) return;
        try {
          makeFolders(folder);
          writeAtomically(file, std::string_view(png.constData(), static_cast<std::size_t>(png.size())));
          *isKept = true;
        } catch (const FileError& error) {
          logLine(error.what());
        }
      },
      [this, site, isKept, otherwise = std::move(otherwise)] {
        if (*isKept)
          finish(site, State::kept);
        else
          otherwise();
      });
}

void SiteIcons::finish(const std::string& site, std::optional<State> state) {
  if (state)
    states_[site] = *state;
  else
    states_.erase(site);
  isFetching_ = false;
  if (state == State::kept) Q_EMIT arrived();
  fetchNext();
}

}  // namespace ambrel
