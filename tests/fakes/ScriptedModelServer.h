#pragma once
// A model server on this machine's loopback address that says what the test has written for it, and keeps what it is
// asked.

#include <deque>
#include <string>

#include "tests/fakes/LoopbackHTTP.h"

namespace ambrel {

class ScriptedModelServer : public LoopbackHTTP {
 public:
  struct Reply {
    QByteArray body;
    int status = 200;
    enum class End {
      whole,  // closes when all is said
      cut,    // closes as if more had been promised
      open,   // stays, and says nothing more
    } end = End::whole;
    // How much of the body is sent at first; the rest comes with `goOn`. Negative: all.
    qsizetype atFirst = -1;
    QByteArray location = {};
  };

  using LoopbackHTTP::LoopbackHTTP;

  std::string url() const { return "http://127.0.0.1:" + std::to_string(serverPort()); }

  // To the question which models there are.
  Reply models{.body = R"({"object":"list","data":[{"id":"tiny-embed"},{"id":"tiny:1b"}]})"};
  // To one question after the other; after the last there is silence.
  std::deque<Reply> script;
  QByteArrayList asked;  // the bodies of the questions
  int looks = 0;         // how often the models were asked for
  int left = 0;          // how many connections the other side has closed before the answer was whole

  // Sends what was held back.
  void goOn() {
    if (held_) finish(held_, heldReply_, heldReply_.body.mid(heldReply_.atFirst));
    held_ = nullptr;
  }

 private:
  void serve(QTcpSocket* socket, const QByteArray& method, const QByteArray& target, const QByteArray& body) override {
    const bool isQuestion = method == "POST" && target == "/v1/chat/completions";
    const bool isLook = method == "GET" && target == "/v1/models";
    if (isQuestion) asked << body;
    if (isLook) ++looks;
    if (isLook) return answer(socket, models);
    if (!isQuestion) return answer(socket, {.body = "{}", .status = 404});
    if (script.empty()) return answer(socket, {.body = {}, .end = Reply::End::open});
    const Reply reply = script.front();
    script.pop_front();
    answer(socket, reply);
  }

  void answer(QTcpSocket* socket, const Reply& reply) {
    connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
      if (held_ == socket) held_ = nullptr;
      if (!socket->property("isDone").toBool()) ++left;
    });
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " X\r\nConnection: close\r\n";
    if (reply.end == Reply::End::cut) head += "Content-Length: " + QByteArray::number(reply.body.size() + 100) + "\r\n";
    if (!reply.location.isEmpty()) head += "Location: " + reply.location + "\r\n";
    socket->write(head + "\r\n");
    if (reply.atFirst < 0) return finish(socket, reply, reply.body);
    held_ = socket;
    heldReply_ = reply;
    socket->write(reply.body.left(reply.atFirst));
  }

  static void finish(QTcpSocket* socket, const Reply& reply, const QByteArray& rest) {
    socket->write(rest);
    if (reply.end == Reply::End::open) return;
    socket->setProperty("isDone", true);
    socket->disconnectFromHost();
  }

  QTcpSocket* held_ = nullptr;
  Reply heldReply_;
};

}  // namespace ambrel
