#include <gtest/gtest.h>

#include "storage/ProfileChange.h"

namespace vestrel {
namespace {

using Kind = ProfileChange::Kind;

ProfileEdit Set(std::string_view key, std::string_view value) {
  return {"s", key, value};
}

// The file after the change, done as ProfileFile does it.
std::string Done(std::string file, const ProfileChange& change) {
  if (change.kind == Kind::Whole) return change.bytes;
  if (change.kind == Kind::InPlace) file.replace(change.offset, change.bytes.size(), change.bytes);
  return file;
}

TEST(ProfileChangeTest, WhatIsEqualIsNotWritten) {
  EXPECT_EQ(PlanChange("[s]\r\nk=1\r\n", std::vector{Set("k", "1")}).kind, Kind::None);
  EXPECT_EQ(PlanChange("[s]\r\nk=1\r\n", std::vector<ProfileEdit>{}).kind, Kind::None);
  EXPECT_EQ(PlanChange("[s]\r\nk=1\r\n", std::vector{Set("k", "2"), Set("k", "1")}).kind, Kind::None);
}

TEST(ProfileChangeTest, AValueThatComesAndGoesLeavesTheFormThatTwoWritesLeave) {
  const std::string file = "[s]\r\nk = 1\r\n";
  EXPECT_EQ(Done(file, PlanChange(file, std::vector{Set("k", "2"), Set("k", " 1")})), "[s]\r\nk= 1\r\n");
  EXPECT_EQ(PlanChange(file, std::vector{Set("k", " 1"), Set("k", " 1")}).kind, Kind::None);
}

TEST(ProfileChangeTest, AValueOfTheSameLengthIsOverwrittenWhereItDiffers) {
  const ProfileChange change = PlanChange("[s]\r\nk=abcde\r\n", std::vector{Set("k", "abXYe")});
  EXPECT_EQ(change.kind, Kind::InPlace);
  EXPECT_EQ(change.offset, 9U);
  EXPECT_EQ(change.bytes, "XY");
}

TEST(ProfileChangeTest, SeveralValuesInOneSectorAreOneOverwrite) {
  const std::string file = "[s]\r\na=1\r\nb=2\r\nc=3\r\n";
  const ProfileChange change = PlanChange(file, std::vector{Set("c", "9"), Set("b", "2"), Set("a", "7")});
  EXPECT_EQ(change.kind, Kind::InPlace);
  EXPECT_EQ(change.bytes, "7\r\nb=2\r\nc=9");
  EXPECT_EQ(Done(file, change), "[s]\r\na=7\r\nb=2\r\nc=9\r\n");
}

TEST(ProfileChangeTest, OneByteOfALongValueIsOverwrittenAlone) {
  std::string value(5000, 'v');
  const std::string file = "[s]\r\nk=" + value + "\r\n";
  value[4000] = 'w';
  const ProfileChange change = PlanChange(file, std::vector{Set("k", value)});
  EXPECT_EQ(change.kind, Kind::InPlace);
  EXPECT_EQ(change.offset, 4007U);
  EXPECT_EQ(change.bytes, "w");
  value[100] = 'w';
  EXPECT_EQ(PlanChange(file, std::vector{Set("k", value)}).bytes, "[s]\r\nk=" + value + "\r\n");
}

TEST(ProfileChangeTest, ManyLinesOfTheSameLengthMakeAWholeFile) {
  std::string file = "[s]\r\n";
  std::string expected = file;
  std::vector<std::string> keys;
  for (int i = 0; i < 200; ++i) keys.push_back("key" + std::to_string(i));
  std::vector<ProfileEdit> edits;
  for (const std::string& key : keys) {
    file += key + "=old\r\n";
    expected += key + "=new\r\n";
    edits.push_back(Set(key, "new"));
  }
  const ProfileChange change = PlanChange(file, edits);
  EXPECT_EQ(change.kind, Kind::Whole);
  EXPECT_EQ(change.bytes, expected);
}

TEST(ProfileChangeTest, AnotherLengthMakesAWholeFile) {
  const ProfileChange change = PlanChange("[s]\r\nk=9\r\n", std::vector{Set("k", "10")});
  EXPECT_EQ(change.kind, Kind::Whole);
  EXPECT_EQ(change.bytes, "[s]\r\nk=10\r\n");
}

TEST(ProfileChangeTest, ABlankLessRoundTheDividerMakesAWholeFile) {
  EXPECT_EQ(PlanChange("[s]\r\nk = 9\r\n", std::vector{Set("k", "8")}).kind, Kind::Whole);
}

TEST(ProfileChangeTest, LengthsThatEvenOutInOneSectorStayInPlace) {
  const std::string file = "[s]\r\na=1\r\nb=22\r\n";
  const std::vector edits{Set("a", "11"), Set("b", "2")};
  const ProfileChange change = PlanChange(file, edits);
  EXPECT_EQ(change.kind, Kind::InPlace);
  EXPECT_EQ(Done(file, change), "[s]\r\na=11\r\nb=2\r\n");
  const std::string other = "[s]\r\na=1234567\r\n;c\r\n";
  const ProfileChange withNewKey = PlanChange(other, std::vector{Set("a", "12"), Set("b", "3")});
  EXPECT_EQ(withNewKey.kind, Kind::InPlace);
  EXPECT_EQ(Done(other, withNewKey), "[s]\r\na=12\r\nb=3\r\n;c\r\n");
}

TEST(ProfileChangeTest, LengthsThatEvenOutAcrossSectorsMakeAWholeFile) {
  const std::string filler = "\r\n;" + std::string(kSectorSize, '-') + "\r\n";
  const ProfileChange change =
      PlanChange("[s]\r\na=1" + filler + "b=22\r\n", std::vector{Set("a", "11"), Set("b", "2")});
  EXPECT_EQ(change.kind, Kind::Whole);
  EXPECT_EQ(change.bytes, "[s]\r\na=11" + filler + "b=2\r\n");
}

// A value of two characters at every position around a sector's border, both of them changed.
TEST(ProfileChangeTest, OnlyBytesInsideOneSectorAreOverwritten) {
  for (std::size_t offset = kSectorSize - 4; offset <= kSectorSize + 2; ++offset) {
    const std::string file = "[s]\r\n;" + std::string(offset - 10, '-') + "\r\nk=11\r\n";
    ASSERT_EQ(file.find("11"), offset);
    const ProfileChange change = PlanChange(file, std::vector{Set("k", "22")});
    const bool crosses = offset == kSectorSize - 1;
    EXPECT_EQ(change.kind, crosses ? Kind::Whole : Kind::InPlace) << offset;
    EXPECT_EQ(Done(file, change).substr(offset, 2), "22");
  }
}

TEST(ProfileChangeTest, FarApartValuesOfTheSameLengthMakeAWholeFile) {
  const std::string file = "[s]\r\na=1\r\n;" + std::string(kSectorSize, '-') + "\r\nb=1\r\n";
  const ProfileChange change = PlanChange(file, std::vector{Set("a", "2"), Set("b", "2")});
  EXPECT_EQ(change.kind, Kind::Whole);
  EXPECT_EQ(change.bytes.size(), file.size());
}

class Utf16 {
 public:
  static std::string File(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
      bytes += static_cast<char>(unit & 0xFFU);
      bytes += static_cast<char>(unit >> 8U);
    }
    return bytes;
  }
};

TEST(ProfileChangeTest, AFileInUtf16IsReadAndWrittenAsUtf16) {
  const std::string file = Utf16::File(u"[s]\r\nk=\u20AC\r\nj=1\r\n");
  EXPECT_EQ(FindInFile(file, "S", "K"), "\xE2\x82\xAC");
  EXPECT_EQ(FindInFile(file, "s", "none"), std::nullopt);
  const ProfileChange whole = PlanChange(file, std::vector{Set("l", "\xC3\xA9")});
  EXPECT_EQ(Done(file, whole), Utf16::File(u"[s]\r\nk=\u20AC\r\nj=1\r\nl=\u00E9\r\n"));
  const ProfileChange place = PlanChange(file, std::vector{Set("j", "2")});
  EXPECT_EQ(place.kind, Kind::InPlace);
  EXPECT_EQ(Done(file, place), Utf16::File(u"[s]\r\nk=\u20AC\r\nj=2\r\n"));
  EXPECT_EQ(PlanChange(file, std::vector{Set("j", "1")}).kind, Kind::None);
}

TEST(ProfileChangeTest, AByteOrderMarkAloneCountsAsALine) {
  EXPECT_EQ(Done("", PlanChange(Utf16::File(u""), std::vector{Set("k", "1")})),
            Utf16::File(u"\r\n[s]\r\nk=1\r\n"));
}

TEST(ProfileChangeTest, HalfCharactersInUtf16KeepTheirBits) {
  const std::u16string odd = u"[s]\r\nj=" + std::u16string(1, char16_t{0xD800}) + u"x" +
                             std::u16string(1, char16_t{0xDC00}) + u"\U0001F4A1\r\n";
  EXPECT_EQ(Done("", PlanChange(Utf16::File(odd), std::vector{Set("k", "1")})),
            Utf16::File(odd + u"k=1\r\n"));
}

TEST(ProfileChangeTest, FarApartValuesInUtf16MakeAWholeFile) {
  const std::u16string filler(600, u'f');
  const std::string file = Utf16::File(u"[s]\r\nj=1\r\nf=" + filler + u"\r\nk=1\r\n");
  const ProfileChange change = PlanChange(file, std::vector{Set("j", "2"), Set("k", "2")});
  EXPECT_EQ(change.kind, Kind::Whole);
  EXPECT_EQ(Done(file, change), Utf16::File(u"[s]\r\nj=2\r\nf=" + filler + u"\r\nk=2\r\n"));
}

TEST(ProfileChangeTest, KeysAreDeletedFromUtf16) {
  const std::string file = Utf16::File(u"[s]\r\nj=1\r\nk=1\r\n");
  const ProfileEdit deletion{"s", "j", std::nullopt};
  EXPECT_EQ(Done(file, PlanChange(file, std::span(&deletion, 1))), Utf16::File(u"[s]\r\nk=1\r\n"));
}

TEST(ProfileChangeTest, HalfACharacterMayEndAFileInUtf16) {
  const std::u16string odd = u"[s]\r\nj=" + std::u16string(1, char16_t{0xD800});
  EXPECT_EQ(Done("", PlanChange(Utf16::File(odd), std::vector{Set("k", "1")})),
            Utf16::File(odd + u"\r\nk=1\r\n"));
}

TEST(ProfileChangeTest, AnOddLastByteOfUtf16IsNoText) {
  const std::string file = Utf16::File(u"[s]\r\nk=1\r\n") + "x";
  EXPECT_EQ(FindInFile(file, "s", "k"), "1");
  EXPECT_EQ(PlanChange(file, std::vector{Set("k", "1")}).kind, Kind::None);
  EXPECT_EQ(Done(file, PlanChange(file, std::vector{Set("k", "2")})), Utf16::File(u"[s]\r\nk=2\r\n"));
}

}  // namespace
}  // namespace vestrel
