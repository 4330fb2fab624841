#include "app/start_up.h"

#include <unistd.h>

#include <QApplication>
#include <clocale>
#include <cstdio>
#include <future>
#include <memory>
#include <optional>
#include <utility>

#include "app/application.h"
#include "app/first_run_setup.h"
#include "app/single_instance.h"
#include "app/user_folders.h"
#include "db/file_names.h"
#include "db/journal.h"
#include "platform/folder.h"
#include "platform/registry.h"
#include "ui/base/language.h"
#include "ui/base/theme.h"
#include "ui/base/warm_up.h"
#include "ui/shell/first_rows.h"

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

/// The data that the program runs on.
struct ReadyData {
  platform::RegistryStore store;
  std::string folder;                     // native, "" the working folder
  platform::FolderLock lock;              // the folder's, unless someone else has it
  bool is_free = false;                   // nobody else has it
  std::unique_ptr<FirstRows> first_rows;  // null until somebody begins to read them
};

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

// As far as it needs no toolkit. Where nobody else has the folder, what a broken change has left is
// undone. Nothing when the program cannot run.
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

// Not while somebody else has the folder.
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

/// While it lives, the toolkit's last words end the process in order. It says them when the screen
/// that the environment names cannot be reached, and would abort.
class EndWithoutScreen {
 public:
  EndWithoutScreen() { before_ = qInstallMessageHandler(Say); }
  EndWithoutScreen(const EndWithoutScreen&) = delete;
  EndWithoutScreen& operator=(const EndWithoutScreen&) = delete;
  ~EndWithoutScreen() { qInstallMessageHandler(before_); }

 private:
  static void Say(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    before_(type, context, message);
    if (type != QtFatalMsg) return;
    ComplainOfNoScreen();
    _exit(kExitNoData);  // other threads may be at work
  }

  inline static QtMessageHandler before_ = nullptr;
};

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

void ComplainOfNoScreen() { Complain("there is no screen to show a window on"); }

int RunOnScreen(const CommandLine& line, int argc, char** argv) {
  std::optional<ReadyData> data = GetDataReady(line);
  if (!data) return kExitNoData;
  const WarmUp warm_up;
  // Not while the window system is being connected to, which needs a processor as well.
  std::promise<void> connected;
  BeginFirstRows(*data, connected.get_future().share());
  int toolkit_argc = argc > 0 ? 1 : 0;
  std::optional<EndWithoutScreen> no_screen(std::in_place);
  const QApplication application(toolkit_argc, argv);
  no_screen.reset();
  connected.set_value();
  warm_up.Wait();
  PrepareToolkit(line.language);
  return RunProgram(std::move(*data));
}

std::string ConfiguredUpdateServer(const CommandLine& line) {
  const std::string& folder = line.data_folder;
  return UpdateServer(
      platform::RegistryStore(folder.empty() ? UserRegistryFile() : folder + kRegistryInFolder));
}

}  // namespace brovanta
