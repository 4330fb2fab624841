#include "tests/support/small_screen.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

#include "tests/support/temp_folder.h"

namespace brovanta::test {
namespace {
/// Set in the process that runs on the small screen.
constexpr char kOnHandheld[] = "BROVANTA_ON_HANDHELD";
}  // namespace

bool OnSmallScreen() { return !qEnvironmentVariableIsEmpty(kOnHandheld); }

int RunOnSmallScreen(const char* test, QSize screen, int scale) {
  const TempFolder folder;
  folder.WriteText("screens.json", R"({"screens":[{"name":"handheld","x":0,"y":0,"width":)" +
                                       std::to_string(screen.width() * scale / 100) +
                                       R"(,"height":)" +
                                       std::to_string(screen.height() * scale / 100) +
                                       R"(,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})");
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                     QStringLiteral("offscreen:configfile=") +
                         QString::fromStdString(folder.File("screens.json")));
  environment.insert(QLatin1String(kOnHandheld), QStringLiteral("1"));
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale / 100.0));
  environment.remove(QStringLiteral("GTEST_OUTPUT"));
  QProcess process;
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=") + QString::fromLatin1(test)});
  constexpr int kPatience = 300'000;  // milliseconds, on a machine that others use as well
  return process.waitForFinished(kPatience) ? process.exitCode() : -1;
}

}  // namespace brovanta::test
