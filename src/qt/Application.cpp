#include "qt/Application.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <array>

#include "qt/Look.h"
#include "qt/NamedPictures.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

QIcon MakeIcon() {
  QIcon icon;
  for (const int edge : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(edge, edge);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, true);
    PaintDrop(painter, QRectF(edge * 0.18, 0, edge * 0.64, edge), QColor(0x1C, 0x6E, 0xA4));
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

std::unique_ptr<QCoreApplication> MakeWindowed(int& count, char** arguments) {
  auto application = std::make_unique<QApplication>(count, arguments);
  ApplyLook(*application);
  QGuiApplication::setWindowIcon(MakeIcon());
  QGuiApplication::setDesktopFileName("tintbench");
  return application;
}

}  // namespace

Application::Application(ApplicationKind kind, int& count, char** arguments,
                         const std::string& title)
    : application_(kind == ApplicationKind::Windows
                       ? MakeWindowed(count, arguments)
                       : std::make_unique<QCoreApplication>(count, arguments)) {
  QCoreApplication::setApplicationName(ToQt(title));
}

Application::~Application() = default;

void Application::ServeEvents() { QCoreApplication::processEvents(); }

bool Application::HasDisplay() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  constexpr std::array<const char*, 3> kTellers{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  return std::any_of(kTellers.begin(), kTellers.end(),
                     [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
#else
  return true;
#endif
}

}  // namespace tintbench::desktop
