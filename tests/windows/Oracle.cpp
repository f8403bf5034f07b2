// Settings files through the system's own profile functions and through the library's: random sequences of
// writes, deletions and reads, each made twice, give the same reads and, in files that the functions wrote
// themselves, the same bytes; files made by hand give the same reads. What the two are known to treat
// differently, or what the implementation at hand treats unlike Windows, is left out:
//   - writing: blanks at a value's ends, line breaks, empty section names, names that begin with ";" or "["
//   or hold "]"
//     or "=", blanks at the ends of names, deleting from an absent file or of a name with blanks;
//   - reading: a quoted value of about the length that comes back, defaults of blanks alone or in quotes;
//   - by hand: two "]" in a line, "[" without "]", asking for a comment, keys before the first section, odd
//   bytes.
//
//   Oracle FOLDER OPERATIONS
#include <windows.h>

#include <array>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <string>
#include <utility>

#include "storage/modIniFile.h"
#include "tests/component/host/Check.h"

namespace vestrel::test {
namespace {

constexpr int kOperationsPerFile = 250;
constexpr DWORD kBuffer = 255;

std::wstring Wide(const std::u16string& text) {
  return {text.begin(), text.end()};
}

std::string Bytes(const std::wstring& path) {
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return "<none>";
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD done = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr);
  CloseHandle(file);
  return bytes;
}

void Put(const std::wstring& path, const std::string& bytes) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD done = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr);
  CloseHandle(file);
}

class Oracle {
 public:
  Oracle(std::wstring folder, unsigned seed) : folder_(std::move(folder)), random_(seed) {}

  void WrittenFile(int operations) {
    NextFile();
    story_.clear();
    isWritten_ = false;
    for (int i = 0; i < operations; ++i) {
      const int what = Any(0, 9);
      if (what < 5 || !isWritten_) {
        Write();
      } else if (what < 6) {
        Delete();
      } else {
        Read(AnySection(), AnyKey());
      }
      if (host::failedChecks > 20) return;
    }
  }

  void HandMadeFile(int operations) {
    NextFile();
    const std::string text = HandMadeText();
    story_ = "file: " + text + "\n";
    Put(system_, text);
    Put(Wide(ours_), text);
    for (int i = 0; i < operations; ++i) Read(AnySection(), AnyKey());
  }

 private:
  int Any(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }
  bool Perhaps(int in) { return Any(1, in) == 1; }

  // Other names each time, as the system may remember what it read.
  void NextFile() {
    ++files_;
    DeleteFileW(system_.c_str());
    DeleteFileW(Wide(ours_).c_str());
    const std::wstring number = std::to_wstring(files_);
    system_ = folder_ + L"\\system" + number + L".ini";
    const std::wstring ours = folder_ + L"\\ours" + number + L".ini";
    ours_.assign(ours.begin(), ours.end());
  }

