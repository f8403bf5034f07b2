// One connection while it speaks HTTP: answers requests for the page's files and hands the connection over
// when a page asks for a WebSocket. Keeps itself alive while it waits.
#pragma once

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <memory>
#include <optional>
#include <string_view>

#include "workbench/server/WebServer.h"

namespace vestrel::workbench {

class HttpConnection : public std::enable_shared_from_this<HttpConnection> {
 public:
  HttpConnection(boost::asio::ip::tcp::socket socket, std::shared_ptr<ServerShared> shared);
  HttpConnection(const HttpConnection&) = delete;
  HttpConnection& operator=(const HttpConnection&) = delete;
  ~HttpConnection();

  void Start();

 private:
  using Request = boost::beast::http::request<boost::beast::http::empty_body>;
  using Response = boost::beast::http::response<boost::beast::http::string_body>;

  void ReadRequest();
  void Answer(const Request& request);
  Response ResponseTo(const Request& request) const;
  static Response Plain(const Request& request, boost::beast::http::status status, std::string_view text);
  static Response Unreadable(const boost::beast::error_code& error);
  void Send(Response response);
  void BecomePage(Request request);

  boost::beast::tcp_stream stream_;
  boost::beast::flat_buffer buffer_;
  std::shared_ptr<ServerShared> shared_;
  ArrivedAt arrivedAt_;
  std::optional<boost::beast::http::request_parser<boost::beast::http::empty_body>> parser_;
  std::optional<Response> response_;
  // Handed over to a page: its place among the connections went along.
  bool handedOver_ = false;
};

}  // namespace vestrel::workbench
