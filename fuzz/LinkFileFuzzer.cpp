// A link file, and the module path that it gave, written again.
#include "common/LinkFile.h"
#include "fuzz/Fuzz.h"
#include "platform/Files.h"
#include "standins/desktop/FixedFolders.h"
#include "standins/desktop/ScriptedDesktop.h"

namespace kestrune::fuzz {

namespace {

struct NoObjects : ObjectFactory {
  Object Create(TextView prog_id) override {
    throw AutomationError(error::kNoSuchClass, u"fuzz", Text(prog_id));
  }
};

}  // namespace

void Fuzz(std::string_view input) {
  static const standins::FixedFolders folders(Scratch());
  static standins::ScriptedDesktop desktop([](const std::string& what) { Require(false, what.c_str()); });
  static NoObjects objects;
  const Platform platform{desktop, folders, objects};
  static const Text link_file = GetLinkFilePath(platform, u"{1}");
  WriteFile(link_file, input);
  const Text path = GetLinkModulePath(platform, u"{1}");
  Require(SaveLinkFile(platform, u"{2}", path), "what a link file holds can be saved");
  Require(GetLinkModulePath(platform, u"{2}") == path, "and is the same then");
}

}  // namespace kestrune::fuzz
