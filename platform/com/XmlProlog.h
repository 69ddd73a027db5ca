// What stands before the root element of an XML document, looked at before a parser is let loose on
// it: not every version of MSXML refuses a document type definition, and by the time it has read one
// the entities are expanded.
#pragma once

#include <string_view>

namespace kestrune {

/// `Unit` is a byte or a UTF-16 unit. Zeros are passed over, so that the bytes of UTF-16
/// read like those of UTF-8.
template <typename Unit>
class XmlProlog {
 public:
  explicit XmlProlog(std::basic_string_view<Unit> xml) : xml_(xml) {}

  bool HasDtd() {
    while (SkipPast("<")) {
      if (Take("?"))
        SkipPast("?>");
      else if (Take("!--"))
        SkipPast("-->");
      else
        return Take("!DOCTYPE");
    }
    return false;
  }

 private:
  bool Take(std::string_view ascii) {
    std::size_t at = at_;
    for (const char wanted : ascii) {
      while (at < xml_.size() && xml_[at] == 0) ++at;
      if (at == xml_.size() || xml_[at] != static_cast<Unit>(wanted)) return false;
      ++at;
    }
    at_ = at;
    return true;
  }
  bool SkipPast(std::string_view ascii) {
    for (; at_ < xml_.size(); ++at_)
      if (Take(ascii)) return true;
    return false;
  }

  std::basic_string_view<Unit> xml_;
  std::size_t at_ = 0;
};

}  // namespace kestrune
