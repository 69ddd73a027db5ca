// Running scripts in tests: a library with a few DOORS-like handles, and a host that keeps
// what a script prints.
#pragma once

#include "standins/dxl/Library.h"
#include "standins/dxl/Script.h"

namespace kestrune::dxl {

/// Module, Object, AttrDef, Attr__ over one fixed module "/Reqs" (prefix R) with the objects 1 to 3; the
/// attribute "Missing" is unknown. The signatures are DXL's.
std::unique_ptr<Library> NewTestLibrary();

class RecordingHost : public Host {
 public:
  void Print(TextView text) override { printed += text; }
  Text Result() override { return result; }
  void SetResult(Text text) override { result = std::move(text); }
  Text TempFileName() override { return u"C:\\TEMP\\DP1"; }

  Text printed;
  Text result = u"first~second";
};

struct Outcome {
  std::string printed;
  std::vector<std::string> compile_errors;  // "line 2: message"
  std::string runtime_error;                // the same form, "" for none
  RunCost cost;
};

Outcome RunScript(const std::string& script, std::size_t memory_limit = kDefaultMemoryLimit);

}  // namespace kestrune::dxl
