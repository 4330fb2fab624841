#include "app/start_up.h"

#include <unistd.h>

#include <QApplication>
#include <clocale>
#include <cstdio>

#include "app/application.h"
#include "app/first_run_setup.h"
#include "app/single_instance.h"
#include "app/user_folders.h"
#include "db/file_names.h"
#include "db/journal.h"
#include "ui/base/icons.h"
#include "ui/base/language.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr const char* kRegistryInFolder = "/registry.reg";
constexpr int kProgramIcon = 128;
constexpr int kPatience = 5000;

void Complain(const std::string& sentence) {
  std::fprintf(stderr, "brovanta: %s\n", sentence.c_str());
}

int RunOn(const platform::RegistryStore& store, const std::string& data_folder) {
  SingleInstance instance(data_folder);
  switch (instance.Claim(kPatience)) {
    case SingleInstance::Outcome::kRaised:
      return kExitWell;
    case SingleInstance::Outcome::kSilent:
      Complain("the program is running on '" + data_folder + "' already, but does not answer");
      return kExitNoData;
    case SingleInstance::Outcome::kFirst:
      break;
  }
  // First what a change that ended in the middle has left: it may be a list that is not there.
  const std::string journal = data_folder.empty() ? kJournalFile : data_folder + "/" + kJournalFile;
  if (RollBackJournal(journal) != 0 || !SeedNameLists(data_folder)) {
    Complain("cannot write in the folder '" + data_folder + "'");
  }
  // Bare file names mean files in the data folder from here on.
  if (!data_folder.empty() && chdir(data_folder.c_str()) != 0) {
    Complain("cannot work in the folder '" + data_folder + "'");
  }
  Application application(store, data_folder);
  instance.SetRaiseHandler([&application] { application.RaiseWindow(); });
  application.InitInstance();
  instance.SetRaiseHandler(nullptr);
  return kExitWell;
}

}  // namespace

bool HasScreen() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_SOCKET") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

std::string LanguageProblem(const std::string& asked) {
  if (asked.empty() || LanguageFor(QString::fromStdString(asked))) return {};
  return "there is no translation for '" + asked +
         "'; choose one of these: " + KnownLanguages().join(QStringLiteral(", ")).toStdString() +
         ", system";
}

void PrepareToolkit(const std::string& language) {
  // The toolkit takes the user's locale over; files and fields have points in their numbers.
  std::setlocale(LC_NUMERIC, "C");
  QCoreApplication::setApplicationName(QStringLiteral("brovanta"));
  QGuiApplication::setDesktopFileName(QStringLiteral("org.brovanta.Brovanta"));
  QApplication::setWindowIcon(NumberedIcon(kProgramIcon));
  ApplyTheme(*qApp);
  if (language.empty()) return;
  if (const auto known = LanguageFor(QString::fromStdString(language))) SpeakLanguage(*known);
}

std::string ConfiguredUpdateServer(const CommandLine& line) {
  const std::string& folder = line.data_folder;
  return UpdateServer(
      platform::RegistryStore(folder.empty() ? UserRegistryFile() : folder + kRegistryInFolder));
}

int RunProgram(const CommandLine& line) {
  if (line.data_folder.empty()) {
    const platform::RegistryStore store(UserRegistryFile());
    return RunOn(store, SetUpUserData(store, UserDataFolder()));
  }
  std::string folder = line.data_folder;
  const std::string problem = SetUpThrowAwayFolder(folder);
  if (!problem.empty()) {
    Complain(problem);
    return kExitNoData;
  }
  const platform::RegistryStore store(folder + kRegistryInFolder);
  SetUpUpdateServer(store);
  return RunOn(store, folder);
}

}  // namespace brovanta
