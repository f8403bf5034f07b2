#include "workbench/server/PageConnection.h"

#include <boost/asio/buffer.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <chrono>
#include <string>

namespace vestrel::workbench {

namespace websocket = boost::beast::websocket;
using boost::beast::error_code;

PageConnection::PageConnection(boost::beast::tcp_stream stream, std::shared_ptr<ServerShared> shared)
    : socket_(std::move(stream)),
      shared_(std::move(shared)),
      pause_(socket_.get_executor()),
      rate_(shared_->limits.framesPerSecond, shared_->limits.framesAtOnce, std::chrono::steady_clock::now()) {
}

PageConnection::~PageConnection() {
  Gone();
  --shared_->connections;
}

void PageConnection::Start(boost::beast::http::request<boost::beast::http::empty_body> request) {
  websocket::stream_base::timeout timeout{};
  timeout.handshake_timeout = std::chrono::seconds(10);
  // A page that is gone without a word is noticed within this time.
  timeout.idle_timeout = std::chrono::seconds(20);
  timeout.keep_alive_pings = true;
  socket_.set_option(timeout);
  socket_.read_message_max(shared_->limits.frame);
  const auto kept = std::make_shared<decltype(request)>(std::move(request));
  socket_.async_accept(*kept, [self = shared_from_this(), kept](error_code error) {
    if (error) return;
    self->socket_.next_layer().socket().set_option(boost::asio::ip::tcp::no_delay(true), error);
    self->socket_.text(true);
    self->socket_.auto_fragment(false);
    if (self->shared_->hub == nullptr) return;
    self->joined_ = true;
    self->shared_->hub->Join(*self);
    self->Read();
  });
}

void PageConnection::Read() {
  socket_.async_read(buffer_, [self = shared_from_this()](error_code error, std::size_t) {
    if (error) return self->Gone();
    self->Received();
  });
}

void PageConnection::Received() {
  const std::string text = boost::beast::buffers_to_string(buffer_.data());
  const bool isText = socket_.got_text();
  buffer_.consume(buffer_.size());
  if (!isText) return CloseFor(websocket::close_code::unknown_data, "frames are text");
  // Reading goes on before the frame is handled: a dialog that it opens is answered by a later one.
  ReadOn();
  if (shared_->hub != nullptr) shared_->hub->Receive(*this, text);
}

void PageConnection::ReadOn() {
  const std::chrono::milliseconds pause = rate_.Take(std::chrono::steady_clock::now());
  if (pause.count() == 0) return Read();
  pause_.expires_after(pause);
  pause_.async_wait([self = shared_from_this()](error_code error) {
    if (!error) self->Read();
  });
}

void PageConnection::Send(Frame frame) {
  if (closing_) return;
  waitingBytes_ += frame->size();
  waiting_.push_back(std::move(frame));
  if (waitingBytes_ > shared_->limits.waiting) {
    // It takes nothing any more; when it comes again it is sent the whole state.
    closing_ = true;
    boost::beast::get_lowest_layer(socket_).close();
    return;
  }
  if (!writing_) Write();
}

void PageConnection::Write() {
  writing_ = true;
  socket_.async_write(boost::asio::buffer(*waiting_.front()),
                      [self = shared_from_this()](error_code error, std::size_t) { self->WroteOne(error); });
}

void PageConnection::WroteOne(error_code error) {
  writing_ = false;
  waitingBytes_ -= waiting_.front()->size();
  waiting_.pop_front();
  if (error) return Gone();
  if (!waiting_.empty()) {
    Write();
  } else if (closing_) {
    socket_.async_close(websocket::close_code::going_away, [self = shared_from_this()](error_code) {});
  }
}

void PageConnection::GoAway() {
  closing_ = true;
  if (!writing_)
    socket_.async_close(websocket::close_code::going_away, [self = shared_from_this()](error_code) {});
}

void PageConnection::CloseFor(websocket::close_code code, const char* reason) {
  closing_ = true;
  socket_.async_close({code, reason}, [self = shared_from_this()](error_code) { self->Gone(); });
}

void PageConnection::Gone() {
  if (!joined_) return;
  joined_ = false;
  closing_ = true;
  pause_.cancel();
  if (shared_->hub != nullptr) shared_->hub->Leave(*this);
}

}  // namespace vestrel::workbench
