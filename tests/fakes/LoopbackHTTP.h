#pragma once
// What servers on this machine's loopback address have in common: a request a connection, taken in whole.

#include <QTcpServer>
#include <QTcpSocket>
#include <memory>
#include <utility>

namespace ambrel {

class LoopbackHTTP : public QTcpServer {
 public:
  explicit LoopbackHTTP(quint16 port = 0) {
    if (!listen(QHostAddress::LocalHost, port)) qFatal("cannot listen on the loopback address");
    connect(this, &QTcpServer::newConnection, this, [this] {
      while (QTcpSocket* socket = nextPendingConnection()) receive(socket);
    });
  }

 protected:
  virtual void serve(QTcpSocket* socket, const QByteArray& method, const QByteArray& target,
                     const QByteArray& body) = 0;

 private:
  void receive(QTcpSocket* socket) {
    auto buffer = std::make_shared<QByteArray>();
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket, buffer] {
      *buffer += socket->readAll();
      const auto end = buffer->indexOf("\r\n\r\n");
      if (end < 0) return;
      const QByteArray head = buffer->left(end).toLower();
      const auto length = head.indexOf("content-length:");
      const qsizetype size = length < 0 ? 0 : head.mid(length + 15).split('\r').front().trimmed().toLongLong();
      if (buffer->size() < end + 4 + size) return;
      const QByteArray whole = std::exchange(*buffer, {});
      const QList<QByteArray> words = whole.left(end).split(' ');
      serve(socket, words.value(0), words.value(1), whole.mid(end + 4, size));
    });
  }
};

}  // namespace ambrel
