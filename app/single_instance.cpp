#include "app/single_instance.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QThread>
#include <optional>
#include <string_view>
#include <utility>

namespace brovanta {

namespace {

constexpr std::string_view kRaise = "raise ";  // and the token of the newer start, if it has one
constexpr std::string_view kRaised = "raised\n";
constexpr char kActivationToken[] = "XDG_ACTIVATION_TOKEN";
constexpr std::size_t kLongestRequest = 512;
constexpr int kRetryInterval = 20;

/// The session's own folder. Each start in a sandbox has one to itself, of which this part is
/// shared.
QString SessionFolder() {
  const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const QString sandbox = qEnvironmentVariable("FLATPAK_ID");
  return sandbox.isEmpty() ? folder : folder + QStringLiteral("/app/") + sandbox;
}

/// In the session's own folder where there is one; its name tells folders and users apart.
QString SocketPath(const std::string& folder) {
  const QByteArray key = QByteArray::fromStdString(folder) + '\n' + QByteArray::number(getuid());
  const QByteArray hash = QCryptographicHash::hash(key, QCryptographicHash::Sha256).toHex();
  const QString runtime = SessionFolder();
  const bool usable = runtime.startsWith(QLatin1Char('/')) && QFileInfo(runtime).isWritable();
  return (usable ? runtime : QDir::tempPath()) + QStringLiteral("/brovanta-") +
         QString::fromLatin1(hash.left(20));
}

std::string NativePath(const QString& path) { return QFile::encodeName(path).toStdString(); }

/// Reads up to the end of a line into `line`, which is then whole. False when none can come any
/// more: the other end is gone, or says too much.
bool ReadLine(platform::LocalSocket& socket, std::string& line) {
  const std::optional<std::string> bytes = socket.Read();
  if (!bytes) return false;
  line += *bytes;
  return line.size() <= kLongestRequest;
}

bool IsWhole(const std::string& line) { return line.find('\n') != std::string::npos; }

}  // namespace

SingleInstance::SingleInstance(const std::string& data_folder, platform::FolderLock lock)
    : folder_(platform::CanonicalFolder(data_folder.empty() ? "." : data_folder)),
      socket_path_(SocketPath(platform::CanonicalName(data_folder.empty() ? "." : data_folder))),
      lock_(std::move(lock)) {}

SingleInstance::~SingleInstance() {
  if (listener_.valid()) QFile::remove(socket_path_);
}

SingleInstance::Outcome SingleInstance::Claim(int patience) {
  const QDeadlineTimer deadline(patience);
  do {
    const bool locked = Lock();
    // Somebody may run on the name of a folder that was not there to be locked.
    switch (AskForWindow(static_cast<int>(deadline.remainingTime()))) {
      case Answer::kRaised:
        lock_.Release();
        return Outcome::kRaised;
      case Answer::kNobodyThere:
        if (!locked) break;
        Listen();
        return Outcome::kFirst;
      case Answer::kNone:
        break;
    }
    // It may be about to listen, or about to end.
    QThread::msleep(kRetryInterval);
  } while (!deadline.hasExpired());
  lock_.Release();
  return Outcome::kSilent;
}

bool SingleInstance::Lock() {
  return folder_.empty() || lock_.held() ||
         lock_.Take(folder_) != platform::FolderLock::Outcome::kHeld;
}

void SingleInstance::Listen() {
  listener_ = platform::LocalSocket::ListenAt(NativePath(socket_path_));
  // Without a socket the lock still holds; only the window cannot be asked for.
  if (!listener_.valid()) return;
  connected_ = std::make_unique<QSocketNotifier>(listener_.descriptor(), QSocketNotifier::Read);
  QObject::connect(connected_.get(), &QSocketNotifier::activated, connected_.get(),
                   [this] { AcceptAskers(); });
}

/// Another start that asks for the window, from its connection to the answer.
class SingleInstance::Asker : public QObject {
 public:
  Asker(platform::LocalSocket socket, SingleInstance& instance)
      : QObject(instance.connected_.get()),
        instance_(instance),
        socket_(std::move(socket)),
        readable_(socket_.descriptor(), QSocketNotifier::Read) {
    QObject::connect(&readable_, &QSocketNotifier::activated, this, [this] { Read(); });
  }

 private:
  void Read() {
    const bool goes_on = ReadLine(socket_, line_);
    if (goes_on && !IsWhole(line_)) return;
    readable_.setEnabled(false);
    if (goes_on) Answer(QByteArray::fromStdString(line_.substr(0, line_.find('\n'))).trimmed());
    deleteLater();
  }

  void Answer(const QByteArray& line) {
    const QByteArray raise = QByteArray::fromStdString(std::string(kRaise));
    if (!line.startsWith(raise.trimmed())) return;
    // The compositor lets a window come forward only with the token of the newer start.
    const QByteArray token = line.mid(raise.size());
    if (!token.isEmpty()) qputenv(kActivationToken, token);
    if (instance_.raise_handler_) instance_.raise_handler_();
    static_cast<void>(socket_.Write(kRaised));  // who is gone needs no answer
  }

  SingleInstance& instance_;
  platform::LocalSocket socket_;
  QSocketNotifier readable_;
  std::string line_;
};

void SingleInstance::AcceptAskers() {
  for (platform::LocalSocket socket = listener_.Accept(); socket.valid();
       socket = listener_.Accept()) {
    new Asker(std::move(socket), *this);  // the notifier's own
  }
}

SingleInstance::Answer SingleInstance::AskForWindow(int patience) const {
  const QDeadlineTimer deadline(patience);
  platform::LocalSocket socket = platform::LocalSocket::ConnectTo(NativePath(socket_path_));
  if (!socket.valid()) return Answer::kNobodyThere;
  const std::string token = qgetenv(kActivationToken).toStdString();
  if (!socket.Write(std::string(kRaise) + token + '\n')) return Answer::kNone;
  std::string line;
  while (!IsWhole(line)) {
    if (!socket.WaitToRead(static_cast<int>(deadline.remainingTime()))) return Answer::kNone;
    if (!ReadLine(socket, line)) return Answer::kNone;
  }
  return line == kRaised ? Answer::kRaised : Answer::kNone;
}

}  // namespace brovanta
