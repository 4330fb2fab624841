// Starts the program itself.
#include "app/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QTest>
#include <clocale>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "app/single_instance.h"
#include "data/backup_folder.h"
#include "data/backup_names.h"
#include "db/journal_format.h"
#include "tests/support/comma_locale.h"
#include "tests/support/temp_folder.h"
#include "ui/base/language.h"

namespace brovanta {
namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

constexpr int kPatience = 20000;

std::set<std::string> Names(const std::string& folder) {
  std::set<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

class StartUpTest : public testing::Test {
 protected:
  StartUpTest() {
    environment_ = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"config", "data", "runtime"}) {
      fs::create_directory(folder_.File(name));
      fs::permissions(folder_.File(name), fs::perms(0700));
    }
    const auto set = [this](const char* name, const std::string& value) {
      environment_.insert(QLatin1String(name), QString::fromStdString(value));
    };
    set("XDG_CONFIG_HOME", folder_.File("config"));
    set("XDG_DATA_HOME", folder_.File("data"));
    set("XDG_RUNTIME_DIR", folder_.File("runtime"));
    set("QT_QPA_PLATFORM", "offscreen");
    // The program itself has no list of the toolkit's leaks, as the tests have.
    folder_.WriteText("leaks", "leak:QScroller::grabGesture\nleak:libQt6DBus.so\n");
    set("LSAN_OPTIONS", "print_suppressions=0:suppressions=" + folder_.File("leaks"));
    qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(folder_.File("runtime")));
  }

  ~StartUpTest() override {
    for (const auto& process : started_) {
      process->kill();
      process->waitForFinished(kPatience);
    }
  }

  QProcess& Start(const QStringList& arguments) {
    started_.push_back(std::make_unique<QProcess>());
    QProcess& process = *started_.back();
    process.setProcessEnvironment(environment_);
    process.start(QStringLiteral(BROVANTA_PROGRAM), arguments);
    EXPECT_TRUE(process.waitForStarted(kPatience));
    return process;
  }

  /// Starts the program and waits until it has its data folder to itself.
  QProcess& StartFirst(const QStringList& arguments, const std::string& data_folder) {
    QProcess& process = Start(arguments);
    EXPECT_TRUE(QTest::qWaitFor(
        [&data_folder] {
          const QString path = SingleInstance(data_folder).socket_path();
          return platform::LocalSocket::ConnectTo(path.toStdString()).valid();
        },
        kPatience));
    return process;
  }
  QProcess& StartFirst() { return StartFirst(DataFolder(), folder_.File("throw away")); }

  /// Starts the program and waits for its end.
  QProcess& Run(const QStringList& arguments) {
    QProcess& process = Start(arguments);
    EXPECT_TRUE(process.waitForFinished(kPatience));
    return process;
  }

  QStringList DataFolder() const {
    return {QStringLiteral("--data-folder"), QString::fromStdString(folder_.File("throw away"))};
  }

  test::TempFolder folder_;
  QProcessEnvironment environment_;
  std::vector<std::unique_ptr<QProcess>> started_;
};

