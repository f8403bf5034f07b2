// Calls every operation of every class, with a checked result or a checked error, first late bound and then
// through the slots as the type library tells them, and says what was forgotten.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "tests/component/host/EarlyHandlers.h"
#include "tests/component/host/Program.h"

namespace host {
namespace {

std::vector<std::wstring> FormNames() {
  return {L"SetButtonGroupPageCaption",
          L"RefreshPage",
          L"SetFlashing",
          L"ShowEditPopup",
          L"DisableEditMode",
          L"CopyButtonFiles",
          L"DeleteButton",
          L"RenameButton",
          L"ButtonStateChanged",
          L"LockStateChanged",
          L"UpdateFaderUI",
          L"FaderModeChanged",
          L"HighlightBump",
          L"ReleaseButton",
          L"GoFromSubmaster",
          L"GetUIFaderValues",
          L"UpdateFaderModelValue",
          L"HideSplashScreen",
          L"CreateMarkFadeButton",
          L"PromptButtonOverwrite"};
}

std::vector<std::wstring> BarNames() {
  return {L"UpdateTimecodeDisplay", L"SetTimerEnabled",     L"TransportStateChanged",
          L"NewEventRecorded",      L"CurrentPlayingEvent", L"RefreshList"};
}

std::string LogText() {
  std::ifstream file(Narrow(folder) + "log.txt", std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}
void ExpectLogged(const char* text) {
  Checked(LogText().find(text) != std::string::npos, "was logged:", text, 0);
}

bool FileExists(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void Lists() {
  const Value list = Create(L"clsObjectList");
  CHECK_EQ(Call(list, L"AddItem", {Box(3)}).number(), 0);
  CHECK_EQ(Call(list, L"AddItem", {Box(1)}).number(), 1);
  CHECK_EQ(Call(list, L"AddItemBefore", {Box(2), 0}).number(), 0);
  CHECK_EQ(Call(list, L"Size").number(), 3);
  CHECK_EQ(Unbox(Call(list, L"GetItem", {-1})), 1);
  Call(list, L"SortInPlace");
  CHECK_EQ(Unbox(Call(list, L"GetItem", {0})), 1);
  Value comparator = None();
  Call(list, L"SortInPlace", {ByRef(comparator), true});
  CHECK_EQ(Unbox(Call(list, L"GetItem", {0})), 3);
  CHECK(Get(comparator, L"Reverse").truth());
  Call(list, L"Reverse");
  CHECK_EQ(Unbox(Call(list, L"GetItem", {0})), 1);
  const Value first = Call(list, L"GetItem", {0});
  CHECK_EQ(Call(list, L"FindObject", {first}).number(), 0);
  CHECK_EQ(Call(list, L"FindObject", {Box(1)}).number(), -1);
  CHECK_EQ(Call(list, L"FindObjectValue", {Box(2)}).number(), 1);
  CHECK_EQ(Try(list, L"FindFieldValue", {L"x", 1}).error, 7155);
  const Value array = Call(list, L"AsArray");
  CHECK_EQ(array.type(), static_cast<VARTYPE>(VT_ARRAY | VT_VARIANT));

  const Value more = Create(L"clsObjectList");
  Call(more, L"ExtendWith", {list});
  CHECK_EQ(Call(more, L"Size").number(), 3);
  CHECK_EQ(Unbox(Call(more, L"Remove", {1})), 2);
  Call(more, L"Clear");
  CHECK_EQ(Call(more, L"Size").number(), 0);
  CHECK_EQ(Try(more, L"AsArray").error, 9);
  Call(more, L"AddItem", {BoxText(L"a")});
  Call(more, L"AddItem", {BoxText(L"b")});
  CHECK_EQ(Call(more, L"JoinStrings", {L", "}).text(), L"a, b");
  CHECK_EQ(Call(more, L"JoinStrings", {L", ", 1}).text(), L"a");

  AnyHost<EarlyListHandler> observer({L"ItemAdded", L"ItemRemoved"});
  Call(list, L"SetEventHandler", {observer.object(), first});
  Call(list, L"AddItem", {Box(9)});
  observer.Expect(L"ItemAdded(<clsObjectList>,<clsLong>,3,<clsLong>)", L"ItemAdded(3)");
  Call(list, L"Remove", {3});
  observer.Expect(L"ItemRemoved(<clsObjectList>,<clsLong>,3,<clsLong>)", L"ItemRemoved(3)");
  Call(list, L"SetEventHandler", {Create(L"IObjListEventHandler"), None()});
  CHECK_EQ(observer.references(), 1UL);

  const Value predicate = Create(L"IObjectPredicate");
  CHECK_EQ(Call(Call(list, L"Filter", {predicate}), L"Size").number(), 0);
  CHECK_EQ(Call(list, L"FirstIndexWhere", {predicate}).number(), -1);
  CHECK_EQ(Call(list, L"LastIndexWhere", {predicate}).number(), -1);

  const Value iterator = Call(list, L"BeginIter");
  CHECK_EQ(Get(iterator, L"Size").number(), 3);
  CHECK_EQ(Get(iterator, L"IterIndex").number(), -1);
  CHECK(Call(iterator, L"hasNext").truth());
  CHECK_EQ(Unbox(Call(iterator, L"iterValue")), 1);
  Value out = None();
  CHECK(Call(iterator, L"hasNextObject", {ByRef(out)}).truth());
  CHECK_EQ(Unbox(out), 2);
  Value number = 0;
  CHECK(Call(iterator, L"hasNextLong", {ByRef(number)}).truth());
  CHECK_EQ(number.number(), 3);
  Call(iterator, L"resetIter");
  CHECK(Call(iterator, L"hasNextWithIndex", {ByRef(number)}).truth());
  CHECK_EQ(number.number(), 0);
  Call(iterator, L"Init", {Call(more, L"AsArray"), 2});
  Value text = L"";
  CHECK(Call(iterator, L"hasNextString", {ByRef(text)}).truth());
  CHECK_EQ(text.text(), L"a");
}

void Comparison() {
  CHECK_EQ(Call(Box(1), L"IComparable_CompareTo", {Box(2)}).number(), -1);
  CHECK_EQ(Try(Box(1), L"IComparable_FieldCompare", {L"x", 1}).error, 7155);
  CHECK_EQ(Call(BoxText(L"b"), L"IComparable_CompareTo", {BoxText(L"B"), L"all"}).number(), 1);
  CHECK_EQ(Try(BoxText(L"b"), L"IComparable_FieldCompare", {L"x", L"y"}).error, 7155);
  CHECK_EQ(Call(Create(L"IComparable"), L"CompareTo", {Box(1)}).number(), 0);
  CHECK_EQ(Call(Create(L"IComparable"), L"FieldCompare", {L"all", 1}).number(), 0);
  CHECK_EQ(Call(Create(L"IObjectComparator"), L"Compare", {Box(1), Box(2)}).number(), 0);
  CHECK(!Call(Create(L"IObjectPredicate"), L"IsTrueFor", {Box(1)}).truth());
  Call(Create(L"IObjListEventHandler"), L"ItemAdded", {None(), None(), 0, None()});
  Call(Create(L"IObjListEventHandler"), L"ItemRemoved", {None(), None(), 0, None()});

  const Value comparator = Create(L"DefaultObjectComparator");
  CHECK_EQ(Call(comparator, L"IObjectComparator_Compare", {Box(1), Box(2)}).number(), -1);
  Put(comparator, L"Reverse", true);
  CHECK(Get(comparator, L"Reverse").truth());
  CHECK_EQ(Call(comparator, L"IObjectComparator_Compare", {Box(1), Box(2)}).number(), 1);
  CHECK_EQ(Get(comparator, L"field").text(), L"all");
  CheckProperty(comparator, L"field", L"other");

  const Value button = Create(L"clsButton");
  Put(button, L"buttonIndex", 5);
  const Value predicate = Create(L"clsButtonPredicate");
  CHECK(Call(predicate, L"IObjectPredicate_IsTrueFor", {button}).truth());
  Call(predicate, L"SetButtonIndexBetween", {6, 9});
  CHECK(!Call(predicate, L"IObjectPredicate_IsTrueFor", {button}).truth());
  Call(predicate, L"SetButtonIndexGreaterThan", {5, true});
  CHECK(Call(predicate, L"IObjectPredicate_IsTrueFor", {button}).truth());
  Call(predicate, L"SetButtonIndexLessThan", {5, false});
  CHECK(!Call(predicate, L"IObjectPredicate_IsTrueFor", {button}).truth());
  Call(predicate, L"SetButtonType", {0});
  CHECK(Call(predicate, L"IObjectPredicate_IsTrueFor", {button}).truth());
  CHECK_EQ(Try(predicate, L"IObjectPredicate_IsTrueFor", {predicate}).error, 13);
}

void Dictionaries() {
  const Value dictionary = Create(L"clsDictionary");
  Call(dictionary, L"Add", {L"B", Box(1)});
  Call(dictionary, L"Add", {L"a", Box(2)});
  CHECK(Call(dictionary, L"HasKey", {L"b"}).truth());
  CHECK_EQ(Unbox(Call(dictionary, L"ValueOf", {L"A"})), 2);
  CHECK_EQ(Unbox(Call(dictionary, L"ValueOf", {L"missing", Box(7)})), 7);
  CHECK(Call(dictionary, L"ValueOf", {L"missing"}).object() == nullptr);
  CHECK_EQ(Call(Get(dictionary, L"KeyList"), L"Size").number(), 2);
  CHECK_EQ(Unbox(Call(dictionary, L"Remove", {L"B"})), 1);
  CHECK(Call(dictionary, L"Remove", {L"B"}).object() == nullptr);
  Call(dictionary, L"Clear");
  CHECK(!Call(dictionary, L"HasKey", {L"a"}).truth());
}

void Utilities() {
  const Value helper = Create(L"VestrelStatic");
  CHECK_EQ(Get(helper, L"NUM_TOP_BUTTONS").number(), 32);
  CheckProperty(helper, L"NUM_TOP_BUTTONS", 33);
  Call(helper, L"Init", {(folder + L"log.txt").c_str()});
  Call(helper, L"SetLogLevel", {4});
  Call(helper, L"Log", {L"a line"});
  CHECK(FileExists(folder + L"log.txt"));
  CHECK_EQ(ClassName(Call(helper, L"GetLogger").object()), L"clsLogger");
  CHECK(Call(helper, L"IsSomething", {Box(1)}).truth());
  CHECK(!Call(helper, L"IsSomething", {None()}).truth());
  CHECK_EQ(Call(helper, L"OneBasedMod", {5, 4}).number(), 1);
  CHECK_EQ(Try(helper, L"OneBasedMod", {5, 0}).error, 11);
  CHECK_EQ(Call(helper, L"ZeroToOneBased", {5}).number(), 6);
  CHECK_EQ(Call(helper, L"OneToZeroBased", {5}).number(), 4);
  Call(helper, L"Assert", {true});
  const Outcome failed = Try(helper, L"Assert", {false});
  CHECK_EQ(failed.error, 7155);
  CHECK_EQ(failed.source, L"modUtils.Assert()");
  CHECK_EQ(failed.description, L"assert false");
  CHECK(Call(helper, L"AreEqual", {Box(2), Box(2)}).truth());
  CHECK(Call(helper, L"NotEqual", {Box(2), Box(3), L"all"}).truth());
  CHECK_EQ(Call(helper, L"Basename", {L"C:\\a\\b.txt"}).text(), L"b.txt");
  CHECK_EQ(Call(helper, L"Basename", {L"a/b", L"/"}).text(), L"b");
  CHECK_EQ(Call(helper, L"RemoveFileExt", {L"show.ini"}).text(), L"show");
  const std::wstring root = folder.substr(0, folder.size() - 1);
  for (const wchar_t* name : {L"Sequences", L"Sequences\\gone", L"Sequences\\gone\\page"})
    CreateDirectoryW((folder + name).c_str(), nullptr);
  const std::wstring settings = folder + L"Sequences\\gone\\page\\pageSetting.ini";
  std::ofstream(Narrow(settings)) << "[x]\n";
  CHECK(FileExists(settings));
  Call(helper, L"deleteINI", {root.c_str(), L"gone", L"page"});
  CHECK(!FileExists(settings));
  CHECK_EQ(Call(helper, L"globalToLocalControlIndex", {8, 41}).number(), 1);
  CHECK_EQ(Call(helper, L"controlIndexFromButtonIndex", {8, 2, 3}).number(), 43);
  CHECK_EQ(Call(helper, L"returnGroupFromPosition", {8, 41}).number(), 2);
  CHECK_EQ(Call(helper, L"returnFirstPositionFromGroup", {8, 2}).number(), 41);
  CHECK_EQ(ClassName(Call(helper, L"AsButton", {Create(L"clsButton")}).object()), L"clsButton");
  CHECK_EQ(Try(helper, L"AsButton", {Box(1)}).error, 13);
  CHECK_EQ(Unbox(Call(helper, L"BoxLong", {4})), 4);
  CHECK_EQ(Call(helper, L"UnboxLong", {Box(4)}).number(), 4);
  CHECK_EQ(Get(Call(helper, L"BoxString", {L"t"}), L"value").text(), L"t");
  CHECK_EQ(Call(helper, L"UnboxString", {BoxText(L"t")}).text(), L"t");
  const Value pieces = Call(helper, L"ListFromSplitString", {L"a|b|", L"|"});
  CHECK_EQ(Call(pieces, L"Size").number(), 3);
  const Value texts = Call(helper, L"StringListFrom", {Call(pieces, L"AsArray")});
  CHECK_EQ(Call(texts, L"JoinStrings", {L"-"}).text(), L"a-b-");
  CHECK(!Get(helper, L"Version").text().empty());

  const Value logger = Create(L"clsLogger");
  Call(logger, L"Init", {(folder + L"other.txt").c_str()});
  Call(logger, L"SetLevel", {1});
  Call(logger, L"Log", {L"dropped"});
  Call(logger, L"Log", {L"written", 1});
  CHECK(FileExists(folder + L"other.txt"));

  const Value capture = Create(L"clsFormatCapture");
  CHECK(Call(capture, L"DoMatch", {L"##.###", L"12.345"}).truth());
  Value targets = Call(pieces, L"AsArray");
  CHECK(!Call(capture, L"ParseItems", {targets}).truth());
  const Value item = Create(L"clsFormatCaptureItem");
  CheckProperty(item, L"strValue", L"12");
  CheckProperty(item, L"itemType", 1);

  const Value global = Create(L"GlobalButtons");
  CheckProperty(global, L"LoggingEnabled", true);
  CheckProperty(global, L"CountButton", true);
  CheckProperty(global, L"NewButton", L"new");
  Call(global, L"setCaller", {L"here"});
  Call(global, L"setButtonEditing", {L"edited"});
  CHECK_EQ(Call(global, L"getButtonEditing").text(), L"edited");
  Call(global, L"setButtonIndex", {1});
  CHECK_EQ(Call(global, L"getButtonIndex").number(), 1);
  Call(global, L"setButtonMoving", {2});
  CHECK_EQ(Call(global, L"getButtonMoving").number(), 2);
  Call(global, L"setButtonX", {3});
  CHECK_EQ(Call(global, L"getButtonX").number(), 3);
  Call(global, L"setButtonY", {4});
  CHECK_EQ(Call(global, L"getButtonY").number(), 4);
  Call(global, L"setButtonDown", {5});
  CHECK_EQ(Call(global, L"getButtonDown").number(), 5);

  const Value faders = Create(L"UIFaderValues");
  Must(faders, L"GroupFaders", {1, 40}, Access::Put);
  CHECK_EQ(Get(faders, L"GroupFaders", {1}).number(), 40);
  Must(faders, L"BumpFaders", {8, 60}, Access::Put);
  CHECK_EQ(Get(faders, L"BumpFaders", {8}).number(), 60);
  CHECK_EQ(Try(faders, L"BumpFaders", {9}, Access::Get).error, 9);
}

// The numbers captured arrive in the elements of the caller's own array.
void CapturedNumbers() {
  const Value capture = Create(L"clsFormatCapture");
  Call(capture, L"DoMatch", {L"##:##", L"07:30"});
  Value targets;
  V_VT(targets.raw()) = VT_ARRAY | VT_VARIANT;
  V_ARRAY(targets.raw()) = SafeArrayCreateVector(VT_VARIANT, 0, 2);
  CHECK(Call(capture, L"ParseItems", {ByRef(targets)}).truth());
  Value element;
  for (LONG i = 0; i < 2; ++i) {
    SafeArrayGetElement(V_ARRAY(targets.raw()), &i, element.raw());
    CHECK_EQ(element.number(), i == 0 ? 7 : 30);
  }
}

void Storage() {
  const Value ini = Create(L"clsIniFile");
  CHECK(!Call(ini, L"IsSet").truth());
  Call(ini, L"UseFile", {(folder + L"settings.ini").c_str()});
  CHECK(Call(ini, L"IsSet").truth());
  CHECK_EQ(Get(ini, L"filename").text(), folder + L"settings.ini");
  Call(ini, L"UseSection", {L"Section"});
  Call(ini, L"UseKeyPrefix", {L"Button3"});
  Call(ini, L"WriteLong", {L"number", 12});
  CHECK_EQ(Call(ini, L"ReadLong", {L"number", 0}).number(), 12);
  Value text = L"one\r\ntwo";
  Call(ini, L"WriteString", {L"text", ByRef(text)});
  CHECK_EQ(text.text(), L"one  two");
  CHECK_EQ(Call(ini, L"ReadString", {L"absent", L"default"}).text(), L"default");
  Call(ini, L"WriteBool", {L"truth", true});
  CHECK(Call(ini, L"ReadBool", {L"truth", false}).truth());
  Call(ini, L"DeleteKey", {L"number"});
  CHECK_EQ(Call(ini, L"ReadLong", {L"number", -5}).number(), -5);
  CHECK(Call(ini, L"TestWritable").truth());

  const Value sequence = Create(L"clsSequence");
  for (const wchar_t* name : {L"theName", L"myMulti", L"myButtonGroup", L"tag", L"myPage"}) {
    CheckProperty(sequence, name, L"text");
  }
  for (const wchar_t* name : {L"myPlayback", L"mySequenceType", L"seqType"}) CheckProperty(sequence, name, 3);
  for (const wchar_t* name : {L"releaseActive", L"isRunning", L"timeBool", L"beatBool"}) {
    CheckProperty(sequence, name, true);
  }
  for (const wchar_t* name : {L"theBeat", L"theTime", L"currentX", L"currentY"})
    CheckProperty(sequence, name, 1.5);
  CHECK_EQ(Try(sequence, L"SaveToFile", {99}).error, 52);
  CHECK_EQ(Try(sequence, L"LoadFromFile", {99, 1, 1}).error, 52);

  CreateDirectoryW((folder + L"Sequences").c_str(), nullptr);
  CreateDirectoryW((folder + L"Sequences\\show").c_str(), nullptr);
  CreateDirectoryW((folder + L"Sequences\\show\\page").c_str(), nullptr);
  const std::wstring root = folder.substr(0, folder.size() - 1);
  const Value multi = Create(L"clsMultiFile");
  Call(multi, L"Init", {root.c_str(), L"show", L"page", L"button"});
  Call(multi, L"AddSequence", {sequence});
  Call(multi, L"Save");
  const Value again = Create(L"clsMultiFile");
  Call(again, L"Init", {root.c_str(), L"show", L"page", L"button"});
  Call(again, L"Load");
  const Value loaded = Call(Get(again, L"SequenceList"), L"GetItem", {0});
  CHECK_EQ(Get(loaded, L"theName").text(), L"text");
  CHECK_EQ(Get(loaded, L"theBeat").real(), 1.5);
  Call(again, L"Delete", {false});
  CHECK(!FileExists(folder + L"Sequences\\show\\page\\button.MUL"));
}

// Files under numbers, for the operations that take one.
void TextFiles() {
  const Value helper = Create(L"VestrelStatic");
  const std::wstring path = folder + L"records.txt";
  const Value sequence = Create(L"clsSequence");
  Put(sequence, L"theName", L"Lightning");
  Value number = Call(helper, L"OpenTextFileForOutput", {path.c_str()});
  Call(sequence, L"SaveToFile", {number});
  Call(helper, L"CloseTextFile", {number});
  number = Call(helper, L"OpenTextFileForAppend", {path.c_str()});
  Put(sequence, L"theName", L"Thunder");
  Call(sequence, L"SaveToFile", {number});
  Call(helper, L"CloseTextFile", {number});
  number = Call(helper, L"OpenTextFileForInput", {path.c_str()});
  for (const wchar_t* name : {L"Lightning", L"Thunder"}) {
    Call(sequence, L"LoadFromFile", {number, 1, 1});
    CHECK_EQ(Get(sequence, L"theName").text(), name);
  }
  CHECK_EQ(Try(sequence, L"LoadFromFile", {number, 1, 1}).error, 62);
  Call(helper, L"CloseTextFile", {number});
}

void Buttons() {
  const Value button = Create(L"clsButton");
  Call(button, L"Init", {Create(L"IButtonEventHandler"), None()});
  CHECK_EQ(Get(button, L"name").text(), L"none");
  CheckProperty(button, L"groupIndex", 2);
  CheckProperty(button, L"buttonIndex", 5);
  CheckProperty(button, L"name", L"Intro");
  CheckProperty(button, L"buttonType", 1);
  CheckProperty(button, L"isVisible", true);
  CheckProperty(button, L"controlIndex", 45);
  CheckProperty(button, L"isHighlighted", true);
  CheckProperty(button, L"triggeredDimmerValue", 80);
  CheckProperty(button, L"FaderMode", 1);
  CheckProperty(button, L"BumpMode", 1);
  Put(button, L"BumpMode", 0);
  CHECK_EQ(Get(button, L"faderValue").number(), 0);
  CHECK_EQ(ClassName(Get(button, L"Fader").object()), L"clsFaderCatch");
  CHECK_EQ(Get(button, L"playState").number(), 0);
  Call(button, L"setPlayState", {1, 0, 1, 0, 0.5, 0.5});
  CHECK_EQ(Get(button, L"playState").number(), 1);
  Call(button, L"click", {1, 0, 0.0, 0.0});
  CHECK_EQ(Get(button, L"playState").number(), 0);
  CHECK_EQ(Call(button, L"SetFaderValue", {50, true}).type(), static_cast<VARTYPE>(VT_BOOL));
  CheckProperty(button, L"Locked", true);
  Call(button, L"press");
  Call(button, L"release");
  CHECK_EQ(Get(button, L"playState").number(), 0);
  CHECK(Call(button, L"toString").text().find(L"Intro") != std::wstring::npos);
  Call(button, L"PrintObject");
  Value name = L"";
  const Value copy = Call(button, L"Copy", {ByRef(name)});
  CHECK_EQ(name.text(), L"Intro");
  CHECK_EQ(Get(copy, L"buttonIndex").number(), 5);
  CHECK_EQ(Call(button, L"IComparable_CompareTo", {copy}).number(), 0);
  CHECK_EQ(Try(button, L"IComparable_CompareTo", {copy, L"shape"}).error, 1001);
  CHECK_EQ(Call(button, L"IComparable_FieldCompare", {L"name", L"Intro"}).number(), 0);
  const Value ini = Create(L"clsIniFile");
  Call(ini, L"UseFile", {(folder + L"button.ini").c_str()});
  Call(button, L"saveToINI", {ini});
  const Value loaded = Create(L"clsButton");
  Call(loaded, L"InitWithValues", {None(), 1, 1, L"Other", 2, None()});
  CHECK_EQ(Get(loaded, L"name").text(), L"Other");
  Call(loaded, L"loadFromINI", {ini, 3, 7});
  CHECK_EQ(Get(loaded, L"name").text(), L"Intro");
  CHECK_EQ(Get(loaded, L"buttonIndex").number(), 7);

  const Value fader = Create(L"clsFaderCatch");
  Call(fader, L"Init");
  CHECK(Call(fader, L"SetValue", {30, true}).truth());
  CHECK_EQ(Get(fader, L"value").number(), 30);
  CHECK_EQ(Call(fader, L"SetOuterValue", {30}).type(), static_cast<VARTYPE>(VT_EMPTY));
  CHECK(Get(fader, L"Engaged").truth());
  Call(fader, L"PauseTracking");
  CHECK(!Get(fader, L"Engaged").truth());
  CHECK(Call(fader, L"ResumeTracking", {30}).truth());

  const Value group = Create(L"clsButtonGroup");
  Call(group, L"Init", {4, None()});
  CHECK_EQ(Get(group, L"groupIndex").number(), 4);
  CHECK_EQ(ClassName(Get(group, L"Fader").object()), L"clsFaderCatch");
  CHECK(Get(group, L"highlightedButton").object() == nullptr);
  PutRef(group, L"highlightedButton", button);
  CHECK(Get(group, L"highlightedButton").object() == button.object());
  CheckProperty(group, L"pageOffset", 2);
  const Value list = Create(L"clsObjectList");
  PutRef(group, L"buttons", list);
  CHECK(Get(group, L"buttons").object() == list.object());
  PutRef(group, L"nowPlayingList", list);
  CHECK(Get(group, L"nowPlayingList").object() == list.object());

  const Value deferred = Create(L"clsDeferred");
  const Value page = Create(L"clsPage");
  PutRef(deferred, L"page", page);
  CHECK(Get(deferred, L"page").object() == page.object());
  PutRef(deferred, L"button", button);
  CHECK(Get(deferred, L"button").object() == button.object());
  CheckProperty(deferred, L"playState", 1);
  CheckProperty(deferred, L"faderValue", 70);
}

void Pages() {
  const std::wstring root = folder.substr(0, folder.size() - 1);
  const Value page = Create(L"clsPage");
  Call(page, L"Init", {root.c_str(), None(), L"show", L"page"});
  CHECK_EQ(Get(page, L"pageName").text(), L"page");
  Must(page, L"pageNamePrivate", {L"other"}, Access::Put);
  CHECK_EQ(Get(page, L"pageName").text(), L"other");
  Must(page, L"pageNamePrivate", {L"page"}, Access::Put);
  const Value group = Get(page, L"ButtonGroups", {3});
  CHECK_EQ(Get(group, L"groupIndex").number(), 3);
  CHECK_EQ(Try(page, L"ButtonGroups", {10}, Access::Get).error, 9);
  const Value button = Create(L"clsButton");
  Call(button, L"InitWithValues", {page, 3, 1, L"Intro", 1, None()});
  Call(Get(group, L"buttons"), L"AddItem", {button});
  Call(page, L"saveSingleButton", {button});
  Call(page, L"saveButtonGroupToINI", {3});
  Call(page, L"saveToINI", {-1, true});
  const Value again = Create(L"clsPage");
  Call(again, L"Init", {root.c_str(), None(), L"show", L"page", true});
  Call(again, L"loadFromINI");
  CHECK_EQ(Call(Get(Get(again, L"ButtonGroups", {3}), L"buttons"), L"Size").number(), 1);
  Call(again, L"LostFocus");
  Call(again, L"GotFocus");
  CHECK(Call(again, L"TestWritable").truth());
  CHECK_EQ(Call(page, L"IComparable_CompareTo", {again, L"pageName"}).number(), 0);
  CHECK_EQ(Call(page, L"IComparable_FieldCompare", {L"pageName", L"page"}).number(), 0);
  Call(again, L"Rename", {L"renamed"});
  CHECK(FileExists(folder + L"Sequences\\show\\renamed"));
}

void PageManagers() {
  const std::wstring root = folder.substr(0, folder.size() - 1);
  const Value manager = Create(L"clsPageManager");
  Call(manager, L"Init", {root.c_str(), None()});
  CHECK_EQ(Get(manager, L"showName").text(), L"$$null_show$$");
  CHECK_EQ(Get(manager, L"CurrentPageName").text(), L"$$null_page$$");
  CHECK(!Call(manager, L"PageIsValid").truth());
  Call(manager, L"setShow", {L"managed", true});
  Call(manager, L"SetPage", {L"one"});
  Call(manager, L"SetPage", {L"two", true});
  CHECK_EQ(Call(Get(manager, L"PageList"), L"Size").number(), 2);
  CHECK(!Get(manager, L"IsLoading").truth());
  CHECK_EQ(Get(Get(manager, L"CurrentPage"), L"pageName").text(), L"one");
  Call(manager, L"saveToINI", {false});
  Call(manager, L"RenamePage", {L"two", L"three"});
  CHECK_EQ(Call(Call(manager, L"GetPageNames"), L"JoinStrings", {L","}).text(), L"one,three");
  Call(manager, L"DeletePage", {L"one", L""});
  CHECK_EQ(Get(manager, L"CurrentPageName").text(), L"three");
  CHECK(Call(manager, L"PageIsValid").truth());
  CHECK(Call(manager, L"TestShowWritable").truth());
}

std::vector<std::wstring> LampNames() {
  return {L"setLED", L"StartLEDTimer", L"EndLEDTimer"};
}

void Controllers() {
  const std::wstring root = folder.substr(0, folder.size() - 1);
  AnyHost<EarlyForm> host(FormNames());
  AnyHost<EarlyLamps> lamps(LampNames());
  const Value recorder = Create(L"clsRecordController");
  Call(recorder, L"Init", {Create(L"IRecordEventHandler")});
  const Value controller = Create(L"clsButtonGroupController");
  Call(controller, L"Init", {host.object(), root.c_str(), lamps.object(), recorder});
  CHECK(Get(controller, L"recordController").object() == recorder.object());
  CHECK(Get(controller, L"persist").truth());
  CheckProperty(controller, L"persist", false);
  CheckProperty(controller, L"persist", true);
  PutRef(controller, L"mLEDManager", Get(controller, L"mLEDManager"));
  CHECK_EQ(ClassName(Get(controller, L"mLEDManager").object()), L"LEDManager");
  Call(controller, L"setButtonGroupPageSize", {8});
  Call(controller, L"CreateNewShow", {L"evening"});
  Call(controller, L"AddPage", {L"one"});
  Call(controller, L"AddPage", {L"two"});
  Call(controller, L"SetPage", {L"one"});
  CHECK_EQ(Call(Call(controller, L"GetPageNames"), L"JoinStrings", {L","}).text(), L"one,two");
  Call(controller, L"RenamePage", {L"two", L"three"});
  Call(controller, L"DeletePage", {L"three"});
  CHECK_EQ(Call(Call(controller, L"GetPageNames"), L"Size").number(), 1);
  CHECK_EQ(Get(Get(controller, L"PageManager"), L"CurrentPageName").text(), L"one");
  Call(controller, L"InfoDump");
  ExpectLogged(" - number of pages: 1");
  Call(controller, L"HideSplashScreen");
  host.Expect(L"HideSplashScreen()");

  Call(controller, L"assignButton", {1, 1, L"Intro", 1});
  Call(controller, L"assignButton", {1, 3, L"Chase", 2});
  Call(controller, L"assignButton", {9, 1, L"Bump", 1});
  Value intro = Call(controller, L"buttonWithIndex", {1, 1});
  CHECK_EQ(Get(intro, L"name").text(), L"Intro");
  CHECK(Call(controller, L"buttonAtControlIndex", {33}).object() == intro.object());
  Value clicked = None();
  Call(controller, L"controlClicked", {33, 1, 0, 2.5, 3.5, 0, true, ByRef(clicked)});
  CHECK_EQ(Get(intro, L"playState").number(), 1);
  CHECK(clicked.object() == intro.object());
  host.Expect(L"ButtonStateChanged(<Intro>,1,0,2.5,3.5)");
  const Value pressed = Call(controller, L"buttonWithIndex", {9, 1});
  const int bumpControl = 32 + 8 * 8 + 1;
  Call(controller, L"controlPressed", {bumpControl});
  CHECK_EQ(Get(pressed, L"faderValue").number(), 100);
  CHECK_EQ(Get(pressed, L"playState").number(), 1);
  Call(controller, L"controlReleased", {bumpControl});
  CHECK_EQ(Get(pressed, L"faderValue").number(), 0);
  CHECK_EQ(Get(pressed, L"playState").number(), 0);
  Call(controller, L"fakeMouseUp", {33, L"test"});
  ExpectLogged("fake mouseUp from [33] from [test]");
  Call(controller, L"buttonGroupGo", {1, 2, 1.5, true});
  host.Expect(L"GoFromSubmaster(<Chase>,2,1.5,True)");
  Call(controller, L"releaseButtonsOnPage", {1});
  CHECK_EQ(Get(intro, L"playState").number(), 0);
  host.Expect(L"RefreshPage(2,0,<Intro>)");
  CHECK(Call(controller, L"ToggleButtonAt", {1, 3}).truth());
  CHECK_EQ(Call(Call(controller, L"GetButtonMap"), L"HasKey", {L"intro"}).truth(), true);

  CHECK_EQ(Call(controller, L"getPageOffset", {1}).number(), 0);
  CHECK(Call(controller, L"changeButtonGroupPageOffset", {1, 1}).truth());
  CHECK(Call(controller, L"goToPageWithButtonIndex", {1, 1}).type() == VT_BOOL);
  CHECK_EQ(Call(controller, L"getPageOffset", {1}).number(), 0);
  CHECK_EQ(Call(Call(controller, L"getVisibleGroupButtons", {1}), L"Size").number(), 2);
  Value before = 3;
  CHECK(Call(controller, L"getPrevButton", {1, ByRef(before)}).object() == intro.object());
  CHECK_EQ(Get(Call(controller, L"getNextButton", {1, 1}), L"name").text(), L"Chase");
  Call(controller, L"highlightButton", {1, 0});
  CHECK(Call(controller, L"getHighlightedButton", {1}).object() == intro.object());
  Call(controller, L"setButtonGroupButtonList",
       {2, Get(Get(Get(Get(controller, L"PageManager"), L"CurrentPage"), L"ButtonGroups", {2}), L"buttons")});
  // That read the page anew, buttons and offsets.
  intro = Call(controller, L"buttonWithIndex", {1, 1});
  Call(controller, L"goToPageWithButtonIndex", {1, 1});
  CHECK_EQ(Call(Call(controller, L"getButtons"), L"Size").number(), 3);
  CHECK_EQ(Call(Call(controller, L"getButtons", {1, 2}), L"Size").number(), 1);
  CHECK(Call(controller, L"buttonIsVisible", {intro}).truth());
  Call(controller, L"resetVisibility");
  CHECK(!Get(intro, L"isVisible").truth());

  Call(controller, L"setModeEditing", {true});
  Call(controller, L"controlClicked", {33, 1, 0, 0.0, 0.0});
  host.Expect(L"ShowEditPopup(<Intro>)");
  Call(controller, L"ToggleLockState");
  CHECK(Get(intro, L"Locked").truth());
  host.Expect(L"LockStateChanged(<Intro>)");
  Call(controller, L"ToggleLockState");
  Call(controller, L"ToggleBumpMode");
  CHECK_EQ(Get(intro, L"BumpMode").number(), 1);
  Call(controller, L"ToggleBumpMode");
  Call(controller, L"ChangeFaderMode", {2});
  CHECK_EQ(Get(intro, L"FaderMode").number(), 2);
  host.Expect(L"FaderModeChanged(<Intro>)");
  host.scripted.answers[L"RenameButton"] = L"Renamed";
  Call(controller, L"RenameButton");
  CHECK_EQ(Get(intro, L"name").text(), L"Renamed");
  Call(controller, L"setModeEditing", {true});
  Call(controller, L"controlClicked", {33, 1, 0, 0.0, 0.0});
  Call(controller, L"AssignMarkFade", {1});
  host.Expect(L"CreateMarkFadeButton(<Renamed Fade>,Renamed,1)");
  const Value fade = Call(controller, L"buttonWithIndex", {1, 2});
  CHECK_EQ(Get(fade, L"name").text(), L"Renamed Fade");
  Call(controller, L"setModeMove");
  Call(controller, L"CancelEditMode");
  Call(controller, L"setModeCopy");
  Call(controller, L"CancelEditMode");
  CHECK(Call(controller, L"setModeAdjFadeInOut").object() == intro.object());
  Call(intro, L"setPlayState", {0, 0, 0, 0, 0.0, 0.0});
  Call(controller, L"beginEditCue");
  CHECK_EQ(Get(intro, L"playState").number(), 1);
  AnyHost<EarlyAssignment> assignment({L"CompleteAssignment"});
  Call(controller, L"setModeAssign", {L"Assigned", 1, assignment.object()});
  host.Expect(L"SetFlashing(True)");
  Call(controller, L"autoAssignNextAvailable", {1});
  assignment.Expect(L"CompleteAssignment(False)");
  Call(controller, L"CancelEditMode");
  const int all = Call(Call(controller, L"getButtons"), L"Size").number();
  Call(controller, L"removeButton", {fade});
  CHECK_EQ(Call(Call(controller, L"getButtons"), L"Size").number(), all - 1);
  Call(controller, L"DeleteButton", {true});
  host.Expect(L"DeleteButton(<Renamed>,True)");
  CHECK_EQ(Call(Call(controller, L"getButtons"), L"Size").number(), all - 2);

  const Value current = Get(Get(controller, L"PageManager"), L"CurrentPage");
  const Value groupFader = Get(Get(current, L"ButtonGroups", {1}), L"Fader");
  Call(groupFader, L"SetValue", {20, true});
  Call(controller, L"groupFaderChanged", {1, 0});
  host.Expect(L"UpdateFaderModelValue(0,1,0,True,none)");
  CHECK_EQ(Get(groupFader, L"value").number(), 0);
  // The outer fader picks the value up before it moves it.
  Call(controller, L"BumpFaderChanged", {1, 0, true});
  Call(controller, L"BumpFaderChanged", {1, 40, true});
  CHECK_EQ(Get(Call(controller, L"buttonWithIndex", {9, 1}), L"faderValue").number(), 40);
  Call(controller, L"BumpFaderChanged", {1, 0, true});
  Value faders;
  Call(controller, L"GetUIFaderValues", {ByRef(faders)});
  if (door == &LateBound()) CHECK_EQ(ClassName(faders.object()), L"UIFaderValues");
  host.Expect(L"GetUIFaderValues(<UIFaderValues>)", L"GetUIFaderValues(0)");
  Call(controller, L"UpdateFaderModelValue", {0, 1, 55, true});
  host.Expect(L"UpdateFaderModelValue(0,1,55,True,none)");
  Call(controller, L"PushCurrentGroupFaderValues");
  host.Expect(L"UpdateFaderUI(0,8,0)");

  const Value bump = Call(controller, L"buttonWithIndex", {9, 1});
  Call(controller, L"IButtonEventHandler_PlayStateChanged", {bump, 0, 0, 0, 0.0, 0.0});
  host.Expect(L"HighlightBump(1,False)");
  Call(controller, L"IButtonEventHandler_LockStateChanged", {bump});
  host.Expect(L"LockStateChanged(<Bump>)");
  Call(controller, L"IButtonEventHandler_FaderModeChanged", {bump});
  host.Expect(L"FaderModeChanged(<Bump>)");
  Call(controller, L"IButtonEventHandler_FaderValueChanged", {bump, true});
  host.Expect(L"UpdateFaderUI(1,1,0)");
  Call(controller, L"IButtonEventHandler_DeferPlaystateFor", {None(), bump, 1, 50});
  // A list of one, which the group does not have: the first item becomes the highlight, the last one leaves
  // none.
  const Value group = Get(current, L"ButtonGroups", {3});
  const Value only = Create(L"clsObjectList");
  Call(only, L"AddItem", {bump});
  Call(controller, L"IObjListEventHandler_ItemAdded", {only, bump, 0, group});
  CHECK(Get(group, L"highlightedButton").object() == bump.object());
  Call(only, L"Clear");
  Call(controller, L"IObjListEventHandler_ItemRemoved", {only, bump, 0, group});
  CHECK(Get(group, L"highlightedButton").object() == nullptr);

  Call(current, L"LostFocus");
  CHECK(!Get(groupFader, L"Engaged").truth());
  Call(current, L"GotFocus");
  host.Expect(L"UpdateFaderModelValue(0,8,0,True,none)", L"UpdateFaderModelValue(0,8,0,0,none)");
  Call(controller, L"formLostFocus");
  lamps.Expect(L"EndLEDTimer()");
  Call(controller, L"assignButton", {4, 1, L"Late", 1});
  Call(controller, L"formGotFocus");
  lamps.Expect(L"setLED(245,8,True)");
  Call(controller, L"RefocusCurrentPage");
  Call(controller, L"clearAll");
  host.Expect(L"RefreshPage(0,0,none)");
  Call(controller, L"formShutdown");
  Call(controller, L"LoadShow", {L"evening"});
  CHECK_EQ(Call(Call(controller, L"GetPageNames"), L"Size").number(), 1);
  CHECK(FileExists(folder + L"Sequences\\evening\\pageSetting.ini"));
}

void Interfaces() {
  const Value form = Create(L"IFormSequenceShortcuts");
  const Value button = Create(L"clsButton");
  Call(form, L"SetButtonGroupPageCaption", {1, L"caption"});
  Call(form, L"RefreshPage", {0});
  Call(form, L"SetFlashing", {true});
  Call(form, L"ShowEditPopup", {button});
  Call(form, L"DisableEditMode");
  Call(form, L"CopyButtonFiles", {1, L"a", L"b", L"c", L"d"});
  Call(form, L"DeleteButton", {button});
  CHECK_EQ(Call(form, L"RenameButton", {button, 1}).text(), L"");
  Call(form, L"ButtonStateChanged", {button, 1, 0, 0.0, 0.0});
  Call(form, L"LockStateChanged", {button});
  Call(form, L"UpdateFaderUI", {0, 1, 50});
  Call(form, L"FaderModeChanged", {button});
  Call(form, L"HighlightBump", {1, true});
  Call(form, L"ReleaseButton", {button});
  Call(form, L"GoFromSubmaster", {button, 0, 0.0, false});
  Value values;
  Call(form, L"GetUIFaderValues", {ByRef(values)});
  Call(form, L"UpdateFaderModelValue", {0, 1, 50, true});
  Call(form, L"HideSplashScreen");
  Call(form, L"CreateMarkFadeButton", {button, L"original", 0});
  CHECK(!Call(form, L"PromptButtonOverwrite", {L"?"}).truth());
  const Value lamps = Create(L"ILEDSetter");
  Call(lamps, L"setLED", {245, 1, true});
  Call(lamps, L"StartLEDTimer");
  Call(lamps, L"EndLEDTimer");
  Call(Create(L"IAssignmentCallback"), L"CompleteAssignment");
  const Value handler = Create(L"IButtonEventHandler");
  Call(handler, L"PlayStateChanged", {button, 0, 1, 0, 0.0, 0.0});
  Call(handler, L"LockStateChanged", {button});
  Call(handler, L"FaderModeChanged", {button});
  Call(handler, L"FaderValueChanged", {button, true});
  Call(handler, L"DeferPlaystateFor", {None(), button, 1, 50});
  Call(Create(L"IRecordController"), L"ButtonPlaystateChanged", {button, 0, 1, 0, 0.0, 0.0});
  const Value bar = Create(L"IRecordEventHandler");
  Call(bar, L"UpdateTimecodeDisplay", {0});
  Call(bar, L"SetTimerEnabled", {true});
  Call(bar, L"TransportStateChanged", {1, false});
  Call(bar, L"NewEventRecorded", {None()});
  Call(bar, L"CurrentPlayingEvent", {None(), 0});
  Call(bar, L"RefreshList");
  Call(Create(L"IVXEventListHandler"), L"EventFired", {None(), 0});
}

void Lamps() {
  AnyHost<EarlyLamps> setter(LampNames());
  const Value manager = Create(L"LEDManager");
  Call(manager, L"Init", {setter.object()});
  Call(manager, L"setButtonsInGroups1To8", {3, true, false});
  setter.Expect(L"setLED(245,4,True)");
  Call(manager, L"setButtonInTop32", {16, true, true});
  setter.Expect(L"StartLEDTimer()");
  CHECK_EQ(Try(manager, L"setButtonInTop32", {33, true, true}).error, 9);
  Call(manager, L"TimerTick");
  setter.Expect(L"setLED(246,-32768,True)");
  Call(manager, L"clearAll");
  setter.Expect(L"setLED(247,-1,False)");
}

// An event and a list of one, written under an open file's number and read back.
void EventFiles(const Value& event, const Value& list, const Value& map) {
  const Value helper = Create(L"VestrelStatic");
  const std::wstring path = folder + L"numbered.txt";
  Value number = Call(helper, L"OpenTextFileForOutput", {path.c_str()});
  Call(event, L"WriteToFile", {number});
  Call(list, L"WriteToFile", {number});
  Call(helper, L"CloseTextFile", {number});
  number = Call(helper, L"OpenTextFileForInput", {path.c_str()});
  const Value again = Create(L"vxEvent");
  Call(again, L"ReadFromFile", {number, map});
  for (const wchar_t* name : {L"time", L"eventType", L"mouseButton", L"shift", L"x", L"y"}) {
    Checked(Get(again, name).text() == Get(event, name).text(), "reads back", Narrow(name).c_str(), 0);
  }
  CHECK(Get(again, L"button").object() == Get(event, L"button").object());
  const Value other = Create(L"vxEventList");
  Call(other, L"Init", {Create(L"IVXEventListHandler")});
  Call(other, L"ReadFromFile", {number, map});
  Call(helper, L"CloseTextFile", {number});
  CHECK_EQ(Call(Get(other, L"events"), L"Size").number(), 1);
  CHECK_EQ(Get(Call(Get(other, L"events"), L"GetItem", {0}), L"time").number(), 2000);
}

void Recording() {
  const Value button = Create(L"clsButton");
  Call(button, L"InitWithValues", {None(), 1, 1, L"Intro", 1, None()});
  const Value event = Create(L"vxEvent");
  Call(event, L"Init", {1500, button, 0});
  CHECK_EQ(Get(event, L"time").number(), 1500);
  CheckProperty(event, L"time", 1000);
  CHECK(Get(event, L"button").object() == button.object());
  PutRef(event, L"button", button);
  CheckProperty(event, L"eventType", 1);
  Put(event, L"eventType", 0);
  CheckProperty(event, L"mouseButton", 2);
  CheckProperty(event, L"shift", 1);
  CheckProperty(event, L"x", 1.5);
  CheckProperty(event, L"y", 2.5);
  Call(event, L"SetExtras", {1, 0, 0.5, 0.25});
  CHECK_EQ(Get(event, L"y").real(), 0.25);
  CHECK_EQ(Try(event, L"WriteToFile", {99}).error, 52);
  CHECK_EQ(Try(event, L"ReadFromFile", {99, Create(L"clsDictionary")}).error, 52);
  const Value map = Create(L"clsDictionary");
  Call(map, L"Add", {L"Intro", button});

  AnyHost<EarlyFired> fired({L"EventFired"});
  const Value list = Create(L"vxEventList");
  Call(list, L"Init", {fired.object()});
  CHECK_EQ(Try(list, L"AddEvent", {event}).error, 91);
  Call(list, L"SetRecordMode", {1});
  Call(list, L"StartRecording");
  Call(list, L"AddEvent", {event});
  Call(list, L"StopRecording");
  CHECK_EQ(Call(Get(list, L"events"), L"Size").number(), 1);
  Call(list, L"SeekTime", {0});
  Call(list, L"UpdateTime", {1000});
  CHECK_EQ(Get(button, L"playState").number(), 1);
  fired.Expect(L"EventFired(<vxEvent>,0)", L"EventFired(0)");
  CHECK_EQ(Call(list, L"SeekToEventIndex", {0}).number(), 1000);
  Call(list, L"ChangeEventTime", {0, 2000});
  CHECK_EQ(Get(event, L"time").number(), 2000);
  CHECK_EQ(Call(list, L"IObjectComparator_Compare", {event, event}).number(), 0);
  CHECK_EQ(Try(list, L"WriteToFile", {99}).error, 52);
  CHECK_EQ(Try(list, L"ReadFromFile", {99, Create(L"clsDictionary")}).error, 52);
  EventFiles(event, list, map);
  Call(list, L"Clear");
  CHECK_EQ(Call(Get(list, L"events"), L"Size").number(), 0);

  AnyHost<EarlyBar> bar(BarNames());
  const Value recorder = Create(L"clsRecordController");
  Call(recorder, L"Init", {bar.object()});
  Call(recorder, L"SetRecordMode", {1});
  Call(recorder, L"Record");
  bar.Expect(L"TransportStateChanged(1,True)");
  Call(recorder, L"IRecordController_ButtonPlaystateChanged", {button, 0, 1, 0, 0.0, 0.0});
  bar.Expect(L"NewEventRecorded(<vxEvent>)", L"NewEventRecorded(Intro)");
  Call(recorder, L"TimerTick");
  Call(recorder, L"Stop_");
  CHECK_EQ(Call(Get(recorder, L"EventList"), L"Size").number(), 1);
  Call(recorder, L"updateEventTime", {0, 3000});
  bar.Expect(L"RefreshList()");
  Call(recorder, L"SeekToEventIndex", {0});
  bar.Expect(L"UpdateTimecodeDisplay(3000)");
  Call(recorder, L"SaveEventsTo", {(folder + L"events.txt").c_str()});
  Call(recorder, L"ClearEvents");
  Call(recorder, L"LoadEventsFrom", {(folder + L"events.txt").c_str(), map});
  CHECK_EQ(Call(Get(recorder, L"EventList"), L"Size").number(), 1);
  Call(recorder, L"IVXEventListHandler_EventFired", {Call(Get(recorder, L"EventList"), L"GetItem", {0}), 0});
  bar.Expect(L"CurrentPlayingEvent(<vxEvent>,0)", L"CurrentPlayingEvent(0)");
  Call(recorder, L"Play");
  Call(recorder, L"ChangePlaystate", {0});
  Value milliseconds = 0;
  const std::wstring timecode = Call(recorder, L"msToTimecode", {3723004}).text();
  CHECK(Call(recorder, L"timecodeToMS", {timecode.c_str(), ByRef(milliseconds)}).truth());
  CHECK_EQ(milliseconds.number(), 3723004);
  CHECK(!Call(recorder, L"timecodeToMS", {L"x", ByRef(milliseconds)}).truth());
}

void RunAll() {
  Utilities();  // opens the log first
  CapturedNumbers();
  Lists();
  Comparison();
  Dictionaries();
  Storage();
  TextFiles();
  Buttons();
  Pages();
  PageManagers();
  Controllers();
  Interfaces();
  Lamps();
  Recording();
}

// "get IterIndex" in "  2 get IterIndex(): long".
std::string MemberIn(const std::string& line) {
  const std::size_t start = line.find(' ', 2) + 1;
  return line.substr(start, line.find('(') - start);
}

// Compares what was called with the list of all slots.
void CheckNothingForgotten(const char* slotsFile) {
  std::ifstream file(slotsFile);
  std::string line;
  std::string className;
  int slots = 0;
  while (std::getline(file, line)) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
    if (line.empty()) continue;
    if (line[0] != ' ') {
      className = line;
      continue;
    }
    ++slots;
    const std::string member = className + "." + MemberIn(line);
    const auto& called = CalledMembers();
    Checked(std::find(called.begin(), called.end(), member) != called.end(), "was called:", member.c_str(), 0,
            door->name());
  }
  Checked(slots > 400, "the list of slots was read", slotsFile, slots);
}

int Run(const wchar_t* dataFolder, const char* slotsFile) {
  for (Door* next : {&LateBound(), &ThroughTypeLibrary()}) {
    door = next;
    folder = std::wstring(dataFolder) + (next == &LateBound() ? L"\\late" : L"\\early");
    CreateDirectoryW(folder.c_str(), nullptr);
    folder += L"\\";
    ForgetCalls();
    RunAll();
    CheckNothingForgotten(slotsFile);
  }
  return Totals("every operation");
}

}  // namespace
}  // namespace host

// EveryOperation FOLDER SLOTS: an empty folder for data, and the list of all slots.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 3,
                       [&] { return host::Run(arguments[1], host::Narrow(arguments[2]).c_str()); });
}
