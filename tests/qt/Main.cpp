// Runs the desktop's tests on real widgets that no display is needed for.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "qt/Look.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // The file dialog remembers where it was, and tests are none of the user's business.
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
  QApplication application(argc, argv);
  tintbench::desktop::ApplyLook(application, tintbench::desktop::Brightness::Light);
  return RUN_ALL_TESTS();
}
