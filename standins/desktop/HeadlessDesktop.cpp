#include "standins/desktop/HeadlessDesktop.h"

namespace kestrune::standins {

void HeadlessDesktop::ShowModal(Form& form) {
  Tick();
  const std::unique_ptr<FormPeer> peer = PeerFor(form);
  open_forms_.push_back(&form);
  struct Leave {
    ~Leave() {
      forms.back()->Close();
      forms.back()->Detach();
      forms.pop_back();
    }
    std::vector<Form*>& forms;
  } leave{open_forms_};
  form.Open(peer.get());
  if (form.IsOpen()) Use(form);
}

Answer HeadlessDesktop::Show(const Message& message) {
  Tick();
  ++messages_shown_;
  return AnswerTo(message);
}

std::optional<Text> HeadlessDesktop::AskText(const Text& title, const Text& prompt) {
  Tick();
  return TextFor(title, prompt);
}

void HeadlessDesktop::EnumTop(const std::function<bool(WindowHandle)>& visit) {
  for (WindowHandle window = 1; window <= windows_.size(); ++window)
    if (!visit(window)) return;
}

void HeadlessDesktop::Tick() {
  const auto forms = open_forms_;
  for (Form* form : forms) {
    for (Control* control : form->Controls()) {
      auto* timer = dynamic_cast<Timer*>(control);
      if (timer && form->IsOpen()) timer->Fire();
    }
  }
}

WindowHandle HeadlessDesktop::AddWindow(SimulatedWindow window) {
  windows_.push_back(std::move(window));
  return static_cast<WindowHandle>(windows_.size());
}

}  // namespace kestrune::standins
