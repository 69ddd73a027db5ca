#include "standins/host-model/Schema.h"

namespace kestrune::standins {

namespace {

// A package's own element is a t_object row of type Package that lies in the parent package (0: no parent).
// t_session holds, in its one row, what is selected in the host's window: a package, and an element when the
// selection is an element; 0 is nothing.
constexpr const char* kTables = R"(
CREATE TABLE t_package (
  Package_ID INTEGER PRIMARY KEY, Name TEXT NOT NULL, Parent_ID INTEGER NOT NULL, Guid TEXT NOT NULL UNIQUE,
  Element_ID INTEGER NOT NULL, Flags TEXT);
CREATE INDEX i_package_parent ON t_package (Parent_ID);
CREATE TABLE t_object (
  Object_ID INTEGER PRIMARY KEY, Object_Type TEXT NOT NULL, Package_ID INTEGER NOT NULL,
  ParentID INTEGER NOT NULL DEFAULT 0, Name TEXT, Note TEXT, TPos INTEGER NOT NULL DEFAULT 0, Alias TEXT,
  Author TEXT, Phase TEXT, Version TEXT, PDATA1 TEXT, PDATA2 TEXT, PDATA3 TEXT, PDATA4 TEXT, PDATA5 TEXT,
  Status TEXT, Guid TEXT NOT NULL, Locked INTEGER NOT NULL DEFAULT 0);
CREATE INDEX i_object_package ON t_object (Package_ID);
CREATE INDEX i_object_parent ON t_object (ParentID);
CREATE TABLE t_objectproperties (
  PropertyID INTEGER PRIMARY KEY, Object_ID INTEGER NOT NULL, Property TEXT NOT NULL, Value TEXT, Notes TEXT);
CREATE INDEX i_objectproperties_object ON t_objectproperties (Object_ID);
CREATE TABLE t_session (Selected_Package_ID INTEGER NOT NULL, Context_Element_ID INTEGER NOT NULL);
INSERT INTO t_session VALUES (0, 0);
)";

constexpr const char* kProbes[] = {
    "SELECT Package_ID, Name, Parent_ID, Guid, Element_ID, Flags FROM t_package",
    "SELECT Object_ID, Object_Type, Package_ID, ParentID, Name, Note, TPos, Alias, Author, Phase, Version, "
    "PDATA1, "
    "PDATA2, PDATA3, PDATA4, PDATA5, Status, Guid, Locked FROM t_object",
    "SELECT PropertyID, Object_ID, Property, Value, Notes FROM t_objectproperties",
    "SELECT Selected_Package_ID, Context_Element_ID FROM t_session",
};

}  // namespace

void CreateSchema(Database& database) {
  Transaction transaction(database);
  database.Exec(kTables);
  transaction.Commit();
}

void CheckSchema(Database& database) {
  for (const char* probe : kProbes) database.PrepareOnce(probe);
}

}  // namespace kestrune::standins
