// Who may talk to the server: requests that name this server as their host, pages that come from it, and,
// where it listens beyond this machine, those who know the token. Pure decisions on the texts of a request.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vestrel::workbench {

// The texts of a request that decide.
struct RequestNames {
  std::string_view host;
  // Absent in requests that no page made.
  std::optional<std::string_view> origin;
  // Path with query.
  std::string_view target;
  std::string_view cookie;
};

// Where the connection arrived: the address as it is written in a URL, without brackets.
struct ArrivedAt {
  std::string address;
  std::uint16_t port = 0;
  bool loopback = false;
};

class Admission {
 public:
  // Without a token (the empty one) everybody who reaches the server may talk to it.
  explicit Admission(std::string token) : token_(std::move(token)) {}

  // Why the request is refused, or the empty text.
  std::string_view Refusal(const RequestNames& request, const ArrivedAt& at) const;
  // The same for a WebSocket, which a page of this server must have opened.
  std::string_view SocketRefusal(const RequestNames& request, const ArrivedAt& at) const;
  // Whether the address carries the token, which is then to be kept as a cookie.
  bool CarriesToken(std::string_view target) const;
  // "vestrel=...; ...", for a Set-Cookie header.
  std::string Cookie() const;

 private:
  bool KnowsToken(const RequestNames& request) const;
  bool IsToken(std::string_view given) const;

  std::string token_;
};

// The path of a target, without its query.
std::string_view PathOf(std::string_view target);

}  // namespace vestrel::workbench
