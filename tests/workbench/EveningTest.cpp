// The sample evening as a whole, against the printout that is checked in. After a wanted change run the tests
// with VESTREL_UPDATE_GOLDEN=1 and read the difference.
#include "core/Object.h"
#include "tests/workbench/WorkbenchFixture.h"

namespace vestrel::workbench {
namespace {

class EveningTest : public Workbench {
 protected:
  std::string PlayEvening() {
    PutSample();
    return Play(FileBytes(Examples() / "evening.txt"), RunStyle::Story);
  }
};

TEST_F(EveningTest, PrintsWhatIsCheckedIn) {
  const std::string printed = PlayEvening();
  if (std::getenv("VESTREL_UPDATE_GOLDEN") != nullptr) {
    std::ofstream(VESTREL_GOLDEN_FILE, std::ios::binary) << printed;
  }
  EXPECT_EQ(printed, FileBytes(VESTREL_GOLDEN_FILE));
}

TEST_F(EveningTest, ReleasesEveryObject) {
  const long before = Object::LiveCount();
  PlayEvening();
  // The shared logger stays.
  EXPECT_LE(Object::LiveCount(), before + 1);
}

TEST_F(EveningTest, SucceedsAndEndsWithEveryButtonOffInTheFiles) {
  PlayEvening();
  EXPECT_EQ(failures, 0U);
  const std::string page =
      FileBytes(folder() / "Sequences" / "Harbour Lights" / "Finale" / "pageSetting.ini");
  EXPECT_NE(page.find("Button1_fields=Company Warm|1|0|"), std::string::npos);
  EXPECT_EQ(page.find("|1|1|0|"), std::string::npos);
}

}  // namespace
}  // namespace vestrel::workbench
