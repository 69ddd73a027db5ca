// A small database that has one of everything, and a DOORS over it that scripts can be tried on.
#pragma once

#include "standins/doors-database/DoorsStandIn.h"
#include "standins/doors-database/SimulatedDoorsWindows.h"
#include "standins/doors-database/xml/DomDocument.h"
#include "tests/standins/doors-database/DoorsTestFiles.h"

namespace kestrune::standins {

inline constexpr const char* kSampleRows = R"sql(
  INSERT INTO item (id, parent, type, name, prefix, description, deleted, readable) VALUES
    (2, 1, 'Project', 'Demo', '', 'of all', 0, 1), (3, 2, 'Folder', 'Specs', '', '', 0, 1),
    (4, 3, 'Formal', 'Car', 'C-', 'a car', 0, 1), (5, 2, 'Link', 'Links', '', '', 0, 1),
    (6, 3, 'Formal', 'Old', '', '', 1, 1), (7, 2, 'Project', 'Inner', '', '', 0, 1),
    (8, 7, 'Formal', 'Deep', '', '', 0, 1), (9, 1, 'Folder', 'Loose', '', '', 0, 1),
    (10, 9, 'Formal', 'Alone', '', '', 0, 1), (11, 3, 'Formal', 'Secret', '', '', 0, 0);
  INSERT INTO attribute (module, position, name, type, on_object, on_module, multi) VALUES
    (4, 0, 'Status', 'State', 1, 0, 1), (4, 1, 'Cost', 'Integer', 1, 1, 0), (4, 2, 'Done', 'Boolean', 1, 0, 0),
    (4, 3, 'Owner', 'String', 0, 1, 0);
  INSERT INTO object (id, module, absolute_number, parent, position, deleted, readable, table_part) VALUES
    (101, 4, 1, NULL, 1, 0, 1, 'none'), (102, 4, 2, 101, 1, 0, 1, 'none'), (103, 4, 3, 101, 2, 1, 1, 'none'),
    (104, 4, 4, 101, 3, 0, 1, 'none'), (105, 4, 5, 104, 1, 0, 1, 'none'), (106, 4, 6, NULL, 2, 0, 1, 'none'),
    (107, 4, 7, 106, 1, 0, 1, 'table'), (108, 4, 8, 107, 1, 0, 1, 'row'), (109, 4, 9, 108, 1, 0, 1, 'cell'),
    (110, 4, 10, 108, 2, 0, 1, 'cell'), (111, 4, 11, NULL, 3, 0, 0, 'none');
  CREATE TEMP TABLE given (number, name, text, rich);
  INSERT INTO given VALUES
    (1, 'Object Heading', 'Intro', NULL), (2, 'Object Text', 'a {b}', NULL), (2, 'Status', 'Open', NULL),
    (3, 'Status', 'Open', NULL), (4, 'Object Heading', 'Detail', NULL), (4, 'Status', 'Closed', NULL),
    (4, 'Cost', '12', NULL), (4, 'Done', 'True', NULL), (5, 'Object Text', 'bold', '{\b bold}'),
    (5, 'Status', 'Open', NULL), (6, 'Object Heading', 'Table', NULL), (9, 'Status', 'Open', NULL),
    (9, 'Object Text', 'left', NULL), (11, 'Object Text', 'secret', NULL);
  INSERT INTO value (object, attribute, text, rich)
    SELECT o.id, a.id, g.text, g.rich FROM given g
    JOIN object o ON o.absolute_number = g.number JOIN attribute a ON a.module = 4 AND a.name = g.name;
  DROP TABLE given;
  INSERT INTO module_value (attribute, text) SELECT id, 'me' FROM attribute WHERE name = 'Owner';
  INSERT INTO view (id, module, name, loadable) VALUES
    (1, 4, 'Open only', 1), (2, 4, 'Everything', 1), (3, 4, 'Broken', 0), (4, 4, 'Odd', 1), (5, 4, 'Two', 1);
  INSERT INTO view_filter (view, attribute, operator, value) VALUES
    (1, 'Status', 'equals', 'Open'), (4, 'Nothing', 'equals', ''), (5, 'Status', 'not equals', 'Closed'),
    (5, 'Object Heading', 'contains', 'nt');
)sql";

class SampleDoors : public DoorsDatabaseTest {
 protected:
  SampleDoors() {
    database.Sql().Exec(kSampleRows);
    platform.objects.objects[u"MSXML2.DOMDocument"] = MakeDomDocument();
  }

  Text Run(const Text& script, Text parameter = {}) {
    application.Put(u"Result", std::move(parameter));
    application.Call(u"RunStr", {script});
    return application.Get(u"Result").ToText();
  }

  kestrune::testing::TestPlatform platform;
  DoorsStandIn doors{database, folder.Path(), platform.objects,
                     std::make_unique<SimulatedDoorsWindows>(platform.desktop)};
  Object application = doors.Application();
};

}  // namespace kestrune::standins
