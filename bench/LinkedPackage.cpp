#include "bench/LinkedPackage.h"

#include "bench/BareXml.h"
#include "bench/GeneratedModule.h"
#include "bench/TimedObject.h"
#include "common/LinkFile.h"
#include "common/Resources.h"
#include "import/AddImportFields.h"
#include "import/frmImport.h"

namespace kestrune::bench {

namespace {

/// A DOORS that has written its export beforehand.
class ExportedDoors : public standins::StandInObject<ExportedDoors> {
 public:
  static constexpr const char16_t* kClassName = u"ExportedDoors";
  explicit ExportedDoors(Text export_path) : export_path_(std::move(export_path)) {}

  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.get = [](ExportedDoors& self) { return Variant(self.export_path_); },
          .put = [](ExportedDoors&, const Variant&) {}}},
        {u"RunStr", {.call = [](ExportedDoors&, const Args&) { return Variant(); }, .arg_count = 1}},
    };
    return table;
  }

 private:
  Text export_path_;
};

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error(what);
}

}  // namespace

void MakeLinkedPackage(const Text& folder, const Text& model_path, const Module& module) {
  auto model = standins::OrimModel::Create(ToPath(model_path));
  model.SelectPackage(model.AddPackage(0, u"Requirements"));
  const orim::Package package = orim::Repository(model.Repository()).SelectedPackage();
  standins::ScriptedDesktop desktop(Fail);
  const standins::FixedFolders folders(folder);
  struct : ObjectFactory {
    Object Create(TextView) override { return {}; }
  } objects;
  const Platform platform{desktop, folders, objects};
  if (!SaveLinkFile(platform, package.PackageGuid(), kModulePath)) Fail("the link cannot be saved");
  Doors doors(platform);
  Options options(doors);
  options.LoadDefault(package);
  for (const Text& rule : module.rules) options.AddMapping(rule);
  options.Save();
}

LinkedPackage::LinkedPackage(const Text& folder, const Text& model_path)
    : desktop_(Fail),
      folders_(folder),
      model_(standins::OrimModel::Open(ToPath(model_path))),
      repository_(Object(std::make_shared<TimedObject>(model_.Repository().Peer(), host_seconds_))) {
  repository_.CreateOutputTab(u"DOORS");
  desktop_.AddWindow({u"DOORSWindow", 0x04CF0000});
}

Object LinkedPackage::Create(TextView) {
  return std::make_shared<ExportedDoors>(export_path_)->AsObject();
}

Cost LinkedPackage::MeasureWithHost(const std::function<void()>& work) {
  model_.Counters().Reset();
  host_seconds_ = 0;
  Cost cost = Measure(work);
  cost.host_seconds = host_seconds_;
  cost.calls = model_.Counters().Calls();
  cost.writes = model_.Counters().Writes();
  return cost;
}

Cost LinkedPackage::Import(const Text& export_path) {
  export_path_ = export_path + u".taken";  // the import deletes it
  std::filesystem::create_hard_link(ToPath(export_path), ToPath(export_path_));
  frmImport form(doors_);
  desktop_.OnForm<frmImport>([this](frmImport& opened) {
    desktop_.Tick();
    opened.cmdClose.Press();
  });
  return MeasureWithHost([&] { form.Transfer(repository_, 0); });
}

Cost LinkedPackage::LoadExport(const Text& export_path) {
  Options options(doors_);
  options.Load(Package());
  OrimDoc orim_doc(repository_, Package());
  DoorsDoc doors_doc;
  AddImportFields(options, orim_doc, doors_doc);
  return MeasureWithHost([&] { doors_doc.Load(export_path, options, platform_, repository_); });
}

Cost LinkedPackage::ReadPackage() {
  Options options(doors_);
  options.Load(Package());
  OrimDoc orim_doc(repository_, Package());
  DoorsDoc doors_doc;
  AddImportFields(options, orim_doc, doors_doc);
  return MeasureWithHost([&] { orim_doc.Load(); });
}

Cost LinkedPackage::QueryBare() {
  const orim::Package trash = Package().Packages().Find(LoadResText(text::kTrashCan));
  const Text ids = ToText(Package().PackageID()) + (trash ? u"," + ToText(trash.PackageID()) : Text());
  const Text sql = FormatText(LoadSql(sql_text::kPackageContent), {ids});
  const Object host = model_.Repository();
  return MeasureWithHost([&] { ParseText(host.Call(orim::member::kQuery, {sql}).AsText()); });
}

}  // namespace kestrune::bench
