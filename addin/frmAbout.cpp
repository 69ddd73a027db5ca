#include "addin/frmAbout.h"

#include "common/Utilities.h"

namespace kestrune {

frmAbout::frmAbout() {
  cmdOK.Click = [this] { Close(); };
}

void frmAbout::Form_Load() {
  SetCaption(LoadResText(text::kAboutCaption));
  lblProduct.SetCaption(LoadResText(text::kTitle));
  lblVersion.SetCaption(FromUtf8(KESTRUNE_VERSION));
  cmdOK.SetCaption(LoadResText(text::kOk));
  ApplyStandardFont(*this);
}

}  // namespace kestrune
