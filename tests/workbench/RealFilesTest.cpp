// Real requirement documents on their way into a model.
#include "standins/doors-database/LoadReqif.h"
#include "tests/workbench/PackageState.h"

namespace kestrune {
namespace {

using testing::EndToEnd;
using testing::ImportRun;
using testing::PackageState;

const std::vector<Text> kFields = {u"Name", u"Notes", u"Alias"};

class RealFile : public ::testing::Test {
 protected:
  RealFile() {
    setup_.mapping = {u"Absolute Number --> Name", u"Object Text --> Notes", u"Object Heading --> Alias"};
  }

  std::vector<standins::LoadedModule> Load(TextView file) {
    const auto path = std::filesystem::path(KESTRUNE_SOURCE_DIR) / "tests/data/reqif" / ToPath(file);
    return standins::LoadReqif(setup_.database, FromPath(path), u"/Demo");
  }

  /// Links a new package of its own to the module.
  void Link(const Text& module_path) {
    setup_.package_id = setup_.model.AddPackage(0, module_path);
    setup_.model.SelectPackage(setup_.package_id);
    setup_.Link(module_path);
  }

  Text ValueOf(std::int64_t object, TextView attribute) {
    standins::Statement value = setup_.database.Sql().Prepare(
        "SELECT v.text FROM value v JOIN attribute a ON a.id = v.attribute WHERE v.object = ? AND a.name = ?",
        object, attribute);
    return value.Step() ? WidenLineFeeds(value.GetText(0)) : Text();
  }

  /// What the rows of the database say, an element for each object that is not deleted; without positions.
  PackageState InDatabase(const Text& module_path) {
    const auto module = *setup_.database.FindPath(module_path);
    PackageState package;
    standins::Statement row = setup_.database.Sql().Prepare(
        "SELECT o.id, o.absolute_number, p.absolute_number FROM object o"
        " LEFT JOIN object p ON p.id = o.parent AND NOT p.deleted WHERE o.module = ? AND NOT o.deleted",
        module.id);
    while (row.Step()) {
      auto& element = package[module.prefix + row.GetText(1)];
      if (!row.IsNull(2)) element.parent = module.prefix + row.GetText(2);
      element.values = {{u"Name", row.GetText(1)},
                        {u"Notes", ValueOf(row.Int64(0), u"Object Text")},
                        {u"Alias", ValueOf(row.Int64(0), u"Object Heading")}};
      std::erase_if(element.values, [](const auto& value) { return value.second.empty(); });
    }
    return package;
  }

  PackageState InModel() {
    PackageState package = ReadPackage(setup_, kFields);
    for (auto& [identifier, element] : package) element.position = 0;
    return package;
  }

  void ImportTwice() {
    const ImportRun run = setup_.Import();
    EXPECT_TRUE(run.completed);
    EXPECT_FALSE(run.HasLine(u"ERROR"));
    EXPECT_FALSE(run.HasLine(u"Warning"));
    EXPECT_EQ(setup_.Import().writes, 0);
  }

  EndToEnd setup_;
};

TEST_F(RealFile, EveryObjectThatIsThereBecomesAnElementInItsPlace) {
  const struct {
    TextView file;
    std::vector<std::size_t> elements;  // by module
  } cases[] = {{u"doors-ch2-native.reqif", {286}},
               {u"doors-two-modules-77.reqif", {55, 22}},
               {u"doors-35attrs-anon.reqif", {28}},
               {u"resync-a.reqif", {42, 8}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(ToUtf8(c.file));
    const auto modules = Load(c.file);
    ASSERT_EQ(modules.size(), c.elements.size());
    for (std::size_t i = 0; i < modules.size(); ++i) {
      Link(modules[i].path);
      ImportTwice();
      EXPECT_EQ(InModel().size(), c.elements[i]);
      ExpectPackage(InModel(), InDatabase(modules[i].path));
    }
  }
}

}  // namespace
}  // namespace kestrune
