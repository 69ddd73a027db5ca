// The host's conversion of rich text into the markup of its notes.
#pragma once

#include "platform/Text.h"

namespace kestrune::standins {

/// The notes text of an RTF document: paragraphs and lines end in CR LF; bold, italic and underlined text stands in
/// <b>, <i> and <u>, none of which crosses a line end; the characters & < > of the text itself become &amp; &lt; &gt;.
/// Bytes of the code page are Windows-1252's, from A0 on. Throws AutomationError for a control word or symbol that it
/// does not know: fonts, colours, lists, tables, pictures and their like are not simulated.
Text NotesFromRtf(TextView rtf);

}  // namespace kestrune::standins
