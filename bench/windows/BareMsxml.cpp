#include <stdexcept>

#include "bench/BareXml.h"
#include "platform/com/Msxml.h"

namespace kestrune::bench {

namespace {

void Require(const MsxmlOutcome& outcome) {
  if (!outcome.Document) throw std::runtime_error("what was to be measured is no XML");
}

}  // namespace

void ParseFile(const Text& path) {
  Require(LoadMsxmlFile(path));
}

void ParseText(TextView xml) {
  Require(LoadMsxmlText(xml));
}

}  // namespace kestrune::bench
