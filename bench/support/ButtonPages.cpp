#include "bench/support/ButtonPages.h"

#include <filesystem>

#include "bench/support/LibraryPath.h"
#include "core/Cast.h"
#include "core/Convert.h"

namespace vestrel::bench {
namespace {

constexpr std::int64_t kGroups = 10;

std::int32_t GroupOf(std::int64_t number) {
  return static_cast<std::int32_t>(number % kGroups);
}

std::int32_t IndexOf(std::int64_t number) {
  return static_cast<std::int32_t>(number / kGroups) + 1;
}

}  // namespace

Ref<clsPage> NewPage(const std::string& appPath, const std::u16string& page) {
  std::filesystem::create_directories(appPath + "/Sequences/Show/" + ToUtf8(page));
  Ref<clsPage> result = MakeRef<clsPage>();
  result->Init(LibraryPath(appPath), nullptr, u"Show", page);
  return result;
}

void Fill(clsPage& page, std::int64_t size) {
  for (std::int64_t i = 0; i < size; ++i) {
    const auto button = MakeRef<clsButton>();
    button->InitWithValues(&page, GroupOf(i), IndexOf(i), FromUtf8("Sequence " + std::to_string(i)),
                           ButtonType_Sequence, nullptr);
    page.ButtonGroups(GroupOf(i))->buttons->AddItem(button.get());
  }
}

void ChangeEveryLine(clsPage& page) {
  for (std::int32_t g = 0; g < kGroups; ++g) {
    for (Object* item : page.ButtonGroups(g)->buttons->Snapshot()) {
      auto& button = Cast<clsButton>(item);
      button.buttonType = button.buttonType == ButtonType_Sequence ? ButtonType_Multi : ButtonType_Sequence;
    }
  }
}

std::string FileOf(const std::string& appPath, const std::string& page) {
  return appPath + "/Sequences/Show/" + page + "/pageSetting.ini";
}

std::vector<ButtonKey> ButtonKeys(std::int64_t size) {
  std::vector<ButtonKey> keys;
  for (std::int64_t i = 0; i < size; ++i) {
    keys.push_back(
        {"ButtonGroup" + std::to_string(GroupOf(i)), "Button" + std::to_string(IndexOf(i)) + "_fields"});
  }
  return keys;
}

}  // namespace vestrel::bench
