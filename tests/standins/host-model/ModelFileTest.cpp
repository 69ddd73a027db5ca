#include <regex>
#include <set>

#include "standins/host-model/Guid.h"
#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

TEST(OrimModelFile, KeepsTheModelAndTheSelection) {
  const TempFolder folder;
  std::int32_t id = 0;
  {
    OrimModel model = OrimModel::Create(folder / u"m.orim");
    id = model.AddPackage(0, u"Model");
    model.SelectPackage(id);
    EXPECT_NE(FailureOf([&] { OrimModel::Create(folder / u"m.orim"); }).find("exists already"),
              std::string::npos);
  }
  EXPECT_EQ(ListFolder(folder.Path()).size(), 1u) << "a closed model is one file";
  const OrimModel model = OrimModel::Open(folder / u"m.orim");
  const Object selected = model.Repository().Call(u"SelectedPackage").ToObject();
  EXPECT_EQ(selected.Get(u"PackageID").ToInt(), id);
  EXPECT_EQ(selected.Get(u"Name").ToText(), u"Model");
}

TEST(OrimModelFile, AFailedOpenLeavesNothingBehind) {
  const TempFolder folder;
  const auto reason = [&](const std::filesystem::path& file) {
    std::string failure = FailureOf([&] { OrimModel::Open(file); });
    EXPECT_TRUE(failure.starts_with(file.string())) << failure;
    return failure.substr(std::min(file.string().size(), failure.size()));
  };
  EXPECT_EQ(reason(folder / u"missing"), ": unable to open database file");
  WriteFile(folder.File(u"text"), std::string(5000, 'x'));
  EXPECT_EQ(reason(folder / u"text"), " is no model: file is not a database");
  EXPECT_EQ(ReadFile(folder.File(u"text")), std::string(5000, 'x'));
  WriteFile(folder.File(u"empty"), "");
  EXPECT_EQ(reason(folder / u"empty"), " is no model: no such table: t_package");
  EXPECT_EQ(ReadFile(folder.File(u"empty")), "");
  Database::Create(folder / u"other").Exec("CREATE TABLE t_package (Package_ID INTEGER)");
  EXPECT_EQ(reason(folder / u"other"), " is no model: no such column: Name");
  EXPECT_EQ(ListFolder(folder.Path()).size(), 3u);
}

TEST(OrimModelFile, PackagesAreFoundByPathOrByTheirOnlyName) {
  OrimModel model = OrimModel::Create(":memory:");
  const std::int32_t root = model.AddPackage(0, u"Model");
  const std::int32_t first = model.AddPackage(root, u"First");
  const std::int32_t inner = model.AddPackage(first, u"Inner");
  model.AddPackage(root, u"Twin");
  const std::int32_t twin = model.AddPackage(first, u"Twin");
  EXPECT_EQ(model.FindPackage(u"Model/First/Twin").id, twin);
  EXPECT_EQ(model.FindPackage(u"Inner").path, u"Model/First/Inner");
  EXPECT_EQ(model.FindPackage(u"Inner").id, inner);
  EXPECT_EQ(FailureOf([&] { model.FindPackage(u"Twin"); }), "Several packages are named \"Twin\"");
  EXPECT_EQ(FailureOf([&] { model.FindPackage(u"First/Inner"); }), "There is no package \"First/Inner\"");
  EXPECT_EQ(FailureOf([&] { model.AddPackage(99, u"Lost"); }), "Package 99 does not exist");
  EXPECT_EQ(model.Packages().size(), 5u);
}

TEST(OrimModelFile, GuidsAreUniqueAndWellFormed) {
  const std::regex form("\\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\}");
  std::set<Text> guids;
  for (int i = 0; i < 1000; ++i) {
    const Text guid = *guids.insert(NewGuid()).first;
    EXPECT_TRUE(std::regex_match(ToUtf8(guid), form)) << ToUtf8(guid);
  }
  EXPECT_EQ(guids.size(), 1000u);
}

TEST_F(ModelTest, ADeepTreeIsBuiltAndListed) {
  constexpr std::int32_t kDepth = 5000;
  Object element = AddElement(u"E");
  for (std::int32_t level = 1; level < kDepth; ++level) {
    const std::int32_t parent_id = IdOf(element);
    element = AddElement(u"E");
    PutAndSave(element, u"ParentID", parent_id);
  }
  const std::vector<TreeItem> items = model.Tree(package_id);
  ASSERT_EQ(items.size(), static_cast<std::size_t>(kDepth));
  EXPECT_EQ(items.back().depth, kDepth - 1);
  EXPECT_NE(FailureOf([&] { PutAndSave(ElementOf(items.front().id), u"ParentID", items.back().id); }), "");
}

TEST(OrimTreeOfBadData, ACircleOfParentsIsListedOnce) {
  const TempFolder folder;
  OrimModel::Create(folder / u"m").AddPackage(0, u"Model");
  Database::Open(folder / u"m")
      .Exec(
          "INSERT INTO t_object (Object_ID, Object_Type, Package_ID, ParentID, Name, Guid)"
          " VALUES (10, 'Requirement', 1, 11, 'a', ''), (11, 'Requirement', 1, 10, 'b', ''),"
          " (12, 'Requirement', 1, 12, 'c', '')");
  OrimModel model = OrimModel::Open(folder / u"m");
  EXPECT_EQ(model.Tree(1).size(), 3u);
  Object element = model.Repository().Call(u"ElementByID", {10}).ToObject();
  element.Put(u"ParentID", 12);
  element.Call(u"Save");
  EXPECT_EQ(model.Tree(1).size(), 3u);
}

}  // namespace
}  // namespace kestrune::standins
