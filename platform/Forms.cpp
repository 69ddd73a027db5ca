#include "platform/Forms.h"

#include <algorithm>
#include <stdexcept>

namespace kestrune {

void Form::Open(FormPeer* peer) {
  peer_ = peer;
  is_open_ = true;
  Form_Load();
}

void Form::SetCaption(Text caption) {
  Caption = std::move(caption);
  if (peer_) peer_->FormChanged(*this);
}

Control* Form::FindControl(TextView name) const {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(), [&](Control* each) { return each->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

Control::Control(Form* form, Text name) : form_(*form), name_(std::move(name)) {
  form_.controls_.push_back(this);
}

void Control::SetCaption(Text caption) {
  caption_ = std::move(caption);
  Changed();
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed();
}

void Control::SetFocus() {
  if (form_.Peer()) form_.Peer()->SetFocus(*this);
}

void Control::Repaint() {
  if (form_.Peer()) form_.Peer()->Repaint(*this);
}

void Control::Changed() {
  if (form_.Peer()) form_.Peer()->ControlChanged(*this);
}

void Control::RequireReachable() const {
  if (!form_.IsOpen()) RefuseUser(u"its form is not open");
  if (!enabled_) RefuseUser(u"it is disabled");
  if (!visible_) RefuseUser(u"it is hidden");
}

void Control::RefuseUser(TextView why) const {
  throw std::logic_error(ToUtf8(Text(u"A user cannot reach ").append(name_).append(u": ").append(why)));
}

}  // namespace kestrune
