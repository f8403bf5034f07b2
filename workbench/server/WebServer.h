// HTTP and WebSocket on one address: hands out the page's files, checks who asks, and connects pages with the
// hub. Bounded in connections, in what a request or frame may hold, and in how fast a page may talk. Runs on
// the hub's event loop.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "workbench/server/Admission.h"
#include "workbench/server/Hub.h"

namespace vestrel::workbench {

struct Limits {
  // Connections at one time, and how many of them may be pages.
  std::size_t connections = 128;
  std::size_t pages = 32;
  // Bytes of a request's header, of a frame, and waiting to be sent to one page.
  std::uint32_t header = 8 * 1024;
  std::size_t frame = std::size_t{64} * 1024;
  std::size_t waiting = std::size_t{16} * 1024 * 1024;
  // Frames that a page may send in a second, and at once.
  double framesPerSecond = 500;
  double framesAtOnce = 2000;
};

// What connections share with their server.
struct ServerShared {
  // None when the server is gone, which connections may outlive.
  Hub* hub = nullptr;
  Admission admission;
  Limits limits;
  std::size_t connections = 0;
};

class WebServer {
 public:
  // Binds and listens. `port` 0 takes any free one. Raises boost::system::system_error when that is not
  // possible. The loop and the hub outlive it.
  WebServer(boost::asio::io_context& loop, Hub& hub, const boost::asio::ip::tcp::endpoint& endpoint,
            const std::string& token, const Limits& limits = {});
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;
  ~WebServer();

  std::uint16_t port() const { return acceptor_.local_endpoint().port(); }
  std::size_t connections() const noexcept { return shared_->connections; }
  // No new connections.
  void Close();

 private:
  void Accept();
  void Accepted(boost::asio::ip::tcp::socket socket);
  void WaitAndAccept();

  boost::asio::ip::tcp::acceptor acceptor_;
  boost::asio::steady_timer pause_;
  std::shared_ptr<ServerShared> shared_;
};

}  // namespace vestrel::workbench
