// Rich text for the host's notes.
#include <array>

#include "fuzz/Fuzz.h"
#include "platform/Automation.h"
#include "standins/host-model/RtfNotes.h"

namespace kestrune::fuzz {

namespace {

/// The tags that a line leaves open, the last one opened last.
void RequireClosedTags(TextView line) {
  std::vector<char16_t> open;
  while (const std::size_t place = line.find(u'<') + 1) {
    line.remove_prefix(place);
    const bool closes = line.starts_with(u'/');
    const TextView tag = line.substr(closes ? 1 : 0, 2);
    Require(tag == u"b>" || tag == u"i>" || tag == u"u>", "notes have the tags of notes");
    if (!closes) {
      open.push_back(tag[0]);
      continue;
    }
    Require(!open.empty() && open.back() == tag[0], "tags are closed in turn");
    open.pop_back();
  }
  Require(open.empty(), "no tag crosses the end of a line");
}

}  // namespace

void Fuzz(std::string_view input) {
  try {
    const Text notes = standins::NotesFromRtf(FromUtf8(input));
    for (const Text& line : Split(notes, u"\r\n")) RequireClosedTags(line);
  } catch (const AutomationError&) {
    return;  // what the host does not know
  }
}

}  // namespace kestrune::fuzz
