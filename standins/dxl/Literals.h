// Numbers, characters and strings as they are written in a script.
#pragma once

#include "standins/dxl/Cursor.h"

namespace kestrune::dxl {

// Each reads the literal that starts at the cursor and moves past it. They throw Problem.

/// An int (decimal, octal after a leading 0, 0x hexadecimal, 0b binary) or a real.
Value ReadNumber(Cursor& cursor);
Value ReadString(Cursor& cursor);
Value ReadChar(Cursor& cursor);

}  // namespace kestrune::dxl
