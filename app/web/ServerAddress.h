#pragma once
// Servers that the user names, and what may be sent to them.

#include <QNetworkRequest>
#include <QString>
#include <optional>
#include <string>

namespace ambrel {

// What was typed, with "http://" where the scheme is missing; empty for nothing. Absent for what is no address of a web
// server, or has a login in it.
std::optional<QString> typedServerAddress(const QString& text);

// Whether texts of the user may go there: it is on this machine, or the address that the user has allowed.
bool mayReceive(const QString& address, const std::string& allowed);

// Without cookies, credentials and redirections: what is sent goes to this server and to no other.
QNetworkRequest requestTo(const QUrl& url);

}  // namespace ambrel
