#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Convert.h"
#include "core/Error.h"
#include "core/clsObjectList.h"
#include "core/clsString.h"
#include "model/IndexList.h"
#include "model/clsButton.h"
#include "model/clsPage.h"

namespace vestrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Ref<clsObjectList> ButtonsAt(std::initializer_list<std::int32_t> indices) {
  auto list = MakeRef<clsObjectList>();
  for (const std::int32_t index : indices) {
    const auto button = MakeRef<clsButton>();
    button->InitWithValues(nullptr, 1, index, u"n", ButtonType_Sequence, nullptr);
    list->AddItem(button.get());
  }
  return list;
}

TEST(IndexListTest, JoinsIndicesInListOrder) {
  EXPECT_EQ(IndexListText(*ButtonsAt({})), u"");
  EXPECT_EQ(IndexListText(*ButtonsAt({5})), u"5");
  EXPECT_EQ(IndexListText(*ButtonsAt({3, 1, 7, -2})), u"3|1|7|-2");
}

TEST(IndexListTest, AnItemThatIsNoButtonIsATypeMismatch) {
  const auto list = ButtonsAt({1});
  list->AddItem(MakeRef<clsString>().get());
  EXPECT_THROW(IndexListText(*list), Error);
}

TEST(IndexListTest, SplitsInOrderAndConvertsEachPiece) {
  EXPECT_THAT(IndexListFromText(u""), IsEmpty());
  EXPECT_THAT(IndexListFromText(u"4"), ElementsAre(4));
  EXPECT_THAT(IndexListFromText(u"3|1|7|1"), ElementsAre(3, 1, 7, 1));
  EXPECT_THAT(IndexListFromText(u" 2 |-5|2.5"), ElementsAre(2, -5, 2));
}

TEST(IndexListTest, APieceThatIsNoNumberRaises) {
  for (const std::u16string_view text : {u"|", u"1|", u"|1", u"1||2", u"1,2", u"one", u" "}) {
    try {
      IndexListFromText(text);
      ADD_FAILURE() << ToUtf8(text);
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), Error_TypeMismatch) << ToUtf8(text);
    }
  }
  try {
    IndexListFromText(u"99999999999");
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), Error_Overflow);
  }
}

}  // namespace
}  // namespace vestrel
