#include "app/single_instance.h"

#include <unistd.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QThread>
#include <utility>

namespace brovanta {

namespace {

constexpr char kRaise[] = "raise ";
constexpr char kRaised[] = "raised\n";
constexpr char kActivationToken[] = "XDG_ACTIVATION_TOKEN";
constexpr int kLongestRequest = 512;
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

}  // namespace

SingleInstance::SingleInstance(const std::string& data_folder, platform::FolderLock lock)
    : folder_(platform::CanonicalFolder(data_folder.empty() ? "." : data_folder)),
      socket_path_(SocketPath(folder_.empty() ? data_folder : folder_)),
      lock_(std::move(lock)) {
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
    while (QLocalSocket* socket = server_.nextPendingConnection()) Answer(socket);
  });
}

SingleInstance::~SingleInstance() { server_.close(); }

SingleInstance::Outcome SingleInstance::Claim(int patience) {
  const QDeadlineTimer deadline(patience);
  do {
    if (Lock()) {
      Listen();
      return Outcome::kFirst;
    }
    if (AskForWindow(static_cast<int>(deadline.remainingTime()))) return Outcome::kRaised;
    // It may be about to listen, or about to end.
    QThread::msleep(kRetryInterval);
  } while (!deadline.hasExpired());
  return Outcome::kSilent;
}

bool SingleInstance::Lock() {
  return folder_.empty() || lock_.held() ||
         lock_.Take(folder_) != platform::FolderLock::Outcome::kHeld;
}

void SingleInstance::Listen() {
  QLocalServer::removeServer(socket_path_);  // what a dead program left
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  // Without a socket the lock still holds; only the window cannot be asked for.
  server_.listen(socket_path_);
}

void SingleInstance::Answer(QLocalSocket* socket) {
  QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  const auto read = [this, socket] {
    if (!socket->canReadLine()) {
      if (socket->bytesAvailable() > kLongestRequest) socket->abort();
      return;
    }
    const QByteArray line = socket->readLine(kLongestRequest).trimmed();
    if (!line.startsWith(QByteArray(kRaise).trimmed())) return socket->abort();
    // The compositor lets a window come forward only with the token of the newer start.
    const QByteArray token = line.mid(static_cast<qsizetype>(sizeof(kRaise)) - 1);
    if (!token.isEmpty()) qputenv(kActivationToken, token);
    if (raise_handler_) raise_handler_();
    socket->write(kRaised);
    socket->flush();
    socket->disconnectFromServer();
  };
  QObject::connect(socket, &QLocalSocket::readyRead, socket, read);
  read();
}

bool SingleInstance::AskForWindow(int patience) const {
  const QDeadlineTimer deadline(patience);
  QLocalSocket socket;
  socket.connectToServer(socket_path_);
  if (!socket.waitForConnected(patience)) return false;
  socket.write(QByteArray(kRaise) + qgetenv(kActivationToken) + '\n');
  while (!socket.canReadLine()) {
    if (!socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) return false;
  }
  return socket.readLine() == kRaised;
}

}  // namespace brovanta
