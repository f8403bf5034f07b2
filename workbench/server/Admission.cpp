#include "workbench/server/Admission.h"

#include <algorithm>
#include <cctype>

namespace vestrel::workbench {

namespace {

constexpr std::string_view kCookieName = "vestrel=";
constexpr std::string_view kTokenName = "token=";

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
  return lower;
}

// Whether "name:port" is this server. A page on another site cannot make a browser send such a name.
bool IsOwnHost(std::string_view host, const ArrivedAt& at) {
  const std::string given = Lower(host);
  const std::string port = ":" + std::to_string(at.port);
  const bool six = at.address.find(':') != std::string::npos;
  if (given == Lower(six ? "[" + at.address + "]" : at.address) + port) return true;
  return at.loopback &&
         (given == "localhost" + port || given == "127.0.0.1" + port || given == "[::1]" + port);
}

bool IsOwnOrigin(std::string_view origin, std::string_view host) {
  return Lower(origin) == "http://" + Lower(host);
}

// The value behind `name` among parts separated by `separator`.
std::string_view ValueOf(std::string_view parts, std::string_view name, char separator) {
  while (!parts.empty()) {
    std::string_view part = parts.substr(0, parts.find(separator));
    parts.remove_prefix(std::min(part.size() + 1, parts.size()));
    while (part.starts_with(' ')) part.remove_prefix(1);
    if (part.starts_with(name)) return part.substr(name.size());
  }
  return {};
}

std::string_view QueryOf(std::string_view target) {
  const std::size_t mark = target.find('?');
  return mark == std::string_view::npos ? std::string_view() : target.substr(mark + 1);
}

}  // namespace

std::string_view PathOf(std::string_view target) {
  return target.substr(0, target.find('?'));
}

std::string_view Admission::Refusal(const RequestNames& request, const ArrivedAt& at) const {
  if (!IsOwnHost(request.host, at)) return "the request is for another host";
  if (request.origin && !IsOwnOrigin(*request.origin, request.host))
    return "the request comes from another site";
  if (!KnowsToken(request)) return "the token is missing or wrong";
  return {};
}

std::string_view Admission::SocketRefusal(const RequestNames& request, const ArrivedAt& at) const {
  if (!request.origin) return "the request does not tell its origin";
  return Refusal(request, at);
}

bool Admission::CarriesToken(std::string_view target) const {
  return !token_.empty() && IsToken(ValueOf(QueryOf(target), kTokenName, '&'));
}

std::string Admission::Cookie() const {
  return std::string(kCookieName) + token_ + "; Path=/; HttpOnly; SameSite=Strict";
}

bool Admission::KnowsToken(const RequestNames& request) const {
  return token_.empty() || CarriesToken(request.target) || IsToken(ValueOf(request.cookie, kCookieName, ';'));
}

bool Admission::IsToken(std::string_view given) const {
  // Takes as long for a guess that begins right as for any other.
  if (given.size() != token_.size()) return false;
  unsigned different = 0;
  for (std::size_t i = 0; i < given.size(); ++i) {
    different |=
        static_cast<unsigned>(static_cast<unsigned char>(given[i]) ^ static_cast<unsigned char>(token_[i]));
  }
  return different == 0;
}

}  // namespace vestrel::workbench
