#include "qt/PortProblem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace tintbench::desktop {

namespace {

bool IsDevice(const QString& path) {
#ifdef Q_OS_UNIX
  struct stat status {};
  return ::stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISCHR(status.st_mode);
#else
  return !path.isEmpty();
#endif
}

bool HasRights(const QString& path) {
#ifdef Q_OS_UNIX
  return ::access(QFile::encodeName(path).constData(), R_OK | W_OK) == 0;
#else
  return QFileInfo(path).isWritable();
#endif
}

std::string NoRights(const QString& device) {
  const QString group = QFileInfo(device).group();
  // Nobody should join the group of the administrator for the sake of a port.
  if (group.isEmpty() || group == QLatin1String("root")) return "you have no right to use it";
  return QStringLiteral(
             "you have no right to use it; join its group with \"sudo adduser $USER %1\" and log "
             "in "
             "again")
      .arg(group)
      .toStdString();
}

QString ProgramName(const QString& process) {
  QFile file(QStringLiteral("/proc/%1/comm").arg(process));
  if (!file.open(QIODevice::ReadOnly)) return QStringLiteral("a program");
  return QString::fromLocal8Bit(file.readAll()).trimmed();
}

}  // namespace

std::string DeviceHolders(const std::string& device) {
  const QString real = QFileInfo(QString::fromStdString(device)).canonicalFilePath();
  const QString self = QString::number(QCoreApplication::applicationPid());
  QStringList holders;
  for (const QString& process : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
    if (process == self || !process.at(0).isDigit()) continue;
    const QDir files(QStringLiteral("/proc/%1/fd").arg(process));
    for (const QFileInfo& file : files.entryInfoList(QDir::AllEntries | QDir::System)) {
      if (!file.isSymLink() || file.symLinkTarget() != real) continue;
      holders.append(QStringLiteral("%1 (process %2)").arg(ProgramName(process), process));
      break;
    }
  }
  return holders.join(QStringLiteral(", ")).toStdString();
}

bool IsPseudoTerminal(const std::string& device) {
  const QString real = QFileInfo(QString::fromStdString(device)).canonicalFilePath();
  return real.startsWith(QLatin1String("/dev/pts/")) || real.startsWith(QLatin1String("/dev/ttys"));
}

std::string DeviceProblem(const std::string& device) {
  const QString path = QString::fromStdString(device);
  if (!QFileInfo::exists(path)) {
    return "there is no device " + device + ": is the adapter plugged in?";
  }
#ifdef Q_OS_UNIX
  if (!IsDevice(path)) return device + " is not a serial device";
  if (!HasRights(path)) return NoRights(path);
#endif
  return {};
}

}  // namespace tintbench::desktop
