#pragma once
// A small HTTP server on this machine's loopback address, which answers as it is told: well, badly, half or never.

#include <QTimer>
#include <QUrl>
#include <functional>

#include "tests/fakes/LoopbackHTTP.h"

namespace ambrel {

class LoopbackServer : public LoopbackHTTP {
 public:
  struct Reply {
    int status = 200;
    QByteArray body;
    QByteArray type = "application/json";
    QByteArray location = {};  // of a redirection
    enum class Manner {
      whole,    // as it should be
      half,     // says its length and closes after half of it
      silent,   // takes the request and never answers
      dripping  // a byte now and then, without end
    } manner = Manner::whole;
  };

  QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(serverPort())); }

  // Asked for the path with its query; 404 unless something is set.
  std::function<Reply(const QByteArray& target)> answer = [](const QByteArray&) { return Reply{404, "{}"}; };
  // Targets in the order in which they were asked for.
  QByteArrayList targets;

 private:
  void serve(QTcpSocket* socket, const QByteArray&, const QByteArray& target, const QByteArray&) override {
    targets.append(target);
    send(socket, answer(target));
  }

  void send(QTcpSocket* socket, const Reply& reply) {
    if (reply.manner == Reply::Manner::silent) return;
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " X\r\nContent-Type: " + reply.type +
                      "\r\nConnection: close\r\n";
    if (reply.status == 429) head += "Retry-After: 7200\r\n";
    if (!reply.location.isEmpty()) head += "Location: " + reply.location + "\r\n";
    if (reply.manner != Reply::Manner::dripping)
      head += "Content-Length: " + QByteArray::number(reply.body.size()) + "\r\n";
    socket->write(head + "\r\n");
    if (reply.manner == Reply::Manner::dripping) {
      auto* timer = new QTimer(socket);
      connect(timer, &QTimer::timeout, socket, [socket] { socket->write(" "); });
      timer->start(5);
      return;
    }
    socket->write(reply.manner == Reply::Manner::half ? reply.body.left(reply.body.size() / 2) : reply.body);
    socket->disconnectFromHost();
  }
};

}  // namespace ambrel
