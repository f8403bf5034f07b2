#include <gtest/gtest.h>

#include "platform/HostServices.h"
#include "platform/Platform.h"

namespace vestrel::platform {
namespace {

TEST(HostServicesTest, MessageBoxesGoToStandardErrorUntilAHostTakesThem) {
  testing::internal::CaptureStderr();
  hostServices().ShowMessageBox(u"Page not writable.", u"Error");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "[Error] Page not writable.\n");
}

TEST(HostServicesTest, AHostsMessageBoxFunctionGetsTextAndCaption) {
  std::u16string shown;
  SetMessageBoxFunction(
      [](std::u16string_view text, std::u16string_view caption, void* context) {
        *static_cast<std::u16string*>(context) = std::u16string(caption) + u"/" + std::u16string(text);
      },
      &shown);
  hostServices().ShowMessageBox(u"text", u"caption");
  SetMessageBoxFunction(nullptr, nullptr);
  EXPECT_EQ(shown, u"caption/text");
}

TEST(HostServicesTest, PumpingCallsTheHostsFunctionOnceEachTime) {
  int turns = 0;
  hostServices().PumpMessages();
  SetPumpFunction([](void* context) { ++*static_cast<int*>(context); }, &turns);
  hostServices().PumpMessages();
  hostServices().PumpMessages();
  SetPumpFunction(nullptr, nullptr);
  EXPECT_EQ(turns, 2);
}

TEST(HostServicesTest, TheModuleFolderHoldsTheProgram) {
  const std::u16string folder = hostServices().ModuleFolder();
  ASSERT_FALSE(folder.empty());
  EXPECT_NE(folder.back(), u'\\');
  FileInfo info;
  EXPECT_EQ(files().Info(folder + u"\\platform_tests", info), FileStatus::Ok);
}

}  // namespace
}  // namespace vestrel::platform