  std::u16string InAnyCase(std::u16string name) {
    for (char16_t& unit : name) {
      const bool letter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
      if (letter && Perhaps(4)) unit ^= 0x20U;
    }
    return name;
  }
  std::u16string AnySection() {
    static const std::array<const char16_t*, 7> kNames{
        u"Show", u"Act 1", u"a.b;c", u"\u00C4u\u00DFeres", u"ButtonGroup1", u"'quoted'", u"[x"};
    return InAnyCase(kNames[static_cast<std::size_t>(Any(0, 6))]);
  }
  std::u16string AnyKey() {
    static const std::array<const char16_t*, 10> kNames{
        u"k", u"key two", u"fields", u"Button1_fields", u"\u00E9", u"a;b", u"x[1]", u"\"q\"", u"#n", u""};
    return InAnyCase(kNames[static_cast<std::size_t>(Any(0, 9))]);
  }
  std::u16string AnyText(int length) {
    static constexpr std::u16string_view kUnits =
        u"abcXYZ0189 \t|;=[]#'\"%&,.\\/\u00E4\u00D6\u00FF\u20AC\u00A3~{}";
    std::u16string text;
    while (static_cast<int>(text.size()) < length) {
      text += kUnits[static_cast<std::size_t>(Any(0, static_cast<int>(kUnits.size()) - 1))];
    }
    return text;
  }
  static bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }
  static bool IsQuote(char16_t unit) { return unit == u'"' || unit == u'\''; }
  static std::u16string WithoutBlanksAtItsEnds(std::u16string text) {
    while (!text.empty() && IsBlank(text.back())) text.pop_back();
    while (!text.empty() && IsBlank(text.front())) text.erase(0, 1);
    return text;
  }
  std::u16string AnyValue() {
    if (Perhaps(15)) return {};
    if (Perhaps(6)) return u'"' + AnyText(Any(0, 30)) + u'"';
    std::u16string text = WithoutBlanksAtItsEnds(AnyText(Perhaps(10) ? Any(240, 300) : Any(1, 40)));
    // Long ones without quotes.
    if (text.size() > 200) text.front() = text.back() = u'x';
    return text;
  }
  std::u16string AnyDefault() {
    std::u16string text = AnyText(Perhaps(20) ? Any(240, 300) : Any(0, 12));
    if (!text.empty() && (IsQuote(text.front()) || IsBlank(text.front()))) text.front() = u'd';
    if (!text.empty() && text.back() == u'\t') text.back() = u' ';
    return text;
  }

  void Tell(const char* what, const std::u16string& section, const std::u16string& key,
            const std::u16string& text) {
    story_ += std::string(what) + " [" + host::Shown(Wide(section)) + "] " + host::Shown(Wide(key)) + "=" +
              host::Shown(Wide(text)) + "\n";
  }

  void Write() {
    const std::u16string section = AnySection();
    const std::u16string key = AnyKey();
    std::u16string value = AnyValue();
    Tell("write", section, key, value);
    WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), Wide(value).c_str(),
                               system_.c_str());
    modIniFile::WriteIniString(ours_, section, key, &value);
    isWritten_ = true;
    Compare();
  }

  void Delete() {
    const std::u16string section = AnySection();
    const std::u16string key = AnyKey();
    Tell("delete", section, key, {});
    WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), nullptr, system_.c_str());
    modIniFile::WriteIniString(ours_, section, key, nullptr);
    Compare();
  }

  void Compare() {
    const std::string system = Bytes(system_);
    const std::string ours = Bytes(Wide(ours_));
    host::Checked(system == ours, "the same bytes", __FILE__, __LINE__,
                  story_ + "system:\n" + system + "\nours:\n" + ours);
  }

  // The names asked for may have spaces at their ends.
  void Read(std::u16string section, std::u16string key) {
    if (Perhaps(5)) section = u" " + section + u"  ";
    if (Perhaps(5)) key = u"  " + key + u" ";
    const std::u16string fallback = AnyDefault();
    std::array<wchar_t, kBuffer> buffer{};
    GetPrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), Wide(fallback).c_str(), buffer.data(),
                             kBuffer, system_.c_str());
    const std::wstring system = buffer.data();
    const std::wstring ours = Wide(modIniFile::ReadIniString(ours_, section, key, fallback));
    host::Checked(system == ours, "the same read", __FILE__, __LINE__,
                  system == ours
                      ? std::string()
                      : story_ + "read [" + host::Shown(Wide(section)) + "] " + host::Shown(Wide(key)) +
                            " system: " + host::Shown(system) + " ours: " + host::Shown(ours));
  }

  std::string AnyOf(std::initializer_list<const char*> texts) {
    return texts.begin()[Any(0, static_cast<int>(texts.size()) - 1)];
  }

  // Lines as people and other programs write them, behind a first section line.
  std::string HandMadeText() {
    std::string text = "; by hand\r\n[Show]\r\n";
    for (int line = Any(5, 40); line > 0; --line) {
      const std::string end = AnyOf({"\r\n", "\r\n", "\n", "\r"});
      const std::string before = AnyOf({"", "", "  ", "\t"});
      const std::string after = AnyOf({"", "", " ", "\t "});
      if (Perhaps(6)) {
        text += before + "[" + after +
                AnyOf({"show", "ACT 1", "a.b;c", "ButtonGroup1", "'quoted'", "[x", "other"}) + after + "]" +
                AnyOf({"", "", " ; note", "x=1"}) + after + end;
      } else if (Perhaps(6)) {
        text += AnyOf({"", "; a comment", "  ;k=9", "a line without its sign", "#", "name]"}) + after + end;
      } else {
        text += before + AnyOf({"k", "K", "key two", "fields", "a;b", "x[1", "\"q\"", "#n", ""}) + after +
                "=" + before +
                AnyOf({"1", "", "'x'", "\" x \"", "\"x'", "x\"", "=1", "a ; b", "\"\"", "'\"", "\"a\" \"b\"",
                       "1|2|3"}) +
                after + end;
      }
    }
    return text;
  }

  std::wstring folder_;
  std::mt19937 random_;
  std::wstring system_;
  std::u16string ours_;
  std::string story_;
  int files_ = 0;
  bool isWritten_ = false;
};

void Compare(const std::wstring& folder, int operations) {
  unsigned seed = 1;
  for (int done = 0; done < operations && host::failedChecks < 5; done += 2 * kOperationsPerFile) {
    Oracle oracle(folder + L"\\", seed++);
    oracle.WrittenFile(kOperationsPerFile);
    oracle.HandMadeFile(kOperationsPerFile);
  }
}

}  // namespace
}  // namespace vestrel::test

int wmain(int count, wchar_t** arguments) {
  if (count < 3) return 2;
  vestrel::test::Compare(arguments[1], static_cast<int>(std::wcstol(arguments[2], nullptr, 10)));
  return host::Totals("Oracle");
}
