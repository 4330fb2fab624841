#include "app/start_up.h"

#include <unistd.h>

#include <QApplication>
#include <clocale>
#include <cstdio>
#include <utility>

#include "app/application.h"
#include "app/first_run_setup.h"
#include "app/single_instance.h"
#include "app/user_folders.h"
#include "db/file_names.h"
#include "db/journal.h"
#include "ui/base/language.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr const char* kRegistryInFolder = "/registry.reg";
constexpr int kPatience = 5000;

void Complain(const std::string& sentence) {
  std::fprintf(stderr, "brovanta: %s\n", sentence.c_str());
}

// First what a change that ended in the middle has left: it may be a list that is not there.
void MendFolder(const std::string& folder) {
  const std::string journal = folder.empty() ? kJournalFile : folder + "/" + kJournalFile;
  if (RollBackJournal(journal) != 0 || !SeedNameLists(folder)) {
    Complain("cannot write in the folder '" + folder + "'");
  }
}

ReadyData GetFolderReady(platform::RegistryStore store, std::string folder) {
  ReadyData data{.store = std::move(store),
                 .folder = std::move(folder),
                 .lock = {},
                 .is_free = false,
                 .first_rows = nullptr};
  const std::string canonical = platform::CanonicalFolder(data.folder.empty() ? "." : data.folder);
  data.is_free =
      canonical.empty() || data.lock.Take(canonical) != platform::FolderLock::Outcome::kHeld;
  if (data.is_free) MendFolder(data.folder);  // else the other one may be in the middle of a change
  return data;
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
  ApplyTheme(*qApp);
  if (language.empty()) return;
  if (const auto known = LanguageFor(QString::fromStdString(language))) SpeakLanguage(*known);
}

std::string ConfiguredUpdateServer(const CommandLine& line) {
  const std::string& folder = line.data_folder;
  return UpdateServer(
      platform::RegistryStore(folder.empty() ? UserRegistryFile() : folder + kRegistryInFolder));
}

std::optional<ReadyData> GetDataReady(const CommandLine& line) {
  if (line.data_folder.empty()) {
    platform::RegistryStore store(UserRegistryFile());
    std::string problem;
    std::string folder = SetUpUserData(store, UserDataFolder(), problem);
    if (problem.empty()) return GetFolderReady(std::move(store), std::move(folder));
    Complain(problem);
    return std::nullopt;
  }
  std::string folder = line.data_folder;
  const std::string problem = SetUpThrowAwayFolder(folder);
  if (!problem.empty()) {
    Complain(problem);
    return std::nullopt;
  }
  platform::RegistryStore store(folder + kRegistryInFolder);
  SetUpUpdateServer(store);
  return GetFolderReady(std::move(store), std::move(folder));
}

void BeginFirstRows(ReadyData& data, std::shared_future<void> begin) {
  if (!data.is_free) return;
  data.first_rows = std::make_unique<FirstRows>(std::make_unique<ShoppingDatabase>(), data.folder,
                                                std::move(begin));
}

int RunProgram(ReadyData data) {
  SingleInstance instance(data.folder, std::move(data.lock));
  switch (instance.Claim(kPatience)) {
    case SingleInstance::Outcome::kRaised:
      return kExitWell;
    case SingleInstance::Outcome::kSilent:
      Complain("the program is running on '" + data.folder + "' already, but does not answer");
      return kExitNoData;
    case SingleInstance::Outcome::kFirst:
      break;
  }
  if (!data.is_free) MendFolder(data.folder);  // the other one has just ended
  // Bare file names mean files in the data folder from here on.
  if (!data.folder.empty() && chdir(data.folder.c_str()) != 0) {
    Complain("cannot work in the folder '" + data.folder + "'");
  }
  Application application(data.store, data.folder, std::move(data.first_rows));
  instance.SetRaiseHandler([&application] { application.RaiseWindow(); });
  application.InitInstance();
  instance.SetRaiseHandler(nullptr);
  return kExitWell;
}

}  // namespace brovanta
