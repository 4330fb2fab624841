#include "tests/server/running_server.h"

#include <gtest/gtest.h>

#include "server/demo_world.h"
#include "server/import_file.h"
#include "server/responder.h"

namespace brovanta::test {
namespace {

constexpr int kThreads = 2;

}  // namespace

RunningServer::RunningServer(std::chrono::milliseconds slow_shop) : slow_shop_(slow_shop) {
  std::string error;
  store_ = server::Store::Open(folder_.File("served.db"), server::sqlite::OpenMode::kCreate, error);
  EXPECT_NE(store_, nullptr) << error;
  Serve(0);
}

void RunningServer::FillWithDemo(server::Day today) {
  EXPECT_EQ(store_->Apply(server::DemoWorld(today)), std::vector<server::Problem>{});
}

bool RunningServer::Import(server::Subject subject, std::string_view text) {
  return server::ImportText(*store_, subject, text, false).problems.empty();
}

void RunningServer::Stop() { server_.reset(); }

void RunningServer::Restart() {
  Stop();
  Serve(port_);
}

std::vector<std::string> RunningServer::Log() const {
  const std::lock_guard lock(mutex_);
  return log_;
}

void RunningServer::Serve(std::uint16_t port) {
  std::string error;
  auto listener = server::Listen({"127.0.0.1", port}, error);
  ASSERT_TRUE(listener) << error;
  port_ = static_cast<std::uint16_t>(server::LocalEndpoint(listener->socket.get()).port);
  url_ = "http://" + listener->address;
  std::vector<server::HttpHandler> handlers;
  for (int i = 0; i < kThreads; ++i) {
    auto store =
        server::Store::Open(folder_.File("served.db"), server::sqlite::OpenMode::kMustExist, error);
    ASSERT_NE(store, nullptr) << error;
    auto responder = std::make_shared<server::Responder>(
        std::move(store),
        server::Responder::Settings{
            .address = listener->address, .demo_shops = true, .slow_shop = slow_shop_});
    handlers.emplace_back(
        [responder](const server::HttpRequest& request) { return responder->Answer(request); });
  }
  const auto log = [this](const std::string& line) {
    const std::lock_guard lock(mutex_);
    log_.push_back(line);
  };
  server_ = server::HttpServer::Start(*std::move(listener), std::move(handlers), log, {}, error);
  ASSERT_NE(server_, nullptr) << error;
}

}  // namespace brovanta::test
