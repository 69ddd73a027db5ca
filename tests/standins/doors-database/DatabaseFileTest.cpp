#include "tests/standins/doors-database/DoorsTestFiles.h"

namespace kestrune::standins {
namespace {

class DatabaseFileTest : public ::testing::Test {
 protected:
  std::filesystem::path Path(TextView name) { return ToPath(folder.File(name)); }
  kestrune::testing::TempFolder folder;
};

TEST_F(DatabaseFileTest, IsFoundAgain) {
  DoorsDatabase::Create(Path(u"db"))
      .Sql()
      .Exec("INSERT INTO item (parent, type, name) VALUES (1, 'Project', 'Ä')");
  EXPECT_EQ(DoorsDatabase::Open(Path(u"db")).FindPath(u"/Ä")->type, u"Project");
  EXPECT_NE(ReadFile(folder.File(u"db")).find("Ä"), std::string::npos) << "texts are not stored as UTF-8";
  EXPECT_NE(FailureOf([&] { DoorsDatabase::Create(Path(u"db")); }).find("exists"), std::string::npos);
}

TEST_F(DatabaseFileTest, OfTheFirstVersionIsBroughtUpToDate) {
  DoorsDatabase::Create(Path(u"db"))
      .Sql()
      .Exec(
          "INSERT INTO item (parent, type, name) VALUES (1, 'Formal', 'Old');"
          "ALTER TABLE attribute DROP COLUMN readable; PRAGMA user_version = 1");
  DoorsDatabase::Open(Path(u"db"));
  auto database = DoorsDatabase::Open(Path(u"db"));
  EXPECT_TRUE(ModuleContent(database, database.FindPath(u"/Old")->id).Attributes()[0].readable);
}

TEST_F(DatabaseFileTest, RefusesWhatIsNoDatabaseOfOurs) {
  WriteFile(folder.File(u"text"),
            "no database at all, though it is long enough for a header of one hundred bytes, "
            "which is what the first page of a real one would start with");
  WriteFile(folder.File(u"empty"), "");
  Database::Create(Path(u"other")).Exec("CREATE TABLE item (id INTEGER)");
  for (const auto* name : {u"text", u"empty", u"other"}) {
    const std::string before = ReadFile(folder.File(name));
    const std::string error = FailureOf([&] { DoorsDatabase::Open(Path(name)); });
    EXPECT_NE(error.find("no database of the DOORS stand-in"), std::string::npos) << error;
    EXPECT_EQ(error.find('\n'), std::string::npos);
    EXPECT_EQ(ReadFile(folder.File(name)), before);
  }
  EXPECT_NE(FailureOf([&] { DoorsDatabase::Open(Path(u"missing")); }).find("missing"), std::string::npos);
  EXPECT_EQ(ListFolder(folder.Path()).size(), 3u) << "a failed opening made a file";
}

class ItemsTest : public DoorsDatabaseTest {
 protected:
  ItemsTest() {
    database.Sql().Exec(R"sql(
      INSERT INTO item (id, parent, type, name) VALUES
        (2, 1, 'Project', 'Demo'), (3, 2, 'Folder', 'Specs'), (4, 3, 'Formal', 'Car'), (5, 2, 'Project', 'Inner'),
        (6, 5, 'Formal', 'Deep'), (7, 1, 'Folder', 'Loose'), (8, 7, 'Formal', 'Alone'))sql");
  }
};

TEST_F(ItemsTest, AreFoundByPathFromTheRootOrAnyProject) {
  struct Case {
    TextView path;
    ItemId id;  // 0: not there
  };
  for (const Case& c : {Case{u"/", 1}, Case{u"", 1}, Case{u"/Demo", 2}, Case{u"Demo/Specs/Car", 4},
                        Case{u"/Demo/Specs/Car/", 4}, Case{u"/Demo/Inner/Deep", 6}, Case{u"/Inner/Deep", 6},
                        Case{u"/Specs/Car", 0}, Case{u"/demo", 0}, Case{u"/Demo/Nothing", 0}}) {
    const auto item = database.FindPath(c.path);
    EXPECT_EQ(item ? item->id : 0, c.id) << ToUtf8(c.path);
  }
}

TEST_F(ItemsTest, ThatFormACircleAreRefused) {
  database.Sql().Exec("UPDATE item SET type = 'Folder', parent = 3 WHERE id = 2");
  EXPECT_NE(FailureOf([&] { database.FullName(4); }).find("circle"), std::string::npos);
}

TEST_F(ItemsTest, WhoseObjectsFormNoTreeAreRefused) {
  database.Sql().Exec(
      "PRAGMA foreign_keys = OFF;"  // as in a shell
      "INSERT INTO object (id, module, absolute_number, parent, position) VALUES"
      " (1, 4, 1, 2, 1), (2, 4, 2, 1, 1), (3, 4, 3, NULL, 1), (4, 8, 1, 77, 1)");
  EXPECT_NE(FailureOf([&] { Content(u"/Demo/Specs/Car"); }).find("its own ancestor"), std::string::npos);
  EXPECT_NE(FailureOf([&] { Content(u"/Loose/Alone"); }).find("outside its module"), std::string::npos);
}

}  // namespace
}  // namespace kestrune::standins
