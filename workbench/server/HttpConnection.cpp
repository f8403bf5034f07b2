#include "workbench/server/HttpConnection.h"

#include <boost/beast/http/read.hpp>
#include <boost/beast/http/write.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <chrono>
#include <string>

#include "workbench/server/PageConnection.h"
#include "workbench/server/PageFiles.h"

namespace vestrel::workbench {

namespace http = boost::beast::http;
using boost::beast::error_code;

namespace {

constexpr std::chrono::seconds kPatience{10};
constexpr std::string_view kPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self' 'unsafe-inline'; img-src 'self' data:; font-src "
    "'self'; "
    "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

std::string_view View(boost::beast::string_view text) {
  return {text.data(), text.size()};
}

boost::beast::string_view View(std::string_view text) {
  return {text.data(), text.size()};
}

template <class Fields>
RequestNames NamesOf(const Fields& request) {
  RequestNames names;
  names.host = View(request[http::field::host]);
  if (request.count(http::field::origin) > 0) names.origin = View(request[http::field::origin]);
  names.target = View(request.target());
  names.cookie = View(request[http::field::cookie]);
  return names;
}

ArrivedAt PlaceOf(const boost::beast::tcp_stream& stream) {
  error_code error;
  const auto endpoint = stream.socket().local_endpoint(error);
  if (error) return {};
  return {endpoint.address().to_string(), endpoint.port(), endpoint.address().is_loopback()};
}

// Whether the request is to blame, not the connection.
bool IsBadRequest(const error_code& error) {
  return error != http::error::end_of_stream &&
         error.category() == http::make_error_code(http::error::end_of_stream).category();
}

}  // namespace

HttpConnection::Response HttpConnection::Unreadable(const error_code& error) {
  Request none;
  none.keep_alive(false);
  return Plain(none, http::status::bad_request, "The request cannot be read: " + error.message());
}

HttpConnection::HttpConnection(boost::asio::ip::tcp::socket socket, std::shared_ptr<ServerShared> shared)
    : stream_(std::move(socket)), shared_(std::move(shared)), arrivedAt_(PlaceOf(stream_)) {
  ++shared_->connections;
}

HttpConnection::~HttpConnection() {
  if (!handedOver_) --shared_->connections;
}

void HttpConnection::Start() {
  ReadRequest();
}

void HttpConnection::ReadRequest() {
  parser_.emplace();
  parser_->header_limit(shared_->limits.header);
  parser_->body_limit(std::uint64_t{0});
  stream_.expires_after(kPatience);
  http::async_read(stream_, buffer_, *parser_, [self = shared_from_this()](error_code error, std::size_t) {
    if (!error) return self->Answer(self->parser_->get());
    if (IsBadRequest(error)) self->Send(Unreadable(error));
  });
}

void HttpConnection::Answer(const Request& request) {
  if (boost::beast::websocket::is_upgrade(request)) {
    const std::string_view refusal = shared_->admission.SocketRefusal(NamesOf(request), arrivedAt_);
    if (!refusal.empty()) return Send(Plain(request, http::status::forbidden, refusal));
    if (PathOf(View(request.target())) != "/ws") {
      return Send(Plain(request, http::status::not_found, "There is no such page."));
    }
    if (shared_->hub == nullptr || shared_->hub->pages() >= shared_->limits.pages) {
      return Send(Plain(request, http::status::service_unavailable, "Too many pages are open."));
    }
    return BecomePage(parser_->release());
  }
  Send(ResponseTo(request));
}

HttpConnection::Response HttpConnection::ResponseTo(const Request& request) const {
  const std::string_view refusal = shared_->admission.Refusal(NamesOf(request), arrivedAt_);
  if (!refusal.empty()) return Plain(request, http::status::forbidden, refusal);
  if (request.method() != http::verb::get && request.method() != http::verb::head) {
    return Plain(request, http::status::method_not_allowed, "Only GET is answered.");
  }
  const std::string_view target = View(request.target());
  const PageFile* file = FindPageFile(PathOf(target));
  if (file == nullptr) return Plain(request, http::status::not_found, "There is no such page.");
  Response response = Plain(request, http::status::ok, file->bytes);
  response.set(http::field::content_type, View(file->type));
  if (shared_->admission.CarriesToken(target)) {
    response.set(http::field::set_cookie, shared_->admission.Cookie());
  }
  return response;
}

HttpConnection::Response HttpConnection::Plain(const Request& request, http::status status,
                                               std::string_view text) {
  Response response(status, request.version() == 0 ? 11 : request.version());
  response.set(http::field::content_type, "text/plain; charset=utf-8");
  response.set(http::field::cache_control, "no-store");
  response.set("X-Content-Type-Options", "nosniff");
  response.set("Referrer-Policy", "no-referrer");
  response.set("Cross-Origin-Resource-Policy", "same-origin");
  response.set("Content-Security-Policy", View(kPolicy));
  response.keep_alive(request.keep_alive() && status == http::status::ok);
  response.content_length(text.size());
  if (request.method() != http::verb::head) response.body() = text;
  return response;
}

void HttpConnection::Send(Response response) {
  response_.emplace(std::move(response));
  stream_.expires_after(kPatience);
  http::async_write(stream_, *response_, [self = shared_from_this()](error_code error, std::size_t) {
    if (error) return;
    if (self->response_->keep_alive()) return self->ReadRequest();
    self->stream_.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, error);
  });
}

void HttpConnection::BecomePage(Request request) {
  handedOver_ = true;
  stream_.expires_never();
  std::make_shared<PageConnection>(std::move(stream_), shared_)->Start(std::move(request));
}

}  // namespace vestrel::workbench