TEST_F(StartUpTest, VersionIsPrintedWithoutAScreen) {
  environment_.remove(QStringLiteral("QT_QPA_PLATFORM"));
  environment_.remove(QStringLiteral("DISPLAY"));
  QProcess& process = Run({QStringLiteral("--version")});
  EXPECT_EQ(process.exitCode(), 0);
  EXPECT_THAT(process.readAllStandardOutput().toStdString(),
              testing::MatchesRegex("brovanta [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(StartUpTest, HelpIsPrinted) {
  QProcess& process = Run({QStringLiteral("--help")});
  EXPECT_EQ(process.exitCode(), 0);
  EXPECT_THAT(process.readAllStandardOutput().toStdString(), HasSubstr("Usage: brovanta"));
}

TEST_F(StartUpTest, TheUpdateServerOfTheSettingsIsPrintedAndNothingIsMade) {
  environment_.remove(QStringLiteral("QT_QPA_PLATFORM"));
  const QStringList ask = {QStringLiteral("--show-update-server")};
  EXPECT_EQ(Run(ask).readAllStandardOutput(), QByteArray("http://localhost:8427\n"));
  EXPECT_TRUE(fs::is_empty(folder_.File("config")));
  fs::create_directory(folder_.File("config/brovanta"));
  folder_.WriteText("config/brovanta/registry.reg",
                    "Windows Registry Editor Version 5.00\n\n"
                    "[HKEY_CURRENT_USER\\Software\\Brovanta]\n"
                    "\"UpdateServer\"=\"http://shop.example\"\n");
  EXPECT_EQ(Run(ask).readAllStandardOutput(), QByteArray("http://shop.example\n"));
  EXPECT_EQ(Run(ask + DataFolder()).readAllStandardOutput(), QByteArray("http://localhost:8427\n"));
  EXPECT_FALSE(fs::exists(folder_.File("throw away")));
}

TEST_F(StartUpTest, WrongArgumentsEndWithTwoAndAClearWord) {
  QProcess& process = Run({QStringLiteral("--colour")});
  EXPECT_EQ(process.exitCode(), 2);
  EXPECT_EQ(process.readAllStandardError().toStdString(),
            "brovanta: unknown option '--colour'\nTry 'brovanta --help'.\n");
  EXPECT_EQ(process.readAllStandardOutput(), QByteArray());
}

TEST_F(StartUpTest, WithoutAScreenItSaysSoAndEnds) {
  for (const char* const name :
       {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) {
    environment_.remove(QLatin1String(name));
  }
  QProcess& process = Run(DataFolder());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 1);
  EXPECT_THAT(process.readAllStandardError().toStdString(), HasSubstr("no screen"));
}

TEST_F(StartUpTest, AScreenThatCannotBeReachedIsNone) {
  environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("nowhere"));
  QProcess& process = Run(DataFolder());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 1);
  EXPECT_THAT(process.readAllStandardError().toStdString(),
              HasSubstr("brovanta: there is no screen"));
}

TEST_F(StartUpTest, WhatCannotBePrintedEndsWithOne) {
  for (const char* const option : {"--version", "--help", "--show-update-server"}) {
    QProcess process;
    process.setProcessEnvironment(environment_);
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(BROVANTA_PROGRAM), {QLatin1String(option)});
    EXPECT_TRUE(process.waitForFinished(kPatience)) << option;
    EXPECT_EQ(process.exitCode(), 1) << option;
    EXPECT_EQ(process.readAllStandardError(),
              QByteArray("brovanta: standard output cannot be written\n"))
        << option;
  }
}

TEST_F(StartUpTest, ADataFolderThatCannotBeMadeEndsWithOne) {
  folder_.WriteText("file", "");
  QProcess& process =
      Run({QStringLiteral("--data-folder"), QString::fromStdString(folder_.File("file/below"))});
  EXPECT_EQ(process.exitCode(), 1);
  EXPECT_THAT(process.readAllStandardError().toStdString(), HasSubstr("cannot make the folder"));
}

TEST_F(StartUpTest, SettingsThatCannotBeReadEndWithOneAndNothingIsMade) {
  fs::create_directories(folder_.File("config/brovanta/registry.reg"));
  QProcess& process = Run({});
  EXPECT_EQ(process.exitCode(), 1);
  EXPECT_EQ(process.readAllStandardError().toStdString(),
            "brovanta: cannot read the settings '" + folder_.File("config/brovanta/registry.reg") +
                "'\n");
  EXPECT_TRUE(fs::is_empty(folder_.File("data")));
}

