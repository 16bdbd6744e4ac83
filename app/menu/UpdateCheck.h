#pragma once
// "Check for Updates…": asks the package manager of this system what it knows. Nothing is fetched.

#include <QObject>
#include <functional>

#include "core/doctor.h"

class QProcess;

namespace ambrel {

class UpdateCheck : public QObject {
 public:
  struct Places {
    std::filesystem::path program;  // the file that runs
    std::filesystem::path dpkg;     // the package manager's folder
    std::string apt;                // the command that tells of versions
  };
  static Places ofThisProgram();

  UpdateCheck(std::string version, Places places, QObject* parent = nullptr);

  // `done` is called once, later; apt has ten seconds. A question during another one is passed over.
  void check(std::function<void(const UpdateAnswer&)> done);

 private:
  std::string version_;
  Places places_;
  QProcess* apt_ = nullptr;
};

}  // namespace ambrel
