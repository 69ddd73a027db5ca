#include "doors/frmConnect.h"

#include <algorithm>
#include <utility>

#include "common/Utilities.h"
#include "doors/DoorsWinEnum.h"

namespace kestrune {

frmConnect::frmConnect(Doors& doors) : doors_(doors) {
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdHelp.Click = [this] { doors_.platform().desktop.SendHelpKey(*this); };
  cmdManual.Click = [this] { cmdManual_Click(); };
  lstModules.Click = [this] { cmdOK.SetEnabled(true); };
  lstModules.DblClick = [this] {
    if (lstModules.ListIndex() >= 0) cmdOK_Click();
  };
  Timer1.Tick = [this] { Timer1_Tick(); };
}

Text frmConnect::ShowIt() {
  if (!doors_.EnsureDoors()) return {};
  doors_.platform().desktop.ShowModal(*this);
  return SelectedModule;
}

void frmConnect::Form_Load() {
  SetCaption(LoadResText(text::kConnectCaption));
  lblCaption.SetCaption(LoadResText(text::kConnectPrompt));
  lblTips.SetCaption(LoadResText(text::kConnectTips));
  cmdOK.SetCaption(LoadResText(text::kOk));
  cmdCancel.SetCaption(LoadResText(text::kCancel));
  cmdHelp.SetCaption(LoadResText(text::kHelp));
  cmdManual.SetCaption(LoadResText(text::kManualConnection));
  cmdOK.SetEnabled(false);
  HelpContextID = 5740;
  ApplyStandardFont(*this);
  Timer1.Interval = 100;
}

// DOORS may go while its modules are on screen. The user is told once, not at every tick; the list and its
// selection stay, for a link needs no more than the path; and when DOORS is back, so is the refresh.
void frmConnect::Timer1_Tick() {
  try {
    if (!IsConnected()) return;
    ShowModules(doors_.RunScript(dxl_script::kListModules));
    is_lost_ = false;
  } catch (const AutomationError& failure) {
    if (!std::exchange(is_lost_, true)) ShowFailure(doors_.platform().desktop, failure);
  }
}

// The object of a DOORS that went does not come to life again; a ready DOORS gives another without a dialog.
bool frmConnect::IsConnected() {
  if (!is_lost_ && doors_.DoorsApp) return true;  // a host that lets go of the add-in takes it away
  return StateOf(FindDoorsWindow(doors_.platform().desktop)) == DoorsState::kReady && doors_.EnsureDoors();
}

// The selection follows the module, not the place in the list: OK must never link another one.
void frmConnect::ShowModules(const Text& answer) {
  const Text selected = lstModules.SelectedText();
  std::size_t count = 0;
  for (const Text& line : Split(answer, u"\n")) {
    const Text module(Trim(line));
    if (module.empty()) continue;
    if (count == lstModules.Items().size() || lstModules.Items()[count] != module)
      lstModules.SetItem(count, module);
    ++count;
  }
  lstModules.Truncate(count);
  if (!has_listed_ && count > 0)
    lstModules.SetListIndex(0);
  else if (lstModules.SelectedText() != selected)
    lstModules.SetListIndex(IndexOf(selected));
  has_listed_ = has_listed_ || count > 0;
  cmdOK.SetEnabled(lstModules.ListIndex() >= 0);
}

int frmConnect::IndexOf(const Text& module) const {
  const auto& modules = lstModules.Items();
  const auto found = std::find(modules.begin(), modules.end(), module);
  return found == modules.end() ? -1 : static_cast<int>(found - modules.begin());
}

void frmConnect::cmdOK_Click() {
  SelectedModule = lstModules.SelectedText();
  Close();
}

void frmConnect::cmdCancel_Click() {
  SelectedModule.clear();
  Close();
}

void frmConnect::cmdManual_Click() {
  Timer1.SetEnabled(false);  // a refresh would hold up every letter typed
  const auto path = doors_.platform().desktop.AskText(LoadResText(text::kManualConnectionTitle),
                                                      LoadResText(text::kManualConnectionPrompt));
  Timer1.SetEnabled(true);
  if (!path || path->empty()) return;
  SelectedModule = *path;
  Close();
}

}  // namespace kestrune
