#include "standins/doors-database/DoorsSchema.h"

namespace kestrune::standins {

const char* const kDoorsSchema = R"sql(
CREATE TABLE item (
  id INTEGER PRIMARY KEY,
  parent INTEGER REFERENCES item(id),
  type TEXT NOT NULL CHECK (type IN ('Project', 'Folder', 'Formal', 'Link', 'Descriptive')),
  name TEXT NOT NULL,
  description TEXT NOT NULL DEFAULT '',
  prefix TEXT NOT NULL DEFAULT '',
  deleted INTEGER NOT NULL DEFAULT 0,
  readable INTEGER NOT NULL DEFAULT 1,
  UNIQUE (parent, name));
INSERT INTO item (id, parent, type, name) VALUES (1, NULL, 'Folder', '/');

CREATE TABLE attribute (
  id INTEGER PRIMARY KEY,
  module INTEGER NOT NULL REFERENCES item(id),
  position INTEGER NOT NULL,
  name TEXT NOT NULL,
  type TEXT NOT NULL DEFAULT 'String',
  on_object INTEGER NOT NULL DEFAULT 1,
  on_module INTEGER NOT NULL DEFAULT 0,
  system INTEGER NOT NULL DEFAULT 0,
  multi INTEGER NOT NULL DEFAULT 0,
  readable INTEGER NOT NULL DEFAULT 1,
  UNIQUE (module, name));

CREATE TABLE object (
  id INTEGER PRIMARY KEY,
  module INTEGER NOT NULL REFERENCES item(id),
  absolute_number INTEGER NOT NULL CHECK (absolute_number > 0),
  parent INTEGER REFERENCES object(id),
  position INTEGER NOT NULL,
  deleted INTEGER NOT NULL DEFAULT 0,
  readable INTEGER NOT NULL DEFAULT 1,
  table_part TEXT NOT NULL DEFAULT 'none' CHECK (table_part IN ('none', 'table', 'row', 'cell')),
  origin TEXT,
  UNIQUE (module, absolute_number),
  UNIQUE (module, origin));

CREATE TABLE value (
  object INTEGER NOT NULL REFERENCES object(id),
  attribute INTEGER NOT NULL REFERENCES attribute(id),
  text TEXT NOT NULL,
  rich TEXT,
  PRIMARY KEY (object, attribute)) WITHOUT ROWID;

CREATE TABLE module_value (
  attribute INTEGER PRIMARY KEY REFERENCES attribute(id),
  text TEXT NOT NULL);

CREATE TABLE view (
  id INTEGER PRIMARY KEY,
  module INTEGER NOT NULL REFERENCES item(id),
  name TEXT NOT NULL CHECK (name <> 'Standard view'),
  loadable INTEGER NOT NULL DEFAULT 1,
  UNIQUE (module, name));

CREATE TABLE view_filter (
  view INTEGER NOT NULL REFERENCES view(id),
  attribute TEXT NOT NULL,
  operator TEXT NOT NULL CHECK (operator IN ('equals', 'not equals', 'contains')),
  value TEXT NOT NULL);

CREATE TRIGGER system_attributes AFTER INSERT ON item WHEN new.type IN ('Formal', 'Link', 'Descriptive') BEGIN
  INSERT INTO attribute (module, position, name, type, on_module, system) VALUES
    (new.id, -9, 'Absolute Number', 'Integer', 0, 1),
    (new.id, -8, 'Created By', 'String', 1, 1),
    (new.id, -7, 'Created On', 'Date', 1, 1),
    (new.id, -6, 'Created Thru', 'Created Thru', 0, 1),
    (new.id, -5, 'Last Modified By', 'String', 1, 1),
    (new.id, -4, 'Last Modified On', 'Date', 1, 1),
    (new.id, -3, 'Object Heading', 'String', 0, 1),
    (new.id, -2, 'Object Short Text', 'String', 0, 1),
    (new.id, -1, 'Object Text', 'Text', 0, 1);
END;
)sql";

const char* const kDoorsSchemaFrom1 = "ALTER TABLE attribute ADD COLUMN readable INTEGER NOT NULL DEFAULT 1";

}  // namespace kestrune::standins
