// One measurement of what an import costs on Windows: kestrune-bench WORK FOLDER OBJECTS. Prints the seconds of processor
// time and the megabytes by which the working set grew at most. Its exports and models lie in FOLDER, and are made by the
// works "export" and "import".
#include <cstdio>
#include <exception>
#include <map>
#include <objbase.h>
#include <string>

#include "bench/BareXml.h"
#include "bench/LinkedPackage.h"
#include "platform/Files.h"

namespace kestrune::bench {

namespace {

struct Place {
  Text folder;
  int objects;

  Text File(TextView extension) const { return folder + u"\\" + ToText(objects) + Text(extension); }
  Text Export() const { return File(u".xml"); }
  Text Model() const { return File(u".orim"); }
};

Cost Import(const Place& place) {
  if (!IsFile(place.Model())) MakeLinkedPackage(place.folder, place.Model(), kRequirements);
  return LinkedPackage(place.folder, place.Model()).Import(place.Export());
}

using Work = Cost (*)(const Place&);

const std::map<std::string, Work>& Works() {
  static const std::map<std::string, Work> works = {
      {"export",
       [](const Place& place) {
         return Measure([&] { kRequirements.write_export(place.Export(), place.objects, Edition::kFirst); });
       }},
      {"import", Import},
      {"load",
       [](const Place& place) {
         const Text model = place.File(u".empty.orim");
         if (!IsFile(model)) MakeLinkedPackage(place.folder, model, kRequirements);
         return LinkedPackage(place.folder, model).LoadExport(place.Export());
       }},
      {"load-bare", [](const Place& place) { return Measure([&] { ParseFile(place.Export()); }); }},
      {"read", [](const Place& place) { return LinkedPackage(place.folder, place.Model()).ReadPackage(); }},
      {"read-bare",
       [](const Place& place) { return LinkedPackage(place.folder, place.Model()).QueryBare(); }},
  };
  return works;
}

int Run(const std::string& work, const Place& place) {
  const auto found = Works().find(work);
  if (found == Works().end()) return 2;
  const Cost cost = found->second(place);
  std::printf("%.3f %.1f\n", cost.seconds, cost.peak_mb);
  return 0;
}

}  // namespace

}  // namespace kestrune::bench

int main(int argc, char** argv) {
  using namespace kestrune;
  if (argc != 4) return 2;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  try {
    return bench::Run(argv[1], {FromUtf8(argv[2]), std::atoi(argv[3])});
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
