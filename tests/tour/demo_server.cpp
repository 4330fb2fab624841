#include "tests/tour/demo_server.h"

#include <QFile>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <utility>

namespace brovanta::tour {
namespace {

constexpr char kProgram[] = BROVANTA_SERVER_PROGRAM;
constexpr char kScripts[] = BROVANTA_SCRIPTS;
constexpr std::string_view kListening = "listening on ";
constexpr int kNoBrowser = 3;

}  // namespace

bool HasDemoServer() { return kProgram[0] != '\0'; }

DemoServer::DemoServer(std::string folder) : folder_(std::move(folder)) {
  process_ = std::make_unique<test::ChildProcess>(
      std::vector<std::string>{kProgram, "--data", folder_ + "/demo.db", "--listen", "127.0.0.1:0",
                               "--demo"},
      folder_ + "/server.log");
  const std::string line = process_->ReadLine();
  if (const std::size_t at = line.find(kListening); at != std::string::npos) {
    url_ = "http://" + line.substr(at + kListening.size());
  }
}

int DemoServer::RunToEnd(std::vector<std::string> words) {
  test::ChildProcess process(std::move(words), folder_ + "/errors.txt");
  static_cast<void>(process.ReadAll());
  return process.Wait();
}

bool DemoServer::Import(const char* subject, const std::string& text) {
  const std::string file = folder_ + "/import.txt";
  std::ofstream(file) << text;
  return RunToEnd({kProgram, "--data", folder_ + "/demo.db", "import", subject, file}) == 0;
}

void DemoServer::HoldStill() { process_->Signal(SIGSTOP); }

void DemoServer::GoOn() { process_->Signal(SIGCONT); }

int DemoServer::Stop() {
  process_->Signal(SIGTERM);
  return process_->Wait();
}

QString DemoServer::Log() const {
  QFile file(QString::fromStdString(folder_ + "/server.log"));
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool DemoServer::TakePagePicture(const QString& address, const QString& file) {
  const int status = RunToEnd({"/bin/bash", std::string(kScripts) + "/page-picture",
                               address.toStdString(), file.toStdString()});
  if (status == kNoBrowser) std::puts("  no Chromium: the coupon's page is not drawn");
  return status == 0 || status == kNoBrowser;
}

}  // namespace brovanta::tour
