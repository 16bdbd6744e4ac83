#pragma once
// The licence's file: read, followed, and put in its place. What it says opens and closes the feature gate.

#include <functional>
#include <string>

#include "app/base/FollowedFile.h"
#include "app/base/TimedModel.h"
#include "app/model/LicenseManager.h"
#include "core/base/PresentCalendar.h"
#include "core/licence/Licence.h"

namespace ambrel {

class LicenseFile : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isNeeded READ isNeeded CONSTANT FINAL)
  Q_PROPERTY(bool isValid READ isValid NOTIFY changed FINAL)
  // "Licensed to Ada", what to do where it is not valid, and of the file that was chosen last, why it was not taken.
  Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
  Q_PROPERTY(QString advice READ advice NOTIFY changed FINAL)
  Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)

 public:
  struct Seams {
    std::filesystem::path file;
    std::string key;  // as of `licenceKey`
    const PresentCalendar& calendar;
    std::function<Instant()> now;
  };
  // The gate and what the seams refer to outlive it. The gate is set at once.
  LicenseFile(Seams seams, LicenseManager& gate, QObject* parent = nullptr);

  bool isNeeded() const { return !seams_.key.empty(); }
  bool isValid() const { return checked_.allowsEverything(); }
  QString text() const;
  QString advice() const;
  const QString& problem() const { return problem_; }

  // A copy of the file takes the place of the present one, if it is a valid licence.
  void install(const std::filesystem::path& file);
  Q_INVOKABLE void choose() { Q_EMIT fileAsked(); }

  // When it ends.
  std::optional<Instant> due() const override;
  void tick(Instant now) override { read(now); }
  void clockMoved(Seconds /*by*/, Instant now) override { read(now); }

 Q_SIGNALS:
  void changed();
  // Let the user choose a file.
  void fileAsked();

 private:
  void read(Instant now);

  Seams seams_;
  LicenseManager& gate_;
  FollowedFile watcher_;
  CheckedLicence checked_;
  QString problem_;
};

}  // namespace ambrel
