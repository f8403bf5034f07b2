#include "platform/System.h"
#include "platform/windows/WindowsText.h"

namespace vestrel::platform {
namespace {

class WindowsClock final : public Clock {
 public:
  std::uint32_t TickCount() override { return GetTickCount(); }

  std::u16string LocalDateTimeText() override {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t date[64] = L"";
    wchar_t time[64] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, date, 64);
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, 64);
    return FromWide(date) + u" " + FromWide(time);
  }
};

}  // namespace

Clock& SystemClock() {
  static WindowsClock clock;
  return clock;
}

}  // namespace vestrel::platform
