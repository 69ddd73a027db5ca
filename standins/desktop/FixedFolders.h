// Folders below one folder of the caller's choice: a test's
// own, or the data folder of a command-line program.
#pragma once

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/Folders.h"

namespace kestrune::standins {

class FixedFolders : public Folders {
 public:
  /// Makes `root` with the folders "AppData", "Temp" and "AddIn" in it; throws AutomationError where that cannot be.
  explicit FixedFolders(const Text& root) : root_(root) {
    for (const char16_t* folder : {u"AppData", u"Temp", u"AddIn"}) {
      std::error_code failure;
      std::filesystem::create_directories(ToPath(At(folder)), failure);
      if (failure)
        throw AutomationError(
            error::kFileFailure, u"Folders",
            At(folder) +
                u": the folder cannot be made; see that the one above it can be written, then try again");
    }
  }
  std::optional<Text> RoamingAppData() const override { return At(u"AppData"); }
  Text Temp() const override { return At(u"Temp") + NativePath(u"\\"); }
  Text AddIn() const override { return At(u"AddIn"); }

 private:
  Text At(TextView folder) const { return FromPath(ToPath(root_) / ToPath(folder)); }
  Text root_;
};

}  // namespace kestrune::standins
