// The perms of the language itself, one function per topic.
#pragma once

namespace kestrune::dxl {

class Library;

void AddTextPerms(Library& library);  // strings, characters, numbers
void AddBufferPerms(Library& library);
void AddSkipPerms(Library& library);
void AddRegexpPerms(Library& library);  // Regexp, match, start, end
void AddRunPerms(Library& library);     // print, noError, lastError, the result slot, temporary files

inline void AddCorePerms(Library& library) {
  AddTextPerms(library);
  AddBufferPerms(library);
  AddSkipPerms(library);
  AddRegexpPerms(library);
  AddRunPerms(library);
}

}  // namespace kestrune::dxl