TEST_F(StartUpTest, AThrowAwayFolderAndItsCopiesHoldEverythingAndNothingElseIsTouched) {
  fs::create_directory(folder_.File("throw away"));
  folder_.WriteText("throw away/product.dat", "entries");
  const std::set<std::string> before = Names(folder_.path());
  StartFirst();
  ASSERT_TRUE(QTest::qWaitFor(
      [this] { return !BackupFolder(folder_.File("throw away")).Copies().empty(); }, kPatience));
  EXPECT_EQ(Run(DataFolder()).exitCode(), 0);
  for (const char* const name : {"store.lst", "category.lst", "unit.lst", "registry.reg"}) {
    EXPECT_TRUE(fs::exists(folder_.File("throw away") + "/" + name)) << name;
  }
  EXPECT_TRUE(fs::is_empty(folder_.File("config")));
  EXPECT_TRUE(fs::is_empty(folder_.File("data")));
  std::set<std::string> after = Names(folder_.path());
  EXPECT_EQ(after.erase("throw away.backups"), 1U);
  EXPECT_EQ(after, before);
}

TEST_F(StartUpTest, ASecondStartFindsTheFirstThoughTheirFolderIsMissing) {
  fs::create_directory(folder_.File("config/brovanta"));
  folder_.WriteText("config/brovanta/registry.reg",
                    "Windows Registry Editor Version 5.00\n\n"
                    "[HKEY_CURRENT_USER\\Software\\Brovanta]\n"
                    "\"InstallPath\"=\"" +
                        folder_.File("gone") + "\"\n");
  const QProcess& first = StartFirst({}, folder_.File("gone"));
  EXPECT_EQ(Run({}).exitCode(), 0);
  EXPECT_EQ(first.state(), QProcess::Running);
  fs::create_directory(folder_.File("gone"));  // a card that was put in again
  EXPECT_EQ(Run({}).exitCode(), 0);
  EXPECT_EQ(first.state(), QProcess::Running);
}

TEST_F(StartUpTest, TheFirstStartOfAUserMakesFolderListsAndSettings) {
  StartFirst({}, folder_.File("data/brovanta"));
  EXPECT_EQ(Run({}).exitCode(), 0);
  EXPECT_EQ(folder_.Read("data/brovanta/store.lst"), test::Hex("81 38 01 00 83 38 01 00"));
  EXPECT_TRUE(folder_.Read("data/brovanta/category.lst"));
  EXPECT_TRUE(folder_.Read("data/brovanta/unit.lst"));
  EXPECT_THAT(folder_.ReadText("config/brovanta/registry.reg").value_or(""),
              HasSubstr("InstallPath"));
}

TEST_F(StartUpTest, WhatAChangeHasLeftIsRolledBackBeforeListsAreMade) {
  fs::create_directory(folder_.File("throw away"));
  fs::permissions(folder_.File("throw away"), fs::perms(0700));
  folder_.WriteText("throw away/store.lst", "half");
  folder_.Write("throw away/backup.dat",
                EncodeJournal(std::vector<UndoRecord>{{UndoKind::kMade, "store.lst", 0, 0, {}}}));
  StartFirst();
  const test::Bytes empty_list = test::Hex("81 38 01 00 83 38 01 00");
  EXPECT_TRUE(QTest::qWaitFor([&] { return folder_.Read("throw away/store.lst") == empty_list; },
                              kPatience));
}

TEST_F(StartUpTest, TheFirstStartOfADayKeepsACopyBesideTheDataFolder) {
  fs::create_directory(folder_.File("throw away"));
  folder_.WriteText("throw away/product.dat", "entries");
  StartFirst();
  const BackupFolder backups(folder_.File("throw away"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !backups.Copies().empty(); }, kPatience));
  EXPECT_EQ(BackupFolder(folder_.File("throw away")).Copies().front().name, TodaysCopyName());
  EXPECT_EQ(folder_.ReadText("throw away.backups/" + TodaysCopyName() + "/product.dat"), "entries");
}

TEST_F(StartUpTest, ASecondStartEndsWithZeroAndLeavesTheFirstRunning) {
  const QProcess& first = StartFirst();
  QProcess& second = Run(DataFolder());
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_EQ(second.readAllStandardError(), QByteArray());
  EXPECT_EQ(first.state(), QProcess::Running);
}

