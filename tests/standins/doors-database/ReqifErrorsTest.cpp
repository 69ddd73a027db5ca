#include "tests/standins/doors-database/DoorsTestFiles.h"

namespace kestrune::standins {
namespace {

std::string Document(const std::string& content) {
  return "<REQ-IF "
         "xmlns='http://www.omg.org/spec/ReqIF/20110401/reqif.xsd'>\n<CORE-CONTENT><REQ-IF-CONTENT>\n" +
         content + "</REQ-IF-CONTENT></CORE-CONTENT></REQ-IF>\n";
}

const std::string kGoodSpecification =
    "<SPECIFICATIONS><SPECIFICATION IDENTIFIER='s' LONG-NAME='Good'/></SPECIFICATIONS>";

TEST_F(DoorsDatabaseTest, ABadFileIsRefusedAndNothingIsWritten) {
  std::string cut_archive = ReadFile(ReqifFile(u"doors-ole-small.reqifz"));
  cut_archive.replace(cut_archive.find("_Spielwiese.reqif") + 100, 40, std::string(40, '\x7F'));
  const std::pair<std::string, const char*> cases[] = {
      {"", "bad.reqif"},
      {"Dear reader", "(1): "},
      {"<?xml version='1.0'?>\n\n<html/>", "(3): the root element is html, not REQ-IF"},
      {Document(kGoodSpecification).substr(0, 190), "(3): "},
      {Document(kGoodSpecification + "\n</WRONG>"), "(4): "},
      {"<!DOCTYPE REQ-IF [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;'>]>\n" + Document("&b;"),
       "a document type definition is not accepted"},
      {"<!DOCTYPE REQ-IF SYSTEM 'file:///etc/passwd'>\n" + Document(""),
       "a document type definition is not accepted"},
      {Document(
           "<SPEC-OBJECTS>\n<SPEC-OBJECT IDENTIFIER='o'/>\n<SPEC-OBJECT IDENTIFIER='o'/></SPEC-OBJECTS>"),
       "(5): two objects have the same identifier"},
      {"PK\x03\x04 and nothing more", "the archive cannot be read"},
      {cut_archive, "bad.reqif!_Spielwiese.reqif: the member is damaged or cut short"},
  };
  const Text file = folder.File(u"bad.reqif");
  for (const auto& [bytes, says] : cases) {
    SCOPED_TRACE(says);
    WriteFile(file, bytes);
    const std::string error = FailureOf([&] { LoadReqif(database, file, u"/P/F"); });
    EXPECT_NE(error.find(says), std::string::npos) << error;
    EXPECT_EQ(error.find(ToUtf8(file)), 0u) << error;
    EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    EXPECT_EQ(Ask("SELECT count(*) FROM item"), u"1");
  }
}

TEST_F(DoorsDatabaseTest, ModuleIsNotLoadedOverAnotherKindOfItem) {
  database.Sql().Exec(
      "INSERT INTO item (id, parent, type, name) VALUES (2, 1, 'Project', 'P'), (3, 2, 'Link', 'Good')");
  const Text file = folder.File(u"good.reqif");
  WriteFile(file,
            Document("<SPECIFICATIONS><SPECIFICATION IDENTIFIER='f' LONG-NAME='First'/></SPECIFICATIONS>" +
                     kGoodSpecification));
  const struct {
    TextView folder;
    const char* says;
  } cases[] = {{u"/P", "no formal module"}, {u"/P/Good", "is a module"}, {u"/", "path of a project"}};
  for (const auto& c : cases) {
    const std::string error = FailureOf([&] { LoadReqif(database, file, c.folder); });
    EXPECT_NE(error.find(c.says), std::string::npos) << error;
    EXPECT_EQ(Ask("SELECT count(*) FROM item"), u"3") << "the first module was written";
  }
  database.Sql().Exec("UPDATE item SET deleted = 1 WHERE id = 2");
  EXPECT_NE(FailureOf([&] { LoadReqif(database, file, u"/P"); }).find("is deleted"), std::string::npos);
}

}  // namespace
}  // namespace kestrune::standins
