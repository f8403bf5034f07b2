// One browser page as the hub knows it: somewhere to send frames to. Owned by its connection, which tells the
// hub when it comes and goes.
#pragma once

#include <memory>
#include <string>

namespace vestrel::workbench {

// A frame's text, shared by all who are sent it.
using Frame = std::shared_ptr<const std::string>;

class PageClient {
 public:
  PageClient() = default;
  PageClient(const PageClient&) = delete;
  PageClient& operator=(const PageClient&) = delete;
  virtual ~PageClient() = default;

  // Frames arrive in order. Never calls back into the hub.
  virtual void Send(Frame frame) = 0;
  // The host shuts down: what was sent goes out, then the connection ends.
  virtual void GoAway() = 0;
};

}  // namespace vestrel::workbench
