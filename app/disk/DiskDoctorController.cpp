#include "app/disk/DiskDoctorController.h"

#include <QQmlEngine>

#include "app/base/ItemMaker.h"

namespace ambrel {
namespace {

constexpr QSize size{980, 640};
constexpr QSize smallest{860, 560};

}  // namespace

DiskDoctorController::DiskDoctorController(QQmlEngine& engine, WindowStyle& style, DiskDoctor& doctor, QObject* parent)
    : QObject(parent), engine_(engine), style_(style), doctor_(doctor) {}

DiskDoctorController::~DiskDoctorController() = default;

void DiskDoctorController::open() {
  if (!window_) {
    window_ = std::make_unique<FramedWindow>(engine_, style_, tr("Disk Doctor"), size, smallest);
    connect(window_.get(), &FramedWindow::closeAsked, this, &DiskDoctorController::close);
    window_->setInitialProperties({{QStringLiteral("window"), QVariant::fromValue(window_.get())},
                                   {QStringLiteral("doctor"), QVariant::fromValue(&doctor_)}});
    window_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Disk/DiskDoctorView.qml")));
  }
  if (window_->windowStates() & Qt::WindowMinimized)
    window_->showNormal();
  else
    window_->show();
  window_->raise();
  style_.activate(*window_);
}

void DiskDoctorController::close() {
  if (!window_) return;
  doctor_.stop();
  doctor_.question()->close();
  doctor_.review()->close();
  window_->hide();
  closed_ = std::move(window_);
  QMetaObject::invokeMethod(
      this,
      [this] {
        closed_.reset();
        forgetUnused(engine_);
      },
      Qt::QueuedConnection);
}

}  // namespace ambrel
