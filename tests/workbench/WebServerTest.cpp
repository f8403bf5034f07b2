#include <gtest/gtest.h>

#include <boost/asio/connect.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <future>
#include <thread>

#include "tests/workbench/PageHostFixture.h"
#include "workbench/server/WebServer.h"

namespace vestrel::workbench {
namespace {

using boost::asio::ip::tcp;
using boost::beast::error_code;
using nlohmann::json;
namespace websocket = boost::beast::websocket;

constexpr std::string_view kToken = "0123456789abcdef";

// The server runs on a thread of its own, where everything of the host is made as well.
class WebServerTest : public Workbench {
 protected:
  explicit WebServerTest(std::string token = {}, const Limits& limits = {}) {
    PutSample();
    std::promise<std::uint16_t> port;
    thread_ = std::thread([this, token, limits, &port] { Serve(token, limits, port); });
    port_ = port.get_future().get();
  }
  ~WebServerTest() override {
    boost::asio::post(loop_, [this] { hub_->ShutDown(); });
    thread_.join();
  }

  std::string Host() const { return "127.0.0.1:" + std::to_string(port_); }
  std::string Origin() const { return "http://" + Host(); }

  tcp::socket Connect() {
    tcp::socket socket(client_);
    socket.connect({boost::asio::ip::make_address("127.0.0.1"), port_});
    return socket;
  }
  // Everything that comes back until the server ends the connection.
  std::string Exchange(const std::string& request) {
    tcp::socket socket = Connect();
    error_code error;
    boost::asio::write(socket, boost::asio::buffer(request), error);
    socket.shutdown(tcp::socket::shutdown_send, error);
    return ReadAll(socket);
  }
  static std::string ReadAll(tcp::socket& socket) {
    std::string answer;
    error_code error;
    boost::asio::read(socket, boost::asio::dynamic_buffer(answer), error);
    return answer;
  }
  std::string Get(const std::string& target, const std::string& headers = {}) {
    return Exchange("GET " + target + " HTTP/1.1\r\nHost: " + Host() + "\r\nConnection: close\r\n" + headers +
                    "\r\n");
  }
  static std::string StatusOf(const std::string& answer) { return answer.substr(0, answer.find('\r')); }

  std::string Handshake(const std::string& host, const std::string& headers,
                        const std::string& target = "/ws") {
    return "GET " + target + " HTTP/1.1\r\nHost: " + host +
           "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
           "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n" +
           headers + "\r\n";
  }

  // A page's own socket, shaken hands with.
  class Page {
   public:
    explicit Page(WebServerTest& test) : socket_(test.Connect()) {
      socket_.set_option(websocket::stream_base::decorator([&](websocket::request_type& request) {
        request.set(boost::beast::http::field::origin, test.Origin());
      }));
      socket_.handshake(test.Host(), "/ws");
    }
    void Send(const std::string& text) { socket_.write(boost::asio::buffer(text)); }
    json Receive() {
      boost::beast::flat_buffer buffer;
      error_code error;
      socket_.read(buffer, error);
      return error ? json(error.message()) : json::parse(boost::beast::buffers_to_string(buffer.data()));
    }
    // The next frame of that type; a text when the connection ended.
    json Until(const std::string& type) {
      while (true) {
        json frame = Receive();
        if (!frame.is_object() || frame["t"] == type) return frame;
      }
    }
    json Do(const std::string& command) {
      Send(json{{"t", "do"}, {"id", 1}, {"cmd", command}}.dump());
      return Until("done");
    }
    websocket::stream<tcp::socket>& socket() { return socket_; }

   private:
    websocket::stream<tcp::socket> socket_;
  };

 private:
  void Serve(const std::string& token, const Limits& limits, std::promise<std::uint16_t>& port) {
    WorkSession session(folder(), ClockStart{});
    Hub hub(loop_, session);
    WebServer server(loop_, hub, {boost::asio::ip::make_address("127.0.0.1"), 0}, token, limits);
    hub_ = &hub;
    hub.Command("setButtonGroupPageSize 8");
    hub.Command("LoadShow \"Harbour Lights\"");
    port.set_value(server.port());
    loop_.run();
  }

