// Words as objects of the library, found on the current page. Each raises BadCommand, which names the
// parameter, for a word that is not one.
#pragma once

#include <vector>

#include "core/Variant.h"
#include "core/clsLong.h"
#include "core/clsString.h"
#include "workbench/commands/CommandSession.h"
#include "workbench/commands/Parameter.h"
#include "workbench/commands/Word.h"

namespace vestrel::workbench {

// @group/index.
Ref<clsButton> ReadButton(const Word& word, const Parameter& parameter, CommandSession& session);
// @group.
Ref<clsButtonGroup> ReadGroup(const Word& word, const Parameter& parameter, CommandSession& session);
// A button or a group.
Ref<Object> ReadObject(const Word& word, const Parameter& parameter, CommandSession& session);
// @group for the group's own list, or a new list of buttons with commas between them.
Ref<clsObjectList> ReadList(const Word& word, const Parameter& parameter, CommandSession& session);
// A button, or a number or text, which is boxed.
Ref<IComparable> ReadComparable(const Word& word, const Parameter& parameter, CommandSession& session);
Ref<clsLong> ReadBoxedNumber(const Word& word, const Parameter& parameter, CommandSession& session);
Ref<clsString> ReadBoxedText(const Word& word, const Parameter& parameter, CommandSession& session);
// Texts with "|" between them.
std::vector<Variant> ReadTexts(const Word& word);
// The name of a page of the show.
Ref<clsPage> ReadPage(const Word& word, const Parameter& parameter, CommandSession& session);
// The 0-based number of an event of the recording.
Ref<vxEvent> ReadEvent(const Word& word, const Parameter& parameter, CommandSession& session);
// The word "buttons": the map of the current page's buttons.
Ref<clsDictionary> ReadButtonMap(const Word& word, const Parameter& parameter, CommandSession& session);
// The word "host": what the host itself has of the kind wanted.
void ExpectHost(const Word& word, const Parameter& parameter);

}  // namespace vestrel::workbench
