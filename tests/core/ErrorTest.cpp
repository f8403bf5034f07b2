#include <gtest/gtest.h>

#include <string>

#include "core/Error.h"
#include "core/FileError.h"
#include "tests/support/Errors.h"

namespace vestrel {
namespace {

TEST(ErrorTest, CarriesNumberSourceAndDescription) {
  const Error error(1001, u"clsButton", u"bad field");
  EXPECT_EQ(error.number(), 1001);
  EXPECT_EQ(error.source(), u"clsButton");
  EXPECT_EQ(error.description(), u"bad field");
  EXPECT_STREQ(error.what(), "error 1001 (clsButton): bad field");
}

TEST(ErrorTest, KnowsTheClassicDescriptions) {
  const struct {
    std::int32_t number;
    std::u16string_view text;
  } rows[] = {
      {5, u"Invalid procedure call or argument"},
      {6, u"Overflow"},
      {7, u"Out of memory"},
      {9, u"Subscript out of range"},
      {11, u"Division by zero"},
      {13, u"Type mismatch"},
      {52, u"Bad file name or number"},
      {53, u"File not found"},
      {55, u"File already open"},
      {57, u"Device I/O error"},
      {61, u"Disk full"},
      {62, u"Input past end of file"},
      {70, u"Permission denied"},
      {75, u"Path/File access error"},
      {76, u"Path not found"},
      {91, u"Object variable not set"},
      {12345, u"Application-defined or object-defined error"},
  };
  for (const auto& row : rows) EXPECT_EQ(RuntimeErrorText(row.number), row.text) << row.number;
}

TEST(ErrorTest, AddsTheDetailAfterTheDescription) {
  try {
    RaiseError(Error_FileNotFound, u"here", u"C:\\a.txt");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.source(), u"here");
    EXPECT_EQ(error.description(), u"File not found: C:\\a.txt");
  }
}

TEST(ErrorTest, AFailedFileOperationBecomesItsClassicNumber) {
  using platform::FileStatus;
  const struct {
    FileStatus status;
    std::int32_t number;
  } rows[] = {
      {FileStatus::Ok, 0},
      {FileStatus::NotFound, 53},
      {FileStatus::PathNotFound, 76},
      {FileStatus::AccessDenied, 75},
      {FileStatus::Exists, 75},
      {FileStatus::Busy, 70},
      {FileStatus::DiskFull, 61},
      {FileStatus::BadName, 52},
      {FileStatus::Interrupted, 57},
      {FileStatus::IoError, 57},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorNumberOf(row.status), row.number);
    EXPECT_RAISES(row.number, CheckFileStatus(row.status, u"here", u"file"));
  }
}

}  // namespace
}  // namespace vestrel
