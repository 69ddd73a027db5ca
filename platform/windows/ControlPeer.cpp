#include "platform/windows/ControlPeer.h"

#include "platform/windows/ListPeers.h"
#include "platform/windows/ListViewPeer.h"
#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

/// Texts are set where they differ, not to flicker.
void ShowText(HWND window, const Text& text) {
  if (WindowTextOf(window) != text) SetWindowTextW(window, Wide(text));
}

/// A control without a caption keeps the text of the template.
class CaptionPeer : public ControlPeer {
 public:
  CaptionPeer(Control& control, HWND window) : ControlPeer(control, window), control_(control) {}

 protected:
  void PushContent() override {
    if (control_.Caption() == shown_) return;
    shown_ = control_.Caption();
    ShowText(Window(), shown_);
  }

 private:
  const Control& control_;
  Text shown_;
};

class ButtonPeer : public CaptionPeer {
 public:
  ButtonPeer(Button& button, HWND window) : CaptionPeer(button, window), button_(button) {}
  void OnCommand(WORD code) override {
    if (code == BN_CLICKED) button_.Press();
  }

 private:
  Button& button_;
};

class TextBoxPeer : public ControlPeer {
 public:
  TextBoxPeer(TextBox& box, HWND window) : ControlPeer(box, window), box_(box) {}
  void OnCommand(WORD code) override {
    if (code == EN_CHANGE) box_.Type(WindowTextOf(Window()));
  }

 protected:
  void PushContent() override { ShowText(Window(), box_.Value()); }

 private:
  TextBox& box_;
};

template <typename PeerClass, typename ControlClass>
std::unique_ptr<ControlPeer> PeerIf(Control& control, HWND window) {
  auto* wanted = dynamic_cast<ControlClass*>(&control);
  return wanted ? std::make_unique<PeerClass>(*wanted, window) : nullptr;
}

}  // namespace

void ControlPeer::Push() {
  is_pushing_ = true;
  PushContent();
  if ((IsWindowEnabled(window_) != FALSE) != control_.Enabled()) EnableWindow(window_, control_.Enabled());
  const bool is_shown = (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (is_shown != control_.Visible()) ShowWindow(window_, control_.Visible() ? SW_SHOWNA : SW_HIDE);
  is_pushing_ = false;
}

std::unique_ptr<ControlPeer> MakeControlPeer(Control& control, HWND window) {
  static constexpr auto kMakers = {PeerIf<CaptionPeer, Label>,     PeerIf<ButtonPeer, Button>,
                                   PeerIf<TextBoxPeer, TextBox>,   PeerIf<ListBoxPeer, ListBox>,
                                   PeerIf<ComboBoxPeer, ComboBox>, PeerIf<ListViewPeer, ListView>};
  for (const auto make : kMakers)
    if (auto peer = make(control, window)) return peer;
  return nullptr;
}

}  // namespace kestrune
