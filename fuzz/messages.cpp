// Messages to the workbench: any frames from two pages, dialogs included. Whatever comes, what the pages are
// sent is JSON in order, and the picture that a page keeps from changes is the one that a new page is given.
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <set>

#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/WorkbenchFiles.h"
#include "tests/component/CallerPool.h"
#include "tests/workbench/FakePage.h"
#include "workbench/server/Hub.h"

namespace vestrel::fuzz {
namespace {

using namespace workbench;
using nlohmann::json;

// A show of one page on a desk of two; frames come as a browser's do, through the loop.
class Desk {
 public:
  Desk() {
    hub_.Command("setButtonGroupPageSize 4");
    hub_.Command("LoadShow Show");
    hub_.Join(first_);
    hub_.Join(second_);
  }

  void Send(std::string_view frame) {
    boost::asio::post(loop_, [this, frame = std::string(frame)] {
      hub_.Receive(toSecond_ ? second_ : first_, frame);
      toSecond_ = !toSecond_;
    });
  }
  // Takes everything that was sent, and compares the pictures while the desk still runs.
  void Finish() {
    boost::asio::post(loop_, [this] {
      Compare();
      hub_.ShutDown();
      done_ = true;
    });
    while (!done_ && !loop_.stopped()) loop_.poll_one();
    Expect(done_, "the loop ended before the frames did");
  }

 private:
  void Compare() {
    FakePage late;
    hub_.Join(late);
    for (const FakePage* page : {&first_, &second_}) {
      Expect(page->inOrder, "a change is missing");
      ExpectSame(page->state.dump(), late.state.dump(), "a page's picture");
    }
    hub_.Leave(late);
  }

  WorkbenchFiles files_;
  boost::asio::io_context loop_{1};
  WorkSession session_{kDataFolder, ClockStart{}};
  Hub hub_{loop_, session_};
  FakePage first_;
  FakePage second_;
  bool toSecond_ = false;
  bool done_ = false;
};

// As in the commands: what waits for long only counts ticks.
bool TakesLong(std::string_view frame) {
  return frame.find("wait") != std::string_view::npos || frame.find("interval") != std::string_view::npos;
}

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  {
    Desk desk;
    for (const std::string_view frame : Split(AsText(data, size), '\n')) {
      if (!TakesLong(frame)) desk.Send(frame);
    }
    desk.Finish();
  }
  vestrel::test::CloseTextFiles();
  return 0;
}
