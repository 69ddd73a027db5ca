#include "standins/dxl/Buffer.h"
#include "standins/dxl/CorePerms.h"
#include "standins/dxl/Library.h"
#include "standins/dxl/Operators.h"
#include "standins/dxl/TextAccess.h"

namespace kestrune::dxl {

namespace {

Value BufferText(Call& call) {
  return Value(BufferAt(call, 0).text);
}

Value AppendTo(Call& call, TextView more) {
  Buffer& buffer = BufferAt(call, 0);
  Append(buffer.text, more);
  buffer.Recount();
  return call.At(0);
}

void AddWriting(Library& library) {
  library.Add(u"Buffer =(Buffer, string)", [](Call& call) {
    BufferAt(call, 0).text.clear();
    return AppendTo(call, call.String(1));
  });
  library.Add(u"Buffer +=(Buffer, string)", [](Call& call) { return AppendTo(call, call.String(1)); });
  library.Add(u"Buffer +=(Buffer, char)", [](Call& call) { return AppendTo(call, Text(1, call.Char(1))); });
  library.Add(u"Buffer +=(Buffer, Buffer)", [](Call& call) {
    return AppendTo(call, Text(BufferAt(call, 1).text));  // a copy: it may be the same Buffer
  });
  library.Add(u"void setempty(Buffer)", [](Call& call) {
    BufferAt(call, 0).text.clear();
    return Value();
  });
  library.Add(u"void delete(Buffer)", [](Call& call) {
    Buffer& buffer = BufferAt(call, 0);
    buffer.deleted = true;
    buffer.text = Text();
    buffer.Recount();
    return Value();
  });
}

void AddReading(Library& library) {
  library.Add(u"string ..(Buffer, string)", [](Call& call) {
    Text text = BufferAt(call, 0).text;
    Append(text, call.String(1));
    return Value(std::move(text));
  });
  library.Add(u"string stringOf(Buffer)", BufferText);
  library.Add(u"string tempStringOf(Buffer)", BufferText);
  library.Add(u"int length(Buffer)",
              [](Call& call) { return Value(static_cast<std::int32_t>(BufferAt(call, 0).text.size())); });
  library.Add(u"char [](Buffer, int)",
              [](Call& call) { return CharAt(BufferAt(call, 0).text, call.Int(1)); });
  library.Add(u"string [:](Buffer, int, int)",
              [](Call& call) { return SliceOf(BufferAt(call, 0).text, call.Int(1), call.Int(2)); });
  library.Add(u"string [:](Buffer, int)",
              [](Call& call) { return SliceOf(BufferAt(call, 0).text, call.Int(1), kToTheEnd); });
}

}  // namespace

Buffer& BufferAt(const Call& call, std::size_t i) {
  auto& buffer = call.As<Buffer>(i);
  if (buffer.deleted) throw ScriptError(u"deleted Buffer used");
  return buffer;
}

void AddBufferPerms(Library& library) {
  library.AddType(u"Buffer");
  library.Add(u"Buffer create()", [](Call&) { return Value(std::make_shared<Buffer>()); });
  library.Add(u"Buffer create(int)", [](Call&) { return Value(std::make_shared<Buffer>()); });  // a size hint
  AddWriting(library);
  AddReading(library);
}

}  // namespace kestrune::dxl
