#include "server/http_server.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <exception>
#include <string_view>
#include <system_error>
#include <utility>

#include "server/request_log.h"

namespace brovanta::server {
namespace {

constexpr int kPauseMilliseconds = 100;

// The library's request handling without its sockets and threads.
class Engine final : public httplib::Server {
 public:
  Engine(const HttpHandler& handler, const LogSink& log) {
    set_pre_routing_handler(
        [this, &handler](const httplib::Request& request, httplib::Response& response) {
          Answer(handler, request, response);
          return HandlerResponse::Handled;
        });
    set_logger([this, &log](const httplib::Request& request, const httplib::Response& response) {
      log(RequestLine(
          {remote_, request.method, request.target, response.status, response.body.size()}));
    });
  }

  void Process(ConnectionStream& stream, std::string remote) {
    remote_ = std::move(remote);
    stream_ = &stream;
    delay_ = {};
    bool client_closes = false;
    // Whole answers only: pieces of a file are of no use to anyone here.
    process_request(stream, true, client_closes,
                    [](httplib::Request& request) { request.ranges.clear(); });
  }

  // Of the answer to the last request: the stream has kept it back.
  [[nodiscard]] std::chrono::milliseconds delay() const { return delay_; }

 private:
  void Answer(const HttpHandler& handler, const httplib::Request& request,
              httplib::Response& response) {
    HttpAnswer answer = handler({request.method, request.target, request.get_header_value("Host")});
    response.status = answer.status;
    response.set_header("Accept-Ranges", "none");
    response.set_header("Cache-Control", "no-store");
    response.set_header("X-Content-Type-Options", "nosniff");
    response.set_header("Content-Security-Policy", "default-src 'none'; style-src 'unsafe-inline'");
    if (!answer.location.empty()) response.set_header("Location", answer.location);
    if (answer.status == 405) response.set_header("Allow", "GET, HEAD");
    response.set_content(answer.body, answer.content_type);
    delay_ = answer.delay;
    if (delay_ > std::chrono::milliseconds(0)) stream_->KeepBack();
  }

  std::string remote_;
  ConnectionStream* stream_ = nullptr;
  std::chrono::milliseconds delay_{0};
};

// The library makes tables of its own when it reads its first request. This reads one, a bad one,
// so that it happens before there are several threads: the library's guard keeps these apart, but
// unseen by the tool that looks for races.
class FirstRequest final : public httplib::Server {
 public:
  void Read() {
    constexpr std::string_view kRequest = "NONE / HTTP/1.1\r\n\r\n";
    httplib::detail::BufferStream stream;
    stream.write(kRequest.data(), kRequest.size());
    bool client_closes = false;
    process_request(stream, true, client_closes, [](httplib::Request&) {});
  }
};

constexpr std::string_view kBadRequest =
    "HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";

}  // namespace

std::unique_ptr<HttpServer> HttpServer::Start(Listener listener, std::vector<HttpHandler> handlers,
                                              LogSink log, const ConnectionLimits& limits,
                                              std::string& error) {
  UniqueFd stop(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
  if (!stop.valid()) {
    error = std::generic_category().message(errno);
    return nullptr;
  }
  return std::unique_ptr<HttpServer>(new HttpServer(std::move(listener), std::move(stop),
                                                    std::move(handlers), std::move(log), limits));
}

HttpServer::HttpServer(Listener listener, UniqueFd stop, std::vector<HttpHandler> handlers,
                       LogSink log, const ConnectionLimits& limits)
    : listener_(std::move(listener)),
      stop_(std::move(stop)),
      log_(std::move(log)),
      limits_(limits),
      waiting_room_(stop_.get(), limits.send),
      handlers_(std::move(handlers)) {
  FirstRequest().Read();
  threads_.reserve(handlers_.size());
  for (const HttpHandler& handler : handlers_) {
    threads_.emplace_back([this, &handler] { Serve(handler); });
  }
}

HttpServer::~HttpServer() {
  const std::uint64_t one = 1;
  // Only a full counter could refuse it, and then the threads end as well.
  static_cast<void>(!write(stop_.get(), &one, sizeof(one)));
  for (std::thread& thread : threads_) thread.join();
}

void HttpServer::Serve(const HttpHandler& handler) {
  Engine engine(handler, log_);
  while (WaitForConnection()) {
    UniqueFd socket(
        accept4(listener_.socket.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!socket.valid()) {
      // Another thread may have been quicker; anything else is shortage, which passes.
      if (errno != EAGAIN && errno != EWOULDBLOCK) PauseAfterFailure();
      continue;
    }
    const std::string remote = RemoteEndpoint(socket.get()).host;
    ConnectionStream stream(socket.get(), stop_.get(), limits_);
    try {
      engine.Process(stream, remote);
    } catch (const std::exception& failure) {
      log_(RequestLine({remote, "", "", 500, 0}) + " " + failure.what());
      continue;
    }
    if (!stream.answered() && stream.cut_off()) {
      static_cast<void>(stream.write(kBadRequest.data(), kBadRequest.size()));
      log_(RequestLine({remote, "", "", 400, 0}));
    }
    if (engine.delay() > std::chrono::milliseconds(0)) {
      SendLater(std::move(socket), stream, engine.delay());
    } else if (stream.answered()) {
      stream.FinishSending();
    }
  }
}

void HttpServer::SendLater(UniqueFd socket, ConnectionStream& stream,
                           std::chrono::milliseconds delay) {
  std::string bytes = stream.TakeKept();
  if (waiting_room_.Take(socket, bytes, ConnectionStream::Clock::now() + delay)) return;
  // No room: better at once than never.
  static_cast<void>(stream.write(bytes.data(), bytes.size()));
  stream.FinishSending();
}

bool HttpServer::WaitForConnection() const {
  for (;;) {
    std::array<pollfd, 2> watched = {pollfd{listener_.socket.get(), POLLIN, 0},
                                     pollfd{stop_.get(), POLLIN, 0}};
    const int result = poll(watched.data(), watched.size(), -1);
    if (watched[1].revents != 0) return false;
    if (result > 0) return true;
    if (errno != EINTR) PauseAfterFailure();
  }
}

void HttpServer::PauseAfterFailure() const {
  pollfd stop{stop_.get(), POLLIN, 0};
  static_cast<void>(poll(&stop, 1, kPauseMilliseconds));
}

}  // namespace brovanta::server
