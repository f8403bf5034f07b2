#include "workbench/host/SimulatedClock.h"

namespace vestrel::workbench {

namespace {

using namespace std::chrono;

std::u16string TwoDigits(unsigned value) {
  return {static_cast<char16_t>(u'0' + value / 10 % 10), static_cast<char16_t>(u'0' + value % 10)};
}

std::u16string FourDigits(int value) {
  const auto number = static_cast<unsigned>(value);
  return TwoDigits(number / 100) + TwoDigits(number % 100);
}

}  // namespace

std::u16string SimulatedClock::LocalDateTimeText() {
  const sys_seconds time = start_.local + duration_cast<seconds>(milliseconds{now_ - start_.ticks});
  const sys_days day = floor<days>(time);
  const year_month_day date{day};
  const auto second = static_cast<unsigned>((time - day).count());
  return TwoDigits(static_cast<unsigned>(date.day())) + u"/" +
         TwoDigits(static_cast<unsigned>(date.month())) + u"/" + FourDigits(static_cast<int>(date.year())) +
         u" " + TwoDigits(second / 3600) + u":" + TwoDigits(second / 60 % 60) + u":" + TwoDigits(second % 60);
}

}  // namespace vestrel::workbench
