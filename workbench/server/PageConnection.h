// One browser page's WebSocket: reads frames for the hub, as fast as a page may talk, and sends it what the
// hub says, in order. A page that does not take what it is sent is dropped. Keeps itself alive while it
// waits.
#pragma once

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <deque>
#include <memory>

#include "workbench/server/PageClient.h"
#include "workbench/server/RateLimit.h"
#include "workbench/server/WebServer.h"

namespace vestrel::workbench {

class PageConnection : public PageClient, public std::enable_shared_from_this<PageConnection> {
 public:
  PageConnection(boost::beast::tcp_stream stream, std::shared_ptr<ServerShared> shared);
  ~PageConnection() override;

  void Start(boost::beast::http::request<boost::beast::http::empty_body> request);

  void Send(Frame frame) override;
  void GoAway() override;

 private:
  void Read();
  void Received();
  void ReadOn();
  void Write();
  void WroteOne(boost::beast::error_code error);
  void Gone();
  void CloseFor(boost::beast::websocket::close_code code, const char* reason);

  boost::beast::websocket::stream<boost::beast::tcp_stream> socket_;
  std::shared_ptr<ServerShared> shared_;
  boost::beast::flat_buffer buffer_;
  boost::asio::steady_timer pause_;
  RateLimit rate_;
  std::deque<Frame> waiting_;
  std::size_t waitingBytes_ = 0;
  bool joined_ = false;
  bool writing_ = false;
  bool closing_ = false;
};

}  // namespace vestrel::workbench
