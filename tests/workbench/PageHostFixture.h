// A session on the sample show with a hub around it, and a page that is no browser.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/workbench/FakePage.h"
#include "tests/workbench/WorkbenchFixture.h"
#include "workbench/server/Hub.h"

namespace vestrel::workbench {

class PageHost : public Workbench {
 protected:
  PageHost() {
    PutSample();
    session_ = std::make_unique<WorkSession>(folder(), ClockStart{});
    hub_ = std::make_unique<Hub>(loop_, *session_);
    hub().Command("setButtonGroupPageSize 8");
    hub().Command("LoadShow \"Harbour Lights\"");
    hub().Join(page);
  }

  Hub& hub() { return *hub_; }
  WorkSession& session() { return *session_; }
  boost::asio::io_context& loop() { return loop_; }

  void Tell(FakePage& from, const nlohmann::json& frame) { hub().Receive(from, frame.dump()); }
  // Performs a command for the page and answers the frame that ends it.
  nlohmann::json Do(const std::string& command) {
    const int id = ++lastId_;
    Tell(page, {{"t", "do"}, {"id", id}, {"cmd", command}});
    return page.Done(id);
  }
  std::string ErrorOf(const std::string& command) { return Do(command).value("error", "none"); }
  bool Succeeds(const std::string& command) { return Do(command).value("ok", false); }

  FakePage page;

 private:
  boost::asio::io_context loop_{1};
  std::unique_ptr<WorkSession> session_;
  std::unique_ptr<Hub> hub_;
  int lastId_ = 1000;
};

}  // namespace vestrel::workbench
