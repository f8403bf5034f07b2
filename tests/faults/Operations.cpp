#include "core/clsString.h"
#include "core/modObjectList.h"
#include "storage/Folders.h"
#include "storage/IniBatch.h"
#include "storage/TextFile.h"
#include "storage/clsIniFile.h"
#include "storage/clsMultiFile.h"
#include "storage/modIniFile.h"
#include "tests/faults/World.h"
#include "util/modLog.h"

namespace vestrel::test {
namespace {

constexpr std::u16string_view kIni = u"C:\\app\\settings.ini";
constexpr std::u16string_view kText = u"C:\\app\\text.txt";
constexpr std::u16string_view kMulti = u"C:\\app\\Sequences\\Gala\\Act 1\\Calm.MUL";
constexpr std::u16string_view kTake = u"C:\\app\\take.txt";

void PutSettings(World& world) {
  world.memory.Put(kIni, "; kept\r\n[A]\r\nk=1\r\nlist=1|2|3\r\n[B]\r\nk=2\r\n");
}

void Write(std::u16string_view key, std::u16string_view text) {
  std::u16string value(text);
  modIniFile::WriteIniString(kIni, u"A", key, &value);
}

Operation Settings(const char* name, void (*write)()) {
  return {name, false, PutSettings, [write](World&) {
            write();
            return true;
          }};
}

bool CommitBatch() {
  IniBatch batch(kIni, Sync::Yes);
  Write(u"k", u"9");
  Write(u"list", u"1|2|3|4");
  Write(u"new", u"x");
  return batch.Commit();
}

bool CommitShort() {
  IniBatch batch(kIni, Sync::Yes);
  Write(u"k", u"9");
  return batch.Commit();
}

Ref<clsSequence> SequenceNamed(std::u16string_view name) {
  auto sequence = MakeRef<clsSequence>();
  sequence->theName = name;
  sequence->myPage = u"Act 1";
  sequence->theBeat = 1.5F;
  return sequence;
}

Ref<clsMultiFile> Multi() {
  auto multi = MakeRef<clsMultiFile>();
  multi->Init(u"C:\\app", u"Gala", u"Act 1", u"Calm");
  return multi;
}

void PutMulti(World& world) {
  world.memory.PutFolder(u"C:\\module\\Sequences");
  world.memory.Put(kMulti, "1,1\r\n0\r\n");
  for (const std::u16string_view file : {u"Old.ASQ", u"Old.BMP", u"Old.UQF"}) {
    world.memory.Put(std::u16string(u"C:\\app\\Sequences\\Gala\\Act 1\\").append(file), "x");
  }
}

void PutFullMulti(World& world) {
  PutMulti(world);
  const Ref<clsMultiFile> multi = Multi();
  multi->AddSequence(SequenceNamed(u"One").get());
  multi->Save();
}

bool SaveMulti() {
  const Ref<clsMultiFile> multi = Multi();
  for (int i = 0; i < 3; ++i) multi->AddSequence(SequenceNamed(u"Old").get());
  multi->Save();
  return true;
}

bool LoadMulti() {
  const Ref<clsMultiFile> multi = Multi();
  multi->Load();
  return multi->SequenceList()->Size() == 1;
}

bool DeleteMulti() {
  const Ref<clsMultiFile> multi = Multi();
  multi->AddSequence(SequenceNamed(u"Old").get());
  multi->Delete(true);
  return true;
}

bool WriteText(TextFile::Mode mode) {
  TextFile::Opened file(kText, mode);
  TextOutput& output = TextFile::Output(file.number());
  // More than one buffer holds.
  for (int i = 0; i < 9000; ++i) {
    output.WriteText(u"a line");
    output.WriteLong(i);
    output.EndLine();
  }
  file.Close();
  return true;
}

void PutText(World& world) {
  world.memory.Put(kText, "\"old\"\r\n");
}

bool ReadText() {
  const TextFile::Opened file(kText, TextFile::Mode::Input);
  return TextFile::Input(file.number()).ReadText() == u"old";
}

bool MakeFolders() {
  modUtils::CreateDirs(*modObjectList::StringListFromSplit(u"C:\\app\\Sequences\\New\\Page", u"\\"));
  return modUtils::PathExists(u"C:\\app\\Sequences\\New\\Page");
}

bool TestsWritable() {
  const auto file = MakeRef<clsIniFile>();
  file->UseFile(kIni);
  return file->TestWritable();
}

template <class Action>
auto Always(Action action) {
  return [action](World&) { return action(); };
}

void AddStorage(std::vector<Operation>& list) {
  list.push_back(Settings("write a value of the same length", [] { Write(u"k", u"7"); }));
  list.push_back(Settings("write a longer value", [] { Write(u"k", u"a longer value"); }));
  list.push_back(Settings("write a new key", [] { Write(u"fresh", u"1"); }));
  list.push_back(Settings("write an equal value", [] { Write(u"k", u"1"); }));
  list.push_back(Settings("delete a key", [] { modIniFile::WriteIniString(kIni, u"A", u"k", nullptr); }));
  list.push_back(Settings("read a value", [] { modIniFile::ReadIniString(kIni, u"A", u"k", u"default"); }));
  list.push_back({"write to a new file", false, [](World&) {}, Always([] {
                    Write(u"k", u"1");
                    return true;
                  })});
  list.push_back({"commit of a batch", true, PutSettings, Always(CommitBatch)});
  list.push_back({"commit in place", true, PutSettings, Always(CommitShort)});
  list.push_back({"TestWritable", true, PutSettings, Always(TestsWritable)});
  list.push_back({"clsMultiFile.Save", true, PutMulti, Always(SaveMulti)});
  list.push_back({"clsMultiFile.Load", true, PutFullMulti, Always(LoadMulti)});
  list.push_back({"clsMultiFile.Delete", true, PutMulti, Always(DeleteMulti)});
  list.push_back(
      {"text file for output", true, PutText, [](World&) { return WriteText(TextFile::Mode::Output); }});
  list.push_back(
      {"text file for appending", true, PutText, [](World&) { return WriteText(TextFile::Mode::Append); }});
  list.push_back({"text file for input", true, PutText, Always(ReadText)});
  list.push_back({"CreateDirs", true, [](World&) {}, Always(MakeFolders)});
  list.push_back({"RemoveFile", true, PutText, Always([] {
                    modUtils::RemoveFile(kText);
                    return true;
                  })});
  list.push_back({"deleteINI", true,
                  [](World& world) { world.memory.Put(u"C:\\app\\Sequences\\S\\P\\pageSetting.ini", ""); },
                  Always([] {
                    modUtils::deleteINI(u"C:\\app", u"S", u"P");
                    return true;
                  })});
  list.push_back({"a line of the log", true, [](World&) {}, Always([] {
                    modLog::Log(u"a line");
                    return true;
                  })});
}

void MakeScene(World& world) {
  world.MakeScene();
}

void AddReportingOfShow(std::vector<Operation>& list) {
  list.push_back({"SaveEventsTo, told", true, MakeScene, [](World& world) {
                    world.scene->record->Record();
                    world.scene->record->SaveEventsTo(kTake);
                    return true;
                  }});
  list.push_back({"LoadEventsFrom, told", true,
                  [](World& world) {
                    world.MakeScene();
                    world.memory.Put(kTake, "2\r\n1,\"Intro\",0,1,0,0,0\r\n5,\"Chase\",1,1,0,0,0\r\n");
                  },
                  [](World& world) {
                    const Ref<clsDictionary> map = world.scene->controller->GetButtonMap();
                    world.scene->record->LoadEventsFrom(kTake, map.get());
                    return world.scene->record->EventList()->Size() == 2;
                  }});
  list.push_back({"LoadShow, told", true, MakeScene, [](World& world) {
                    world.scene->controller->LoadShow(u"Gala");
                    return true;
                  }});
  list.push_back({"LoadShow, then saved as a whole", false, MakeScene,
                  [](World& world) {
                    try {
                      world.scene->controller->LoadShow(u"Gala");
                    } catch (const Error&) {
                      // An operator goes on with what there is.
                    }
                    world.point.End();
                    world.scene->controller->formShutdown();
                    return true;
                  },
                  true});
}

// Those of a host that read the model anew after a write that may have failed.
bool Rereads(std::string_view action) {
  return action.starts_with("setButtonGroupButtonList");
}

}  // namespace

std::vector<Operation> AllOperations() {
  std::vector<Operation> list;
  AddStorage(list);
  AddReportingOfShow(list);
  for (const HostAction& action : HostActions()) {
    list.push_back({action.name, false, MakeScene,
                    [run = action.run](World& world) {
                      run(*world.scene);
                      return true;
                    },
                    Rereads(action.name)});
  }
  return list;
}

}  // namespace vestrel::test
