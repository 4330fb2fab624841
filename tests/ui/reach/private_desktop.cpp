#include "tests/ui/reach/private_desktop.h"

#include <signal.h>
#include <unistd.h>

#include <QDBusInterface>
#include <QDBusReply>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace brovanta::test {
namespace {

namespace fs = std::filesystem;

constexpr int kPatience = 20'000;  // milliseconds

/// What an executable of the system is called by its path; empty when it is not installed.
std::string Installed(const char* name) {
  for (const char* folder : {"/usr/bin/", "/bin/", "/usr/local/bin/"}) {
    const std::string path = std::string(folder) + name;
    if (access(path.c_str(), X_OK) == 0) return path;
  }
  return {};
}

}  // namespace

PrivateDesktop::PrivateDesktop() {
  for (const char* name : {"config", "data", "runtime", "cache"}) {
    fs::create_directory(folder_.File(name));
    fs::permissions(folder_.File(name), fs::perms(0700));
  }
  environment_ = {{"XDG_CONFIG_HOME", folder_.File("config")},
                  {"XDG_DATA_HOME", folder_.File("data")},
                  {"XDG_RUNTIME_DIR", folder_.File("runtime")},
                  {"XDG_CACHE_HOME", folder_.File("cache")},
                  {"QT_QPA_PLATFORM", "xcb"},
                  {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"}};
  up_ = StartScreen() && StartBuses();
}

PrivateDesktop::~PrivateDesktop() {
  QDBusConnection::disconnectFromBus(AccessibilityName());
  QDBusConnection::disconnectFromBus(SessionName());
  End();
}

QString PrivateDesktop::SessionName() const {
  return QStringLiteral("session ") + QString::fromStdString(folder_.path());
}

QString PrivateDesktop::AccessibilityName() const {
  return QStringLiteral("accessibility ") + QString::fromStdString(folder_.path());
}

bool PrivateDesktop::StartScreen() {
  const std::string server = Installed("Xvfb");
  if (server.empty()) return false;
  Start({server, "-displayfd", "1", "-screen", "0", "800x900x24", "-nolisten", "tcp",
         "-noreset"});  // it would take nobody while it begins anew after its last client
  const std::string number = started_.back()->ReadLine();
  if (number.empty()) return false;
  environment_.push_back({"DISPLAY", ":" + number});
  return true;
}

bool PrivateDesktop::StartBuses() {
  const std::string daemon = Installed("dbus-daemon");
  if (daemon.empty()) return false;
  Start({daemon, "--session", "--nofork", "--nopidfile", "--print-address=1"});
  const std::string address = started_.back()->ReadLine();
  if (address.empty()) return false;
  environment_.push_back({"DBUS_SESSION_BUS_ADDRESS", address});
  const QDBusConnection session =
      QDBusConnection::connectToBus(QString::fromStdString(address), SessionName());
  // The session bus starts the other one when it is asked for.
  QDBusInterface launcher(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                          QStringLiteral("org.a11y.Bus"), session);
  launcher.setTimeout(kPatience);
  const QDBusReply<QString> other = launcher.call(QStringLiteral("GetAddress"));
  if (!other.isValid()) return false;
  return QDBusConnection::connectToBus(other.value(), AccessibilityName()).isConnected();
}

void PrivateDesktop::Start(std::vector<std::string> words) {
  const std::string errors = folder_.File("errors " + std::to_string(started_.size()));
  started_.push_back(std::make_unique<ChildProcess>(std::move(words), errors, environment_));
}

QDBusConnection PrivateDesktop::accessibility_bus() const {
  return QDBusConnection(AccessibilityName());
}

std::vector<int> PrivateDesktop::Processes() const {
  const std::string mark = "XDG_RUNTIME_DIR=" + folder_.File("runtime");
  std::vector<int> found;
  for (const fs::directory_entry& entry : fs::directory_iterator("/proc")) {
    const std::string name = entry.path().filename();
    if (name.find_first_not_of("0123456789") != std::string::npos) continue;
    std::ifstream file(entry.path() / "environ", std::ios::binary);
    const std::string environment{std::istreambuf_iterator<char>(file), {}};
    if (environment.find(mark) != std::string::npos) found.push_back(std::stoi(name));
  }
  return found;
}

void PrivateDesktop::End() {
  // The last ones first: a bus that goes takes along what it has started.
  while (!started_.empty()) {
    started_.back()->Signal(SIGTERM);
    static_cast<void>(started_.back()->Wait());
    started_.pop_back();
  }
  const bool ended = QTest::qWaitFor([this] { return Processes().empty(); }, 2000);
  for (const int process : ended ? std::vector<int>() : Processes()) kill(process, SIGKILL);
  static_cast<void>(QTest::qWaitFor([this] { return Processes().empty(); }, kPatience));
}

}  // namespace brovanta::test
