#include <fstream>
#include <regex>
#include <set>

#include "tests/orim-standin/Support.h"
#include "workbench/orim/Guid.h"

namespace kestrune::workbench {
namespace {

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(OrimModelFile, KeepsTheModelAndTheSelection) {
  const TemporaryFolder folder;
  std::int32_t id = 0;
  {
    OrimModel model = OrimModel::Create(folder / "m.orim");
    id = model.AddPackage(0, u"Model");
    model.SelectPackage(id);
    EXPECT_NE(FailureOf([&] { OrimModel::Create(folder / "m.orim"); }).find("exists already"),
              std::string::npos);
  }
  EXPECT_EQ(folder.FileCount(), 1) << "a closed model is one file";
  const OrimModel model = OrimModel::Open(folder / "m.orim");
  const Object selected = model.Repository().Call(u"SelectedPackage").ToObject();
  EXPECT_EQ(selected.Get(u"PackageID").ToInt(), id);
  EXPECT_EQ(selected.Get(u"Name").ToText(), u"Model");
}

TEST(OrimModelFile, AFailedOpenLeavesNothingBehind) {
  const TemporaryFolder folder;
  const auto missing = folder / "missing.orim";
  EXPECT_EQ(FailureOf([&] { OrimModel::Open(missing); }),
            missing.string() + ": unable to open database file");
  EXPECT_EQ(folder.FileCount(), 0);

  const auto file = folder / "other";
  const auto reason = [&] {
    const std::string before = BytesOf(file);
    const std::string failure = FailureOf([&] { OrimModel::Open(file); });
    EXPECT_EQ(BytesOf(file), before);
    EXPECT_EQ(folder.FileCount(), 1);
    const std::string start = file.string() + " is no model: ";
    EXPECT_EQ(failure.substr(0, start.size()), start);
    return failure.substr(std::min(start.size(), failure.size()));
  };
  std::ofstream(file) << std::string(5000, 'x');
  EXPECT_EQ(reason(), "file is not a database");
  std::ofstream(file, std::ios::trunc).flush();
  EXPECT_EQ(reason(), "no such table: t_package");
  std::filesystem::remove(file);
  Database::Create(file).Exec("CREATE TABLE t_package (Package_ID INTEGER)");
  EXPECT_EQ(reason(), "no such column: Name");
}

TEST(OrimModelFile, PackagesAreFoundByPathOrByTheirOnlyName) {
  OrimModel model = OrimModel::Create(":memory:");
  const std::int32_t root = model.AddPackage(0, u"Model");
  const std::int32_t first = model.AddPackage(root, u"First");
  const std::int32_t inner = model.AddPackage(first, u"Inner");
  model.AddPackage(root, u"Twin");
  const std::int32_t twin = model.AddPackage(first, u"Twin");
  EXPECT_EQ(model.FindPackage(u"Model/First/Twin").Id, twin);
  EXPECT_EQ(model.FindPackage(u"Inner").Path, u"Model/First/Inner");
  EXPECT_EQ(model.FindPackage(u"Inner").Id, inner);
  EXPECT_EQ(FailureOf([&] { model.FindPackage(u"Twin"); }), "Several packages are named \"Twin\"");
  EXPECT_EQ(FailureOf([&] { model.FindPackage(u"First/Inner"); }), "There is no package \"First/Inner\"");
  EXPECT_EQ(FailureOf([&] { model.AddPackage(99, u"Lost"); }), "Package 99 does not exist");
  EXPECT_EQ(model.Packages().size(), 5u);
}

TEST(OrimModelFile, GuidsAreUniqueAndWellFormed) {
  const std::regex form("\\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\}");
  std::set<Text> guids;
  for (int i = 0; i < 1000; ++i) {
    const Text guid = NewGuid();
    EXPECT_TRUE(std::regex_match(ToUtf8(guid), form)) << ToUtf8(guid);
    guids.insert(guid);
  }
  EXPECT_EQ(guids.size(), 1000u);
}

class OrimTree : public ModelTest {
 protected:
  std::int32_t AddAt(const char16_t* name, std::int32_t parent_id, std::int32_t position) {
    Object element = AddElement(name);
    element.Put(u"ParentID", parent_id);
    element.Put(u"TreePos", position);
    element.Call(u"Save");
    return element.Get(u"ElementID").ToInt();
  }

  /// Each item as its name behind one dot per level.
  std::vector<std::string> Outline() const {
    std::vector<std::string> lines;
    for (const TreeItem& item : model.Tree(package_id))
      lines.push_back(std::string(item.Depth, '.') + ToUtf8(item.Name));
    return lines;
  }
};

TEST_F(OrimTree, FollowsParentsAndPositionsAndThenTheChildPackages) {
  const std::int32_t trash = model.AddPackage(package_id, u"Trash Can");
  const std::int32_t late = AddAt(u"late", 0, 20);
  const std::int32_t early = AddAt(u"early", 0, 10);
  AddAt(u"early 2", early, 20);
  AddAt(u"early 1", early, 10);
  AddAt(u"late 1", late, 10);
  Object archived = AddElement(u"archived");
  archived.Put(u"PackageID", trash);
  archived.Put(u"ParentID", late);
  archived.Call(u"Save");
  AddTaggedValue(archived, u"Tag", u"v");
  EXPECT_EQ(Outline(), (std::vector<std::string>{"early", ".early 1", ".early 2", "late", ".late 1",
                                                 "Trash Can", ".archived"}));
  const TreeItem item = model.Tree(package_id).back();
  EXPECT_EQ(item.PackageId, trash);
  EXPECT_EQ(item.ParentId, late);
  EXPECT_EQ(item.Type, u"Requirement");
  ASSERT_EQ(item.TaggedValues.size(), 1u);
  EXPECT_EQ(item.TaggedValues[0].Value, u"v");
}

TEST_F(OrimTree, ADeepTreeIsBuiltAndListed) {
  constexpr std::int32_t kDepth = 5000;
  std::int32_t parent_id = 0;
  for (std::int32_t level = 0; level < kDepth; ++level) parent_id = AddAt(u"E", parent_id, 10);
  const std::vector<TreeItem> items = model.Tree(package_id);
  ASSERT_EQ(items.size(), static_cast<std::size_t>(kDepth));
  EXPECT_EQ(items.back().Depth, kDepth - 1);
  Object top = ElementOf(items.front().Id);
  top.Put(u"ParentID", items.back().Id);
  EXPECT_NE(FailureOf([&] { top.Call(u"Save"); }), "");
}

TEST(OrimTreeOfBadData, ACircleOfParentsIsListedOnce) {
  const TemporaryFolder folder;
  OrimModel::Create(folder / "m").AddPackage(0, u"Model");
  Database::Open(folder / "m")
      .Exec(
          "INSERT INTO t_object (Object_ID, Object_Type, Package_ID, ParentID, Name, Guid)"
          " VALUES (10, 'Requirement', 1, 11, 'a', ''), (11, 'Requirement', 1, 10, 'b', ''),"
          " (12, 'Requirement', 1, 12, 'c', '')");
  OrimModel model = OrimModel::Open(folder / "m");
  EXPECT_EQ(model.Tree(1).size(), 3u);
  Object element = model.Repository().Call(u"ElementByID", {10}).ToObject();
  element.Put(u"ParentID", 12);
  element.Call(u"Save");
  EXPECT_EQ(model.Tree(1).size(), 3u);
}

}  // namespace
}  // namespace kestrune::workbench
