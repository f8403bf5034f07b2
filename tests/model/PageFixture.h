// A page "Act 1" of the show "Gala" with a controller that writes down its calls, on files in memory.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/Error.h"
#include "core/clsObjectList.h"
#include "tests/model/RecordingController.h"
#include "tests/support/FakePlatform.h"
#include "util/modLog.h"

namespace vestrel::test {

class PageFixture : public TestPlatform {
 protected:
  static constexpr std::u16string_view kLog = u"C:\\log.txt";
  static constexpr std::u16string_view kFile = u"C:\\app\\Sequences\\Gala\\Act 1\\pageSetting.ini";

  PageFixture() {
    files.PutFolder(u"C:\\app\\Sequences\\Gala\\Act 1");
    modLog::Init(kLog);
    page = NewPage();
  }

  Ref<clsPage> NewPage(bool persist = true) {
    auto result = MakeRef<clsPage>();
    result->Init(u"C:\\app", controller.get(), u"Gala", u"Act 1", persist);
    return result;
  }
  // A new button at the end of a group's list.
  Ref<clsButton> Add(std::int32_t group, std::int32_t index, std::u16string_view name,
                     ButtonTypeEnum type = ButtonType_Sequence) {
    auto button = MakeRef<clsButton>();
    button->InitWithValues(page.get(), group, index, name, type, controller.get());
    page->ButtonGroups(group)->buttons->AddItem(button.get());
    return button;
  }
  static clsButton& At(clsPage& of, std::int32_t group, std::int32_t position) {
    return Cast<clsButton>(of.ButtonGroups(group)->buttons->GetItem(position).get());
  }
  std::string Bytes() const { return files.Get(kFile); }
  std::string Log() const { return files.Get(kLog); }
  // The number of the error that `action` raises, or -1.
  static std::int32_t NumberOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return error.number();
    }
    return -1;
  }

  Ref<RecordingController> controller = MakeRef<RecordingController>();
  Ref<clsPage> page;
};

}  // namespace vestrel::test
