#include <gtest/gtest.h>

#include "workbench/server/Admission.h"
#include "workbench/server/RateLimit.h"

namespace vestrel::workbench {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kToken = "0123456789abcdef";

ArrivedAt Loopback() {
  return {"127.0.0.1", 8420, true};
}

RequestNames For(std::string_view host, std::optional<std::string_view> origin = {},
                 std::string_view target = "/", std::string_view cookie = "") {
  return {host, origin, target, cookie};
}

TEST(AdmissionTest, OwnNamesAreTaken) {
  const Admission open{""};
  for (const char* host : {"127.0.0.1:8420", "localhost:8420", "LocalHost:8420", "[::1]:8420"}) {
    EXPECT_EQ(open.Refusal(For(host), Loopback()), "") << host;
    EXPECT_EQ(open.SocketRefusal(For(host, std::string("http://") + host), Loopback()), "") << host;
  }
}

TEST(AdmissionTest, OtherHostsAreRefused) {
  const Admission open{""};
  for (const char* host :
       {"", "127.0.0.1", "127.0.0.1:8421", "localhost", "evil.example:8420", "evil.example",
        "127.0.0.1.evil.example:8420", "localhost:8420.evil.example", "0.0.0.0:8420"}) {
    EXPECT_NE(open.Refusal(For(host), Loopback()), "") << host;
  }
}

TEST(AdmissionTest, OtherOriginsAreRefused) {
  const Admission open{""};
  for (const char* origin :
       {"", "null", "http://evil.example", "https://localhost:8420", "http://localhost",
        "http://localhost:8421", "http://127.0.0.1:8420", "http://localhost:8420.evil.example"}) {
    EXPECT_NE(open.Refusal(For("localhost:8420", origin), Loopback()), "") << origin;
    EXPECT_NE(open.SocketRefusal(For("localhost:8420", origin), Loopback()), "") << origin;
  }
}

TEST(AdmissionTest, ASocketTellsItsOrigin) {
  EXPECT_NE(Admission("").SocketRefusal(For("localhost:8420"), Loopback()), "");
}

TEST(AdmissionTest, ElsewhereTheNameIsTheAddressThatWasReached) {
  const Admission open{std::string(kToken)};
  const ArrivedAt four{"192.168.1.5", 8420, false};
  const ArrivedAt six{"fe80::1", 8420, false};
  const std::string target = "/?token=" + std::string(kToken);
  EXPECT_EQ(open.Refusal(For("192.168.1.5:8420", {}, target), four), "");
  EXPECT_EQ(open.Refusal(For("[fe80::1]:8420", {}, target), six), "");
  EXPECT_NE(open.Refusal(For("localhost:8420", {}, target), four), "");
}

TEST(AdmissionTest, TheTokenComesInTheAddressOrTheCookie) {
  const Admission locked{std::string(kToken)};
  const std::string host = "127.0.0.1:8420";
  EXPECT_EQ(locked.Refusal(For(host, {}, "/?token=0123456789abcdef"), Loopback()), "");
  EXPECT_EQ(locked.Refusal(For(host, {}, "/?a=b&token=0123456789abcdef"), Loopback()), "");
  EXPECT_EQ(locked.Refusal(For(host, {}, "/app.js", "other=1; vestrel=0123456789abcdef"), Loopback()), "");
  for (const char* target :
       {"/", "/?token=", "/?token=0123456789abcdeg", "/?token=0123456789abcde", "/?token=0123456789abcdef0",
        "/?mytoken=0123456789abcdef", "/token=0123456789abcdef"}) {
    EXPECT_NE(locked.Refusal(For(host, {}, target), Loopback()), "") << target;
    EXPECT_FALSE(locked.CarriesToken(target)) << target;
  }
  EXPECT_NE(locked.Refusal(For(host, {}, "/", "vestrel=wrong"), Loopback()), "");
  EXPECT_TRUE(locked.Cookie().starts_with("vestrel=0123456789abcdef;"));
  EXPECT_FALSE(Admission("").CarriesToken("/?token="));
}

TEST(AdmissionTest, ThePathEndsAtTheQuery) {
  EXPECT_EQ(PathOf("/app.js?v=1"), "/app.js");
  EXPECT_EQ(PathOf("/"), "/");
}

TEST(RateLimitTest, TakesManyAtOnceAndThenAsFastAsItMay) {
  RateLimit::Time now{};
  RateLimit limit(10, 5, now);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(limit.Take(now), 0ms) << i;
  EXPECT_EQ(limit.Take(now), 101ms);
  now += 101ms;
  EXPECT_GT(limit.Take(now), 50ms);
  now += 10s;
  for (int i = 0; i < 4; ++i) EXPECT_EQ(limit.Take(now), 0ms) << i;
  EXPECT_GT(limit.Take(now), 50ms);
}

}  // namespace
}  // namespace vestrel::workbench
