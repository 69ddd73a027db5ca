#include "standins/sqlite/Database.h"
#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

class SqliteDatabase : public ::testing::Test {
 protected:
  SqliteDatabase() { database.Exec("CREATE TABLE t (id INTEGER PRIMARY KEY, value)"); }
  std::int32_t Rows() {
    Statement count = database.Prepare("SELECT count(*) FROM t");
    return count.Step() ? count.Int(0) : -1;
  }
  Database database = Database::Create(":memory:");
};

TEST_F(SqliteDatabase, ValuesComeBackAsTheyWereBound) {
  Statement insert = database.Prepare("INSERT INTO t (value) VALUES (?)");
  const Text odd = u"\uFEFF\uFEFF" + Text(u"a\0\xD800\xDC00\xD800", 5);
  const Variant values[] = {odd, u"", 7, -1.5, true, Variant()};
  for (const Variant& value : values) {
    insert.Bind(value);
    insert.Run();
    insert.Reset();
  }
  Statement rows = database.Prepare("SELECT value FROM t ORDER BY id");
  const auto next = [&]() -> const Statement& {
    EXPECT_TRUE(rows.Step());
    return rows;
  };
  EXPECT_EQ(next().View(0), odd);
  EXPECT_FALSE(next().IsNull(0)) << "an empty text is a text";
  EXPECT_EQ(rows.View(0), u"");
  EXPECT_EQ(next().Int(0), 7);
  EXPECT_EQ(next().Double(0), -1.5);
  EXPECT_EQ(next().Int64(0), 1);
  EXPECT_TRUE(next().IsNull(0));
  EXPECT_FALSE(rows.Step());
  EXPECT_NE(FailureOf([&] { insert.Bind(Variant(Object())); }), "");
}

TEST_F(SqliteDatabase, FailuresCarryTheMessageOfTheDatabase) {
  database.Prepare("INSERT INTO t VALUES (1, 1)").Run();
  EXPECT_EQ(FailureOf([&] { database.Prepare("INSERT INTO t VALUES (1, 1)").Run(); }),
            "UNIQUE constraint failed: t.id");
  EXPECT_EQ(FailureOf([&] { database.Prepare("SELECT 1", 5); }), "column index out of range");
  EXPECT_EQ(FailureOf([&] { database.Exec("nonsense"); }), "near \"nonsense\": syntax error");
  database.Prepare("INSERT INTO t VALUES (2, 1)").Run();
  EXPECT_EQ(Rows(), 2) << "a failed statement can be used again";
}

TEST(SqliteFile, IsNotWrittenWhenOpenedForReading) {
  const TempFolder folder;
  Database::Create(folder / u"d").Exec("CREATE TABLE t (id)");
  Database database = Database::OpenReadOnly(folder / u"d");
  const std::string failure = FailureOf([&] { database.Exec("INSERT INTO t VALUES (1)"); });
  EXPECT_TRUE(
      failure.ends_with("d: the file cannot be written; make it and its folder writable, then try again"))
      << failure;
}

}  // namespace
}  // namespace kestrune::standins
