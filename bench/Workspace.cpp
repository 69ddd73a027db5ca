#include "bench/Workspace.h"

#include <stdlib.h>

#include "bench/LinkedPackage.h"
#include "platform/Files.h"

namespace kestrune::bench {

Workspace::Workspace() {
  std::string name = (std::filesystem::temp_directory_path() / "kestrune-bench-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
  folder_ = name;
}

Workspace::~Workspace() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

Text Workspace::Path() const {
  return FromPath(folder_);
}

Text Workspace::Made(const std::string& name, const std::function<void(const Text& path)>& make) const {
  const Text path = FromPath(folder_ / name);
  if (IsFile(path)) return path;
  InChild([&] {
    make(path);
    return Cost();
  });
  return path;
}

Text Workspace::Export(const Module& module, int objects, Edition edition) const {
  const char* name = edition == Edition::kFirst ? "-first-" : "-next-";
  return Made(module.name + name + std::to_string(objects) + ".xml",
              [&](const Text& path) { module.write_export(path, objects, edition); });
}

Text Workspace::EmptyModel(const Module& module) const {
  return Made(module.name + ".orim", [&](const Text& path) { MakeLinkedPackage(Path(), path, module); });
}

Text Workspace::ImportedModel(const Module& module, int objects) const {
  const Text exported = Export(module, objects, Edition::kFirst);
  const Text empty = EmptyModel(module);
  return Made(ImportedName(module, objects), [&](const Text& path) {
    std::filesystem::copy_file(ToPath(empty), ToPath(path));
    LinkedPackage(Path(), path).Import(exported);
  });
}

void Workspace::KeepImported(const Text& model, const Module& module, int objects) const {
  const auto path = folder_ / ImportedName(module, objects);
  if (!std::filesystem::exists(path)) std::filesystem::rename(ToPath(model), path);
}

Text Workspace::CopyOf(const Text& model) const {
  const auto copy = folder_ / "copy.orim";
  std::filesystem::copy_file(ToPath(model), copy, std::filesystem::copy_options::overwrite_existing);
  return FromPath(copy);
}

}  // namespace kestrune::bench
