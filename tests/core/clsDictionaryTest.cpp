#include <gtest/gtest.h>

#include <functional>

#include "core/clsDictionary.h"
#include "tests/core/ListHelpers.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

using test::Shown;

Ref<clsDictionary> Filled(std::initializer_list<std::u16string_view> keys) {
  Ref<clsDictionary> dictionary = MakeRef<clsDictionary>();
  for (const std::u16string_view key : keys) dictionary->Add(key, BoxString(key).get());
  return dictionary;
}

TEST(clsDictionaryTest, KeepsKeysInTheOrderOfTheirFirstAddition) {
  const Ref<clsDictionary> dictionary = Filled({u"B", u"A", u"C"});
  EXPECT_EQ(Shown(*dictionary->KeyList()), "B A C");
  dictionary->Add(u"A", BoxLong(7).get());
  EXPECT_EQ(Shown(*dictionary->KeyList()), "B A C");
  EXPECT_EQ(Shown(dictionary->ValueOf(u"A").get()), "7");
}

TEST(clsDictionaryTest, IgnoresLetterCaseAndKeepsTheFirstSpelling) {
  const Ref<clsDictionary> dictionary = Filled({u"Intro"});
  EXPECT_TRUE(dictionary->HasKey(u"INTRO"));
  dictionary->Add(u"intro", BoxLong(1).get());
  EXPECT_EQ(Shown(*dictionary->KeyList()), "Intro");
  EXPECT_EQ(Shown(dictionary->ValueOf(u"iNTRO").get()), "1");
}

TEST(clsDictionaryTest, IgnoresTheCaseOfLettersBeyondTheBasicAlphabet) {
  const Ref<clsDictionary> dictionary = Filled({u"\u00DCbergang", u"\u0416\u0430\u0440"});
  EXPECT_TRUE(dictionary->HasKey(u"\u00FCBERGANG"));
  EXPECT_FALSE(dictionary->HasKey(u"Ubergang"));
  dictionary->Add(u"\u0436\u0410\u0420", BoxLong(1).get());
  EXPECT_EQ(Shown(dictionary->ValueOf(u"\u0436\u0430\u0440").get()), "1");
  EXPECT_EQ(dictionary->KeyList()->Size(), 2);
}

TEST(clsDictionaryTest, AMissingKeyAnswersTheEmptyValue) {
  const Ref<clsDictionary> dictionary = Filled({u"a"});
  const Ref<clsLong> empty = BoxLong(0);
  EXPECT_FALSE(dictionary->HasKey(u"b"));
  EXPECT_EQ(dictionary->ValueOf(u"b"), nullptr);
  EXPECT_EQ(dictionary->ValueOf(u"b", empty.get()), empty.get());
  EXPECT_EQ(dictionary->Remove(u"b"), nullptr);
  EXPECT_EQ(dictionary->Remove(u"b", empty.get()), empty.get());
  EXPECT_EQ(Shown(*dictionary->KeyList()), "a");
}

TEST(clsDictionaryTest, AnEmptyReferenceIsAValueToo) {
  const Ref<clsDictionary> dictionary = MakeRef<clsDictionary>();
  dictionary->Add(u"none", nullptr);
  EXPECT_TRUE(dictionary->HasKey(u"none"));
  EXPECT_EQ(dictionary->ValueOf(u"none", BoxLong(1).get()), nullptr);
}

TEST(clsDictionaryTest, RemovesAKeyAndAnswersItsValue) {
  const Ref<clsDictionary> dictionary = Filled({u"a", u"b", u"c"});
  EXPECT_EQ(Shown(dictionary->Remove(u"b").get()), "b");
  EXPECT_FALSE(dictionary->HasKey(u"b"));
  EXPECT_EQ(Shown(*dictionary->KeyList()), "a c");
  const Ref<clsDictionary> one = Filled({u"a"});
  one->Remove(u"a", BoxLong(1).get());
  EXPECT_EQ(one->KeyList()->Size(), 0);
}

