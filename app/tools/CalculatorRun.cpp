#include "app/tools/CalculatorRun.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTimer>
#include <optional>

namespace ambrel {
namespace {

using namespace std::chrono_literals;
// The process ends itself after three seconds.
constexpr auto deadline = 5s;

QString runWords(const char* source) { return QCoreApplication::translate("CalculatorRun", source); }

class Run : public QProcess {
 public:
  Run(const QString& tool, const std::string& expression, std::stop_token stop, std::function<void(ToolOutcome)> done,
      QObject* parent)
      : QProcess(parent), done_(std::move(done)) {
    connect(this, &QProcess::finished, this, [this] { end(); });
    connect(this, &QProcess::errorOccurred, this, [this](ProcessError error) {
      if (error == FailedToStart) end();
    });
    QTimer::singleShot(deadline, this, [this] { kill(); });
    start(tool, {QStringLiteral("tool"), QStringLiteral("calculator")});
    write(QByteArray::fromStdString(expression));
    closeWriteChannel();
    stopped_.emplace(std::move(stop), [this] {
      done_ = nullptr;
      kill();
    });
  }

 private:
  void end() {
    deleteLater();
    const auto done = std::exchange(done_, nullptr);
    if (!done) return;
    const QByteArray output = readAllStandardOutput().trimmed();
    QByteArray problem = readAllStandardError().trimmed();
    if (exitStatus() == NormalExit && exitCode() == 0 && !output.isEmpty()) return done({output.toStdString(), {}});
    constexpr char prefix[] = "tilebayctl: ";
    if (problem.startsWith(prefix)) problem.remove(0, qstrlen(prefix));
    if (error() == FailedToStart) problem = runWords("The calculator cannot be started").toUtf8();
    if (problem.isEmpty()) problem = runWords("It takes too long to work out").toUtf8();
    done({{}, problem.toStdString()});
  }

  std::function<void(ToolOutcome)> done_;
  std::optional<std::stop_callback<std::function<void()>>> stopped_;
};

}  // namespace

Calculate makeCalculate(QString tool, QObject& context) {
  return [tool = std::move(tool), &context](const std::string& expression, std::stop_token stop,
                                            std::function<void(ToolOutcome)> done) {
    if (!tool.isEmpty()) {
      new Run(tool, expression, std::move(stop), std::move(done), &context);
      return;
    }
    QTimer::singleShot(0, &context, [stop = std::move(stop), done = std::move(done)] {
      if (!stop.stop_requested())
        done({{}, runWords("tilebayctl, which works it out, is not installed").toStdString()});
    });
  };
}

}  // namespace ambrel
