#include "doors/frmConnect.h"

#include "common/Utilities.h"

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
  HelpContextID = 5740;
  ApplyStandardFont(*this);
  Timer1.Interval = 100;
}

void frmConnect::Timer1_Tick() {
  std::size_t count = 0;
  for (const Text& line : Split(doors_.RunScript(dxl_script::kListModules), u"\n")) {
    const Text module(Trim(line));
    if (module.empty()) continue;
    if (count == lstModules.Items().size() || lstModules.Items()[count] != module) {
      lstModules.SetItem(count, module);
      if (lstModules.ListIndex() < 0) lstModules.SetListIndex(static_cast<int>(count));
    }
    ++count;
  }
  lstModules.Truncate(count);
  cmdOK.SetEnabled(lstModules.ListIndex() >= 0);
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
  const auto path = doors_.platform().desktop.AskText(LoadResText(text::kManualConnectionTitle),
                                                      LoadResText(text::kManualConnectionPrompt));
  if (!path || path->empty()) return;
  SelectedModule = *path;
  Close();
}

}  // namespace kestrune