  boost::asio::io_context loop_{1};
  boost::asio::io_context client_;
  Hub* hub_ = nullptr;
  std::uint16_t port_ = 0;
  std::thread thread_;
};

class LockedServerTest : public WebServerTest {
 protected:
  LockedServerTest() : WebServerTest(std::string(kToken)) {}
};

Limits FewConnections() {
  Limits limits;
  limits.connections = 10;
  limits.pages = 3;
  return limits;
}

class SmallServerTest : public WebServerTest {
 protected:
  SmallServerTest() : WebServerTest({}, FewConnections()) {}
};

TEST_F(WebServerTest, ServesThePage) {
  const std::string answer = Get("/");
  EXPECT_EQ(StatusOf(answer), "HTTP/1.1 200 OK");
  EXPECT_NE(answer.find("Content-Type: text/html"), std::string::npos);
  EXPECT_NE(answer.find("Content-Security-Policy: default-src 'none'"), std::string::npos);
  EXPECT_NE(answer.find("Vestrel"), std::string::npos);
  EXPECT_NE(Get("/app.js").find("Content-Type: text/javascript"), std::string::npos);
}

TEST_F(WebServerTest, ServesNothingElse) {
  for (const char* target : {"/nothing", "/../etc/passwd", "/%2e%2e/x", "//", "/Sequences", "/ws"}) {
    EXPECT_EQ(StatusOf(Get(target)), "HTTP/1.1 404 Not Found") << target;
  }
  EXPECT_EQ(StatusOf(Exchange("DELETE / HTTP/1.1\r\nHost: " + Host() + "\r\n\r\n")),
            "HTTP/1.1 405 Method Not Allowed");
}

TEST_F(WebServerTest, RefusesOtherHostsAndOrigins) {
  for (const char* host : {"evil.example", "evil.example:80", "localhost", ""}) {
    const std::string request = std::string("GET / HTTP/1.1\r\nHost: ") + host + "\r\n\r\n";
    EXPECT_EQ(StatusOf(Exchange(request)), "HTTP/1.1 403 Forbidden") << host;
  }
  EXPECT_EQ(StatusOf(Exchange("GET / HTTP/1.1\r\n\r\n")), "HTTP/1.1 403 Forbidden");
  EXPECT_EQ(StatusOf(Get("/", "Origin: http://evil.example\r\n")), "HTTP/1.1 403 Forbidden");
  EXPECT_EQ(StatusOf(Exchange(Handshake(Host(), "Origin: http://evil.example\r\n"))),
            "HTTP/1.1 403 Forbidden");
  EXPECT_EQ(StatusOf(Exchange(Handshake(Host(), ""))), "HTTP/1.1 403 Forbidden");
  EXPECT_EQ(StatusOf(Exchange(Handshake("evil.example", "Origin: http://evil.example\r\n"))),
            "HTTP/1.1 403 Forbidden");
  EXPECT_EQ(StatusOf(Exchange(Handshake(Host(), "Origin: " + Origin() + "\r\n", "/other"))),
            "HTTP/1.1 404 Not Found");
}

TEST_F(WebServerTest, RefusesRequestsThatAreTooLargeOrUnreadable) {
  EXPECT_EQ(StatusOf(Get("/", "X: " + std::string(9000, 'x') + "\r\n")), "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(StatusOf(Get("/" + std::string(20'000, 'x'))), "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(StatusOf(Exchange("POST / HTTP/1.1\r\nHost: " + Host() + "\r\nContent-Length: 5\r\n\r\nhello")),
            "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(StatusOf(Exchange("nonsense\r\n\r\n")), "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(StatusOf(Exchange(std::string("\x16\x03\x01\x02\x00\x01\x00", 7))), "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(StatusOf(Get("/")), "HTTP/1.1 200 OK");
}

TEST_F(WebServerTest, PagesSeeWhatEachOtherDo) {
  Page one(*this);
  Page two(*this);
  EXPECT_EQ(one.Receive()["t"], "hello");
  EXPECT_EQ(two.Receive()["t"], "hello");
  EXPECT_TRUE(one.Do("controlClicked 33 1 0 0 0")["ok"]);
  const json patch = two.Until("patch");
  EXPECT_EQ(patch["set"]["group.1"]["slots"][0]["on"], true);
}

TEST_F(WebServerTest, AButtonHeldOverALostConnectionIsReleased) {
  Page watcher(*this);
  auto page = std::make_unique<Page>(*this);
  page->Send(R"({"t":"press","id":1,"control":9})");
  EXPECT_TRUE(page->Until("done")["ok"]);
  // Gone without a word.
  page.reset();
  for (bool on = true; on;) {
    const json patch = watcher.Until("patch");
    ASSERT_TRUE(patch.is_object());
    if (patch["set"].contains("group.0")) on = patch["set"]["group.0"]["slots"][8]["on"];
    if (patch["seq"] == 1) on = true;
  }
}

TEST_F(WebServerTest, MalformedAndOversizedFramesAreRefused) {
  Page page(*this);
  page.Send("nonsense");
  EXPECT_EQ(page.Until("error")["text"], "a frame is one JSON object");
  EXPECT_TRUE(page.Do("persist")["ok"]);
  page.Send("{\"t\":\"do\",\"cmd\":\"" + std::string(70'000, 'x') + "\"}");
  EXPECT_TRUE(page.Until("nothing").is_string());
  Page other(*this);
  other.socket().binary(true);
  other.Send("{}");
  EXPECT_TRUE(other.Until("nothing").is_string());
  // Raw bytes that are no frame at all.
  tcp::socket raw = Connect();
  const std::string handshake = Handshake(Host(), "Origin: " + Origin() + "\r\n");
  boost::asio::write(raw, boost::asio::buffer(handshake + std::string(500, '\xFF')));
  EXPECT_EQ(StatusOf(ReadAll(raw)), "HTTP/1.1 101 Switching Protocols");
  Page last(*this);
  EXPECT_EQ(last.Receive()["t"], "hello");
}

TEST_F(WebServerTest, AThousandConnectionsLeaveThePageAsItWas) {
  Page page(*this);
  EXPECT_TRUE(page.Do("controlClicked 33 1 0 0 0")["ok"]);
  std::vector<tcp::socket> crowd;
  std::size_t refused = 0;
  for (int i = 0; i < 1000; ++i) {
    crowd.push_back(Connect());
    if (i < 200) continue;
    // Those beyond the limit are told so; all of them may go at once.
    refused += StatusOf(ReadAll(crowd.back())) == "HTTP/1.1 503 Service Unavailable" ? 1U : 0U;
    crowd.back().close();
  }
  EXPECT_EQ(refused, 800U);
  EXPECT_TRUE(page.Do("controlClicked 33 1 0 0 0")["ok"]);
  crowd.clear();
  for (int i = 0; i < 100 && StatusOf(Get("/")) != "HTTP/1.1 200 OK"; ++i) {
  }
  EXPECT_EQ(StatusOf(Get("/")), "HTTP/1.1 200 OK");
  Page other(*this);
  const json hello = other.Receive();
  EXPECT_EQ(hello["state"]["group.1"]["slots"][0]["on"], false);
}

TEST_F(SmallServerTest, TooManyPagesAreRefused) {
  std::vector<std::unique_ptr<Page>> pages;
  for (int i = 0; i < 3; ++i) {
    pages.push_back(std::make_unique<Page>(*this));
    EXPECT_EQ(pages.back()->Receive()["t"], "hello");
  }
  EXPECT_EQ(StatusOf(Exchange(Handshake(Host(), "Origin: " + Origin() + "\r\n"))),
            "HTTP/1.1 503 Service Unavailable");
  EXPECT_TRUE(pages.front()->Do("persist")["ok"]);
}

TEST_F(LockedServerTest, DemandsTheToken) {
  EXPECT_EQ(StatusOf(Get("/")), "HTTP/1.1 403 Forbidden");
  EXPECT_EQ(StatusOf(Get("/?token=wrong")), "HTTP/1.1 403 Forbidden");
  const std::string answer = Get("/?token=" + std::string(kToken));
  EXPECT_EQ(StatusOf(answer), "HTTP/1.1 200 OK");
  EXPECT_NE(answer.find("Set-Cookie: vestrel=" + std::string(kToken) + "; Path=/; HttpOnly; SameSite=Strict"),
            std::string::npos);
  EXPECT_EQ(StatusOf(Get("/app.js", "Cookie: vestrel=" + std::string(kToken) + "\r\n")), "HTTP/1.1 200 OK");
  EXPECT_EQ(StatusOf(Exchange(Handshake(Host(), "Origin: " + Origin() + "\r\n"))), "HTTP/1.1 403 Forbidden");
  EXPECT_EQ(StatusOf(Exchange(Handshake(
                Host(), "Origin: " + Origin() + "\r\nCookie: vestrel=" + std::string(kToken) + "\r\n"))),
            "HTTP/1.1 101 Switching Protocols");
}

TEST_F(WebServerTest, APortThatIsTakenCannotBeHadTwice) {
  boost::asio::io_context loop(1);
  tcp::acceptor first(loop, {boost::asio::ip::make_address("127.0.0.1"), 0});
  std::filesystem::create_directory(folder() / "other");
  WorkSession session(folder() / "other", ClockStart{});
  Hub hub(loop, session);
  EXPECT_THROW(WebServer(loop, hub, first.local_endpoint(), ""), boost::system::system_error);
}

}  // namespace
}  // namespace vestrel::workbench
