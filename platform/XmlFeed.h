// What every parser's way of telling of a document is brought to: the calls of an XmlHandler.
#pragma once

#include "platform/Xml.h"

namespace kestrune {

class XmlFeed {
 public:
  explicit XmlFeed(XmlHandler& handler) : handler_(handler) { handler.OnDocument(); }

  void Start(TextView name, const XmlAttributes& attributes) {
    if (wanted_depth_ > 0 || handler_.OnStart(name, attributes)) ++wanted_depth_;
  }
  bool WantsText() const { return wanted_depth_ > 0; }
  /// Where a piece of text is put behind what has come of the wanted content.
  Text& Content() { return content_; }
  void End() {
    if (wanted_depth_ > 0 && --wanted_depth_ > 0) return;
    handler_.OnEnd(content_);
    content_.clear();
  }

 private:
  XmlHandler& handler_;
  std::size_t wanted_depth_ = 0;  // elements from the wanted one on that have not ended
  Text content_;
};

}  // namespace kestrune