TEST_F(StartUpTest, OfTwoStartsAtOnceExactlyOneRuns) {
  QProcess& one = Start(DataFolder());
  QProcess& other = Start(DataFolder());
  ASSERT_TRUE(QTest::qWaitFor(
      [&] { return one.state() == QProcess::NotRunning || other.state() == QProcess::NotRunning; },
      kPatience));
  QProcess& ended = one.state() == QProcess::NotRunning ? one : other;
  QProcess& running = &ended == &one ? other : one;
  EXPECT_EQ(ended.exitCode(), 0);
  EXPECT_EQ(running.state(), QProcess::Running);
  EXPECT_EQ(Run(DataFolder()).exitCode(), 0);
  EXPECT_EQ(running.state(), QProcess::Running);
}

TEST_F(StartUpTest, AKilledProgramDoesNotBlockTheNextStart) {
  QProcess& first = StartFirst();
  EXPECT_EQ(Run(DataFolder()).exitCode(), 0);
  first.kill();
  ASSERT_TRUE(first.waitForFinished(kPatience));
  QProcess& next = StartFirst();
  EXPECT_EQ(Run(DataFolder()).exitCode(), 0);
  EXPECT_EQ(next.state(), QProcess::Running);
}

TEST_F(StartUpTest, ProgramsOnDifferentFoldersRunSideBySide) {
  const QProcess& first = StartFirst();
  const QStringList elsewhere = {QStringLiteral("--data-folder"),
                                 QString::fromStdString(folder_.File("other"))};
  const QProcess& other = StartFirst(elsewhere, folder_.File("other"));
  EXPECT_EQ(Run(DataFolder()).exitCode(), 0);
  EXPECT_EQ(Run(elsewhere).exitCode(), 0);
  EXPECT_EQ(first.state(), QProcess::Running);
  EXPECT_EQ(other.state(), QProcess::Running);
}

TEST_F(StartUpTest, ClosingTheWindowEndsTheProgramWell) {
  environment_.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(BROVANTA_PLUGINS));
  environment_.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("brovanta_closer"));
  QProcess& process = Run(DataFolder());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 0);
  EXPECT_EQ(process.readAllStandardError().toStdString(), "");
  EXPECT_TRUE(fs::exists(folder_.File("throw away/store.lst"))) << "it had come up";
}

TEST_F(StartUpTest, ALanguageThatThereIsNotIsRefusedWithThoseThatThereAre) {
  QStringList arguments = DataFolder();
  arguments << QStringLiteral("--language") << QStringLiteral("tlh");
  QProcess& process = Run(arguments);
  EXPECT_EQ(process.exitCode(), 2);
  EXPECT_EQ(process.readAllStandardError().toStdString(),
            "brovanta: there is no translation for 'tlh'; choose one of these: de, en, system\n");
  EXPECT_EQ(LanguageProblem("de"), "");
  EXPECT_EQ(LanguageProblem("en_GB"), "");
  EXPECT_EQ(LanguageProblem("system"), "");
  EXPECT_EQ(LanguageProblem(""), "");
}

TEST_F(StartUpTest, TheLocaleAloneChangesNothingALanguageThatIsAskedForDoes) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale comma;
  PrepareToolkit({});
  EXPECT_FALSE(SpeaksTranslated());
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  PrepareToolkit("de");
  EXPECT_TRUE(SpeaksTranslated());
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  PrepareToolkit("en_GB");
  EXPECT_FALSE(SpeaksTranslated());
  EXPECT_EQ(SpokenLocale().territory(), QLocale::UnitedKingdom);
  PrepareToolkit("en");
  EXPECT_EQ(SpokenLocale().territory(), QLocale::UnitedStates);
}

TEST_F(StartUpTest, NumbersKeepTheirPointAndTheWindowItsDesktopFile) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale comma;  // as the toolkit takes it over from the user
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  PrepareToolkit({});
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  EXPECT_STREQ(std::localeconv()->decimal_point, ".");
  EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("org.brovanta.Brovanta"));
}

}  // namespace
}  // namespace brovanta
