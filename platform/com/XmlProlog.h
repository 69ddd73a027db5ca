// What stands before the root element of an XML document, looked at before a parser is let loose on
// it: not every version of MSXML refuses a document type definition, and by the time it has read one
// the entities are expanded.
#pragma once

#include <algorithm>
#include <string_view>

namespace kestrune {

/// `Unit` is a byte or a UTF-16 unit. Zeros are passed over, so that the bytes of UTF-16
/// read like those of UTF-8.
template <typename Unit>
class XmlProlog {
 public:
  explicit XmlProlog(std::basic_string_view<Unit> xml) : xml_(xml) {}

  bool HasDtd() { return SkipToMarkup() && Take("!DOCTYPE"); }

  /// The root element's name, with its prefix; "" where none can be found.
  std::basic_string_view<Unit> RootName() {
    if (!SkipToMarkup()) return {};
    const auto name = xml_.substr(at_);
    const auto length = std::find_if(name.begin(), name.end(), EndsName) - name.begin();
    return static_cast<std::size_t>(length) == name.size() ? name.substr(0, 0) : name.substr(0, length);
  }

 private:
  static bool EndsName(Unit unit) { return unit <= ' ' || unit == '>' || unit == '/'; }

  /// Past the first "<" that begins neither an instruction nor a comment.
  bool SkipToMarkup() {
    while (SkipPast("<")) {
      if (Take("?"))
        SkipPast("?>");
      else if (Take("!--"))
        SkipPast("-->");
      else
        return true;
    }
    return false;
  }
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
