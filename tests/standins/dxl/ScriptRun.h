// Running scripts in tests, without a library: types and perms of DOORS are tried where they are made.
#pragma once

#include "standins/dxl/Library.h"
#include "standins/dxl/Script.h"

namespace kestrune::dxl {

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
