// Queries that show what the library and the host hold, for reading along; they change nothing.
#include <vector>

#include "core/Cast.h"
#include "workbench/commands/OperationTable.h"

namespace vestrel::workbench {

namespace {

// An outcome under construction: name after name.
class Description {
 public:
  template <class T>
  Description& Add(std::string name, const T& value) {
    outcome_.handedBack.push_back({std::move(name), ValueText(value)});
    return *this;
  }
  Outcome Done() { return std::move(outcome_); }

 private:
  Outcome outcome_;
};

Ref<clsPage> CurrentPage(CommandSession& session) {
  return session.host().controller().PageManager()->CurrentPage();
}

Outcome DescribeShow(CommandSession& session) {
  const Ref<clsPageManager> pages = session.host().controller().PageManager();
  return Description()
      .Add("show", pages->showName())
      .Add("pages", pages->PageList())
      .Add("current", pages->CurrentPageName())
      .Done();
}

Outcome DescribePage(CommandSession& session) {
  Description description;
  const Ref<clsPage> page = CurrentPage(session);
  description.Add("page", page->pageName());
  for (std::int32_t group = 0; group <= 9; ++group) {
    description.Add("group " + std::to_string(group), page->ButtonGroups(group)->buttons);
  }
  return description.Done();
}

Outcome DescribeGroup(CommandSession& session, std::int32_t groupIndex) {
  const Ref<clsButtonGroup> group = CurrentPage(session)->ButtonGroups(groupIndex);
  return Description()
      .Add("buttons", group->buttons)
      .Add("nowPlaying", group->nowPlayingList)
      .Add("highlighted", group->highlightedButton)
      .Add("pageOffset", group->pageOffset)
      .Add("fader", group->Fader()->value())
      .Add("engaged", group->Fader()->Engaged())
      .Done();
}

Outcome DescribeButton(CommandSession&, clsButton* button) {
  auto& shown = Cast<clsButton>(button);
  return Description()
      .Add("name", shown.name)
      .Add("buttonType", shown.buttonType)
      .Add("playState", shown.playState())
      .Add("BumpMode", shown.BumpMode())
      .Add("FaderMode", shown.FaderMode())
      .Add("faderValue", shown.faderValue())
      .Add("Locked", shown.Locked())
      .Add("isHighlighted", shown.isHighlighted)
      .Add("isVisible", shown.isVisible)
      .Add("controlIndex", shown.controlIndex)
      .Add("triggeredDimmerValue", shown.triggeredDimmerValue)
      .Done();
}

Outcome DescribeLamps(CommandSession& session) {
  Description description;
  const char* const names[] = {"go", "top 1 to 16", "top 17 to 32"};
  for (std::size_t row = 0; row < ControlSurface::kRows; ++row) {
    const auto code = static_cast<std::uint8_t>(ControlSurface::kFirstRowCode + row);
    const std::uint16_t lit = session.host().surface().LitLamps(row);
    description.Add(names[row], PlainText{ControlSurface::LampText(code, lit)});
  }
  return description.Done();
}

// "hand 40, stored 60, waiting": where the hand left the fader, the value, and whether the fader controls it.
PlainText FaderText(std::int32_t hand, const clsFaderCatch& fader) {
  return {"hand " + std::to_string(hand) + ", stored " + std::to_string(fader.value()) +
          (fader.Engaged() ? ", caught" : ", waiting")};
}

Outcome DescribeFaders(CommandSession& session) {
  Description description;
  const TUIFaderValues& hands = session.host().surface().positions();
  const Ref<clsPage> page = CurrentPage(session);
  for (std::int32_t i = 1; i <= 8; ++i) {
    const Ref<clsFaderCatch> fader = page->ButtonGroups(i)->Fader();
    description.Add("group " + std::to_string(i), FaderText(hands.GroupFaders[i], *fader));
  }
  for (std::int32_t i = 1; i <= 8; ++i) {
    const Ref<clsButton> button = session.host().controller().buttonWithIndex(9, i);
    if (!button) continue;
    description.Add("bump " + std::to_string(i), FaderText(hands.BumpFaders[i], *button->Fader()));
  }
  return description.Done();
}

Outcome DescribeItems(CommandSession& session) {
  Description description;
  for (const PlayingItem& item : session.host().stage().items()) {
    const std::string seconds = ValueText(static_cast<float>(session.host().Now() - item.startedAt) / 1000);
    std::string text = "level " + std::to_string(item.level) + " for " + seconds + " s";
    if (item.goes > 0) text += ", " + std::to_string(item.goes) + " goes";
    description.Add(ValueText(item.button), PlainText{text});
  }
  return description.Done();
}

Outcome DescribeTransport(CommandSession& session) {
  TransportBar& bar = session.host().transport();
  return Description()
      .Add("timecode", session.host().record().msToTimecode(bar.timecode()))
      .Add("state", bar.state())
      .Add("recording", bar.recording())
      .Add("events", session.host().record().EventList()->Size())
      .Done();
}

}  // namespace

std::vector<Operation> StateOperations() {
  return {
      Function<&DescribeShow>("state.show"),
      Function<&DescribePage>("state.page"),
      Function<&DescribeGroup>("state.group", {In("groupIndex")}),
      Function<&DescribeButton>("state.button", {In("button")}),
      Function<&DescribeLamps>("state.lamps"),
      Function<&DescribeFaders>("state.faders"),
      Function<&DescribeItems>("state.items"),
      Function<&DescribeTransport>("state.transport"),
  };
}

}  // namespace vestrel::workbench
