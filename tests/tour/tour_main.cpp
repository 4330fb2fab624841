// A scripted user works through the real screens, checks the files afterwards and leaves numbered
// pictures. Each chapter is a start of the program of its own.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <clocale>
#include <cstdio>

#include "app/first_run_setup.h"
#include "tests/tour/chapters.h"
#include "tests/tour/guide_pictures.h"
#include "ui/base/theme.h"

namespace {

using brovanta::tour::Robot;
using brovanta::tour::Stage;

/// The screen of a handheld with fine pixels: the usual one would be too low at twice the scale.
constexpr const char* kSharpScreen =
    R"({"screens": [{"name": "handheld", "x": 0, "y": 0, "width": 720, "height": 1280,
                     "logicalDpi": 96, "dpr": 1}]})";

int Report(const Robot& robot, const QString& chapter) {
  std::printf("%-10s %3d pictures, %4d checks, %zu failures\n", qPrintable(chapter),
              robot.pictures(), robot.checks(), robot.failures().size());
  for (const QString& failure : robot.failures()) std::printf("  %s\n", qPrintable(failure));
  return robot.failures().empty() ? 0 : 1;
}

int PlayChapter(const QString& chapter, const QString& folder, const QString& pictures) {
  Robot robot(pictures, chapter);
  Stage stage(folder.toStdString());
  if (chapter == QStringLiteral("1_list")) {
    brovanta::tour::TypeTheListIn(robot, stage);
  } else if (chapter == QStringLiteral("2_life")) {
    brovanta::tour::LiveWithTheList(robot, stage);
  } else if (chapter == QStringLiteral("3_coupons")) {
    brovanta::tour::UseCoupons(robot, stage);
  } else if (chapter == QStringLiteral("4_wide")) {
    brovanta::tour::LookAround(robot, stage, QSize(640, 360));
  } else if (chapter == QStringLiteral("5_small")) {
    brovanta::tour::LookAround(robot, stage, QSize(320, 480));
  } else if (chapter == QStringLiteral("6_double")) {
    brovanta::tour::LookAround(robot, stage, QSize(360, 640));
  } else if (chapter == QStringLiteral("6_night")) {
    brovanta::tour::LookByNight(robot, stage);
  } else if (chapter == QStringLiteral("8_update")) {
    brovanta::tour::BringUpToDate(robot, stage);
  } else if (chapter.startsWith(QStringLiteral("9_search"))) {
    brovanta::tour::SearchTheWeb(robot, stage);
  } else {
    brovanta::tour::EnterALongList(robot, stage, BROVANTA_REAL_PRODUCTS);
  }
  return Report(robot, chapter);
}

// Runs one chapter as a process of its own: a real start, with its own scale.
int StartChapter(const QString& chapter, const QString& folder, const QString& pictures) {
  QProcess process;
  QTemporaryFile screens;
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  if (chapter.endsWith(QStringLiteral("_double"))) {
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    if (screens.open() &&
        environment.value(QStringLiteral("QT_QPA_PLATFORM")) == QStringLiteral("offscreen")) {
      screens.write(kSharpScreen);
      screens.close();
      environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                         QStringLiteral("offscreen:configfile=") + screens.fileName());
    }
  }
  process.setProcessEnvironment(environment);
  process.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--chapter"), chapter, QStringLiteral("--folder"), folder,
                 QStringLiteral("--pictures"), pictures});
  process.waitForFinished(-1);
  return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : 2;
}

int PlayAll(const QString& pictures) {
  const QString guide = pictures + QStringLiteral("/guide");
  QDir(guide).removeRecursively();  // what an earlier tour took must not hide what is missing
  QDir().mkpath(guide);
  QTemporaryDir household;
  QTemporaryDir long_list;
  QTemporaryDir updated;
  QTemporaryDir searching;
  QTemporaryDir searching_sharp;
  int result = 0;
  for (const QTemporaryDir* folder :
       {&household, &long_list, &updated, &searching, &searching_sharp}) {
    if (!folder->isValid()) return 2;
    if (!brovanta::SeedNameLists(folder->path().toStdString())) return 2;
  }
  for (const char* chapter :
       {"1_list", "2_life", "3_coupons", "4_wide", "5_small", "6_double", "6_night"}) {
    result |= StartChapter(QString::fromLatin1(chapter), household.path(), pictures);
  }
  result |= StartChapter(QStringLiteral("7_long"), long_list.path(), pictures);
  result |= StartChapter(QStringLiteral("8_update"), updated.path(), pictures);
  result |= StartChapter(QStringLiteral("9_search"), searching.path(), pictures);
  result |= StartChapter(QStringLiteral("9_search_double"), searching_sharp.path(), pictures);
  for (const QString& file : brovanta::tour::MissingGuidePictures(guide)) {
    std::printf("The tour took no picture \"%s\" for the guide\n", qPrintable(file));
    result = 1;
  }
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("TZ", "UTC");
  if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
      qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  brovanta::ApplyTheme(application);

  QCommandLineParser parser;
  const QCommandLineOption pictures(QStringLiteral("pictures"), {}, QStringLiteral("folder"),
                                    QStringLiteral("pictures"));
  const QCommandLineOption chapter(QStringLiteral("chapter"), {}, QStringLiteral("name"));
  const QCommandLineOption folder(QStringLiteral("folder"), {}, QStringLiteral("folder"));
  parser.addOptions({pictures, chapter, folder});
  parser.process(application);
  const QString picture_folder = QDir(parser.value(pictures)).absolutePath();
  return parser.isSet(chapter)
             ? PlayChapter(parser.value(chapter), parser.value(folder), picture_folder)
             : PlayAll(picture_folder);
}