TEST(clsDictionaryTest, RemovingUnderAnotherSpellingDropsTheLastKey) {
  const Ref<clsDictionary> dictionary = Filled({u"a", u"b", u"c"});
  EXPECT_EQ(Shown(dictionary->Remove(u"A").get()), "a");
  EXPECT_FALSE(dictionary->HasKey(u"a"));
  EXPECT_TRUE(dictionary->HasKey(u"c"));
  EXPECT_EQ(Shown(*dictionary->KeyList()), "a b");
}

TEST(clsDictionaryTest, ClearStartsWithANewKeyList) {
  const Ref<clsDictionary> dictionary = Filled({u"a", u"b"});
  const Ref<clsObjectList> oldKeys = dictionary->KeyList();
  dictionary->Clear();
  EXPECT_FALSE(dictionary->HasKey(u"a"));
  EXPECT_FALSE(dictionary->HasKey(u"b"));
  EXPECT_EQ(dictionary->KeyList()->Size(), 0);
  EXPECT_EQ(Shown(*oldKeys), "a b");
}

TEST(clsDictionaryTest, TheKeyListIsTheDictionarysOwn) {
  const Ref<clsDictionary> dictionary = Filled({u"a"});
  const Ref<clsObjectList> keys = dictionary->KeyList();
  dictionary->Add(u"b", nullptr);
  EXPECT_EQ(keys, dictionary->KeyList());
  EXPECT_EQ(Shown(*keys), "a b");
}

TEST(clsDictionaryTest, HoldsManyKeys) {
  const Ref<clsDictionary> dictionary = MakeRef<clsDictionary>();
  for (std::int32_t i = 0; i < 2000; ++i) dictionary->Add(u"Button " + LongToText(i), BoxLong(i).get());
  for (std::int32_t i = 0; i < 2000; ++i) {
    EXPECT_EQ(Cast<clsLong>(dictionary->ValueOf(u"BUTTON " + LongToText(i)).get()).value(), i);
  }
  EXPECT_EQ(dictionary->KeyList()->Size(), 2000);
}

class FailingObserver : public IObjListEventHandler {
 public:
  VESTREL_OBJECT(FailingObserver, IObjListEventHandler)
  void ItemAdded(clsObjectList*, Object*, std::int32_t, Object*) override { RaiseError(Error_DeviceIO); }
};

TEST(clsDictionaryTest, AKeyWhoseAdditionFailsHasNoValue) {
  const Ref<clsDictionary> dictionary = MakeRef<clsDictionary>();
  dictionary->KeyList()->SetEventHandler(MakeRef<FailingObserver>().get(), nullptr);
  EXPECT_RAISES(57, dictionary->Add(u"a", BoxLong(1).get()));
  EXPECT_FALSE(dictionary->HasKey(u"a"));
}

// Looks into the dictionary when it ends.
class LooksBack : public Object {
 public:
  VESTREL_OBJECT(LooksBack)
  explicit LooksBack(std::function<void()> look) : look_(std::move(look)) {}

 protected:
  ~LooksBack() override { look_(); }

 private:
  std::function<void()> look_;
};

TEST(clsDictionaryTest, AValuesEndMayUseTheDictionary) {
  const Ref<clsDictionary> dictionary = MakeRef<clsDictionary>();
  std::string seen;
  const auto look = [&] { seen += dictionary->HasKey(u"k") ? "y" : "n"; };
  dictionary->Add(u"k", MakeRef<LooksBack>(look).get());
  dictionary->Add(u"k", MakeRef<LooksBack>(look).get());
  dictionary->Remove(u"k");
  dictionary->Add(u"k", MakeRef<LooksBack>(look).get());
  dictionary->Clear();
  EXPECT_EQ(seen, "ynn");
}

}  // namespace
}  // namespace vestrel
