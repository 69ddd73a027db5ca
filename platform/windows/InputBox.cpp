#include "platform/windows/InputBox.h"

namespace kestrune {

frmInput::frmInput(const Text& title, const Text& prompt) {
  SetCaption(title);
  lblPrompt.SetCaption(prompt);
  cmdOK.Click = [this] {
    Entry = txtEntry.Value();
    Close();
  };
  cmdCancel.Click = [this] { Close(); };
}

}  // namespace kestrune
