#include <gtest/gtest.h>

#include "core/clsDictionary.h"
#include "core/clsLong.h"
#include "core/clsString.h"
#include "model/clsButton.h"
#include "model/clsButtonGroup.h"
#include "recording/vxEvent.h"
#include "storage/clsSequence.h"
#include "workbench/host/ValueText.h"

namespace vestrel::workbench {
namespace {

using namespace std::string_view_literals;

Ref<clsButton> Button(std::u16string_view name) {
  auto button = MakeRef<clsButton>();
  button->InitWithValues(nullptr, 2, 5, name, ButtonType_Sequence, nullptr);
  return button;
}

TEST(ValueTextTest, PlainValues) {
  EXPECT_EQ(ValueText(true), "true");
  EXPECT_EQ(ValueText(std::int32_t{-7}), "-7");
  EXPECT_EQ(ValueText(std::int16_t{-32768}), "-32768");
  EXPECT_EQ(ValueText(2.0F), "2");
  EXPECT_EQ(ValueText(0.1F), "0.1");
  EXPECT_EQ(ValueText(u"a \"b\""sv), "\"a \"\"b\"\"\"");
  EXPECT_EQ(ValueText(u"M\u00fcller"sv), "\"M\xC3\xBCller\"");
}

TEST(ValueTextTest, ALineBreakIsOneBlank) {
  EXPECT_EQ(ValueText(u"a\r\nb\nc"sv), "\"a b c\"");
}

TEST(ValueTextTest, EnumerationsByNameAndUnknownValuesByNumber) {
  EXPECT_EQ(ValueText(ButtonType_None), "ButtonType_None");
  EXPECT_EQ(ValueText(Paused), "Paused");
  EXPECT_EQ(ValueText(static_cast<FaderModeEnum>(9)), "9");
}

TEST(ValueTextTest, DynamicValues) {
  EXPECT_EQ(ValueText(Variant()), "empty");
  EXPECT_EQ(ValueText(Variant(false)), "false");
  EXPECT_EQ(ValueText(Variant(std::int32_t{39})), "39");
  EXPECT_EQ(ValueText(Variant(1.5)), "1.5");
  EXPECT_EQ(ValueText(Variant(u"x")), "\"x\"");
  EXPECT_EQ(ValueText(Variant(Button(u"Intro"))), "Intro@2/5");
}

TEST(ValueTextTest, Objects) {
  auto event = MakeRef<vxEvent>();
  const Ref<clsButton> button = Button(u"Warm Wash");
  event->Init(1500, button.get(), vxEvent_ButtonOff);
  auto group = MakeRef<clsButtonGroup>();
  group->Init(7, nullptr);
  auto text = MakeRef<clsString>();
  text->SetValue(u"hello");
  EXPECT_EQ(ObjectText(nullptr), "none");
  EXPECT_EQ(ValueText(button), "Warm Wash@2/5");
  EXPECT_EQ(ValueText(event), "Warm Wash@2/5 off at 1500");
  EXPECT_EQ(ValueText(group), "group 7");
  EXPECT_EQ(ValueText(text), "\"hello\"");
  EXPECT_EQ(ValueText(BoxLong(-2)), "-2");
}

TEST(ValueTextTest, ListsAndDictionaries) {
  auto list = MakeRef<clsObjectList>();
  EXPECT_EQ(ValueText(list), "[]");
  list->AddItem(BoxLong(1).get());
  list->AddItem(nullptr);
  EXPECT_EQ(ValueText(list), "[1, none]");
  auto dictionary = MakeRef<clsDictionary>();
  dictionary->Add(u"Intro", Button(u"Intro").get());
  dictionary->Add(u"empty", nullptr);
  EXPECT_EQ(ValueText(dictionary), "{\"Intro\": Intro@2/5, \"empty\": none}");
}

TEST(ValueTextTest, FaderPositions) {
  TUIFaderValues values;
  values.GroupFaders[1] = 10;
  values.BumpFaders[8] = 100;
  EXPECT_EQ(ValueText(values), "groups 10 0 0 0 0 0 0 0 bumps 0 0 0 0 0 0 0 100");
}

}  // namespace
}  // namespace vestrel::workbench
