#include "workbench/Demo.h"

#include <cstdlib>
#include <iostream>

#include "platform/Files.h"
#include "workbench/Program.h"

namespace kestrune::workbench {

namespace {

using Words = std::vector<std::string>;

/// A folder that is there for one tour, and the current one
/// meanwhile, so that the commands read as one would type them.
class TourFolder {
 public:
  TourFolder() : before_(std::filesystem::current_path()) {
    std::string name = (std::filesystem::temp_directory_path() / "kestrune-demo-XXXXXX").string();
    if (!mkdtemp(name.data())) throw CommandError(u"There is no room for temporary files.");
    path_ = name;
    std::filesystem::current_path(path_);
  }
  ~TourFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(path_, ignored);
  }

 private:
  std::filesystem::path before_;
  std::filesystem::path path_;
};

std::string Quoted(const std::string& word) {
  return word.find(' ') == std::string::npos ? word : "\"" + word + "\"";
}

class Tour {
 public:
  explicit Tour(const Terminal& terminal) : terminal_(terminal) {}

  void Say(const std::string& what) const { terminal_.out << "\n--- " << what << '\n'; }

  void Run(Words words) const {
    terminal_.out << "$ kestrune-workbench";
    for (const std::string& word : words) terminal_.out << ' ' << Quoted(word);
    terminal_.out << std::endl;
    if (RunWorkbench(words, terminal_) != 0) throw CommandError(u"The tour ends here.");
  }

  /// A command of the add-in, on the tour's model, database and package.
  void RunAddIn(Words words) const {
    for (const char* word :
         {"--model", "demo.orim", "--doors", "demo.doors", "--package", "Requirements", "--data", "."})
      words.push_back(word);
    Run(std::move(words));
  }

  void Load(const std::string& file) const {
    std::filesystem::copy_file(std::filesystem::path(KESTRUNE_SAMPLES) / file, file,
                               std::filesystem::copy_options::overwrite_existing);
    Run({"doors", "load", file, "--doors", "demo.doors", "--at", "/Demo", "--data", "."});
  }

  void ImportAndShow() const {
    RunAddIn({"import", "--yes"});
    Run({"tree", "--model", "demo.orim", "--data", "."});
  }

 private:
  const Terminal& terminal_;
};

}  // namespace

void RunDemo(const Terminal& terminal) {
  const TourFolder folder;
  const Tour tour(terminal);
  tour.Say(
      "A real requirements document becomes a DOORS module, and a package of a new model is linked to it.");
  tour.Load("resync-a.reqif");
  tour.Run({"new", "demo.orim", "--package", "Requirements", "--data", "."});
  tour.RunAddIn({"link", "--module", "/Demo/Specification Document"});

  tour.Say("Which attribute goes where.");
  WriteFile(u"mapping.txt",
            "Orim Studio Mapping Template\nObject Number [: ID] --> Name\nDescription --> Notes\n"
            "Done --> (Tagged Value)\n");
  tour.RunAddIn({"options", "--template", "mapping.txt", "--print"});

  tour.Say("The first import: every object becomes an element.");
  tour.ImportAndShow();

  tour.Say("The document in its next state: new, changed, moved and removed objects.");
  tour.Load("resync-b.reqif");
  tour.ImportAndShow();

  tour.Say("Nothing has changed since: nothing is written.");
  tour.RunAddIn({"import", "--yes"});

  tour.Say("Back to the first state: the object that was removed returns, the new ones go to the trash.");
  tour.Load("resync-a.reqif");
  tour.ImportAndShow();
}

}  // namespace kestrune::workbench
