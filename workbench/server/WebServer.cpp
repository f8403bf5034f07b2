#include "workbench/server/WebServer.h"

#include <boost/asio/buffer.hpp>
#include <chrono>
#include <string_view>

#include "workbench/server/HttpConnection.h"

namespace vestrel::workbench {

using boost::asio::ip::tcp;
using boost::system::error_code;

namespace {

constexpr std::chrono::milliseconds kPauseAfterFailure{100};
constexpr std::string_view kFull =
    "HTTP/1.1 503 Service Unavailable\r\nConnection: close\r\nContent-Length: 0\r\nRetry-After: 1\r\n\r\n";

}  // namespace

WebServer::WebServer(boost::asio::io_context& loop, Hub& hub, const tcp::endpoint& endpoint,
                     const std::string& token, const Limits& limits)
    : acceptor_(loop),
      pause_(loop),
      shared_(std::make_shared<ServerShared>(ServerShared{&hub, Admission(token), limits})) {
  acceptor_.open(endpoint.protocol());
  acceptor_.set_option(tcp::acceptor::reuse_address(true));
  acceptor_.bind(endpoint);
  acceptor_.listen();
  Accept();
}

WebServer::~WebServer() {
  shared_->hub = nullptr;
}

void WebServer::Close() {
  error_code ignored;
  acceptor_.close(ignored);
  pause_.cancel();
}

void WebServer::Accept() {
  acceptor_.async_accept([this](error_code error, tcp::socket socket) {
    if (!acceptor_.is_open()) return;
    if (error) return WaitAndAccept();
    Accepted(std::move(socket));
    Accept();
  });
}

void WebServer::Accepted(tcp::socket socket) {
  if (shared_->connections < shared_->limits.connections) {
    std::make_shared<HttpConnection>(std::move(socket), shared_)->Start();
    return;
  }
  // One try that waits for nobody.
  error_code ignored;
  socket.non_blocking(true, ignored);
  socket.write_some(boost::asio::buffer(kFull), ignored);
  socket.shutdown(tcp::socket::shutdown_send, ignored);
}

void WebServer::WaitAndAccept() {
  pause_.expires_after(kPauseAfterFailure);
  pause_.async_wait([this](error_code error) {
    if (!error) Accept();
  });
}

}  // namespace vestrel::workbench
