#pragma once
// A terminal of Wayland that keeps what is typed into it.

#include <filesystem>
#include <functional>

#include "core/base/Files.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {

class Terminal {
 public:
  // `file` is not there yet. `options`: foot's.
  explicit Terminal(std::filesystem::path file, const QStringList& options = {})
      : file_(std::move(file)),
        client_("foot", QStringList{"--config=/dev/null"} + options +
                            QStringList{"sh", "-c", "stty -icanon -echo min 1; exec cat >\"$0\"",
                                        QString::fromStdString(file_.string())}) {}

  // Whether a letter that was not typed before reaches it. `type` is called until it does.
  bool hears(char letter, const std::function<void(char)>& type) const {
    return waitFor([&] {
      type(letter);
      return readFile(file_).value_or("").find(letter) != std::string::npos;
    });
  }

 private:
  std::filesystem::path file_;
  Client client_;
};

}  // namespace ambrel
