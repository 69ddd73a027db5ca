// What a form asks of its peer, for tests of what only a screen shows.
#pragma once

#include "platform/Controls.h"

namespace kestrune::testing {

struct PeerLog : FormPeer {
  void FormChanged(Form&) override {}
  void ControlChanged(Control& control) override {
    const auto* list = dynamic_cast<ListView*>(&control);
    if (list && list->VisibleRow()) rows.push_back(*list->VisibleRow());
  }
  void Repaint(Control&) override {}
  void SetFocus(Control& control) override { focused.push_back(control.Name()); }
  void PopUp(Menu&, Control&) override {}

  std::vector<std::size_t> rows;  // to which a list was scrolled, at each of its changes
  std::vector<Text> focused;      // the controls that were given the focus
};

}  // namespace kestrune::testing
