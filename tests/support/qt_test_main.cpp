// main() of the test programs with screens: an application on the offscreen platform.
#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

#include "ui/base/theme.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  brovanta::ApplyTheme(application);
  return RUN_ALL_TESTS();
}
