// What a Buffer handle points to: a text that grows in place.
#pragma once

#include "platform/Text.h"
#include "standins/dxl/Call.h"

namespace kestrune::dxl {

struct Buffer {
  Text text;
  bool deleted = false;
  Lease lease = Lease(sizeof(Buffer));

  /// To be called after every change of the text.
  void Recount() { lease.Resize(sizeof(Buffer) + BytesOf(text)); }
};

/// The Buffer given as argument `i`; throws ScriptError when the script has deleted it.
Buffer& BufferAt(const Call& call, std::size_t i);

}  // namespace kestrune::dxl
