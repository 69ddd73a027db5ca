// The host's conversion of rich text into the markup of its notes.
#pragma once

#include "platform/Text.h"

namespace kestrune::standins {

/// The notes text of an RTF document: paragraphs and lines end in CR LF; bold, italic and underlined text
/// stands in <b>, <i> and <u>, none of which crosses a line end; the characters & < > of the text itself
/// become &amp; &lt; &gt;. Lists are the plain text that the RTF carries for them. Fonts, colours, pictures
/// and all other destinations are left out. Text by code page is read as Windows-1252. What is malformed is
/// read as far as it goes; nothing is refused.
Text NotesFromRtf(TextView rtf);

}  // namespace kestrune::standins
