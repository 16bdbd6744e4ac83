#include "app/web/ServerAddress.h"

#include <QUrl>

#include "core/assistant/ModelServer.h"

namespace ambrel {

std::optional<QString> typedServerAddress(const QString& text) {
  QString address = text.trimmed();
  if (address.isEmpty()) return address;
  if (!address.contains(QLatin1String("://"))) address.prepend(QLatin1String("http://"));
  const QUrl url(address, QUrl::StrictMode);
  const bool isWeb = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
  if (!isWeb || url.host().isEmpty() || !url.userInfo().isEmpty()) return std::nullopt;
  return address;
}

bool mayReceive(const QString& address, const std::string& allowed) {
  return isLoopbackHost(QUrl(address, QUrl::StrictMode).host().toStdString()) || address.toStdString() == allowed;
}

QNetworkRequest requestTo(const QUrl& url) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Tilebay"));
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  return request;
}

}  // namespace ambrel
